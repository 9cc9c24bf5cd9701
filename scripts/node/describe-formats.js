'use strict';
// Writes the pages about the file formats as Markdown and manual pages; see scripts/describe-formats.
const fs = require('fs');
const path = require('path');
const {FormatPage} = require('./FormatPage');

const root = path.join(__dirname, '../..');

function markdown({name, title, blocks}) {
    const row = cells => `| ${cells.join(' | ')} |`.replace(/ {2}/g, ' ');
    const text = ({heading, level, paragraph, tree, head, rows}) => {
        if (heading)
            return `${'#'.repeat(level)} ${heading}`;
        if (paragraph)
            return paragraph;
        if (tree)
            return tree.map(line => '    ' + line).join('\n');
        return [row(head), '|' + '---|'.repeat(head.length), ...rows.map(row)].join('\n');
    };
    return [`# ${title} (.${name})`,
            `<!-- Made by scripts/describe-formats: change ${name}.ksy or values.ksy instead. -->`,
            `[${name}.ksy](${name}.ksy) says the same for machines: Kaitai Struct makes a reader of it in many languages. ` +
                'A test holds such a reader against the program.',
            ...blocks.map(text)].join('\n\n') + '\n';
}

function manual({name, title, blocks}) {
    const other = name === 'nltrack' ? 'nlelem' : 'nltrack';
    const plain = words => words.replace(/\\/g, '\\e').replace(/-/g, '\\-').replace(/^([.'])/, '\\&$1')
        .replace(/`([^`]*)`/g, '\\fB$1\\fR');
    const row = cells => cells.map((words, i) =>
        (i === cells.length - 1 && words ? `T{\n${plain(words)}\nT}` : plain(words))).join('|');
    const text = ({heading, level, paragraph, tree, head, rows}) => {
        if (heading)
            return level === 3 ? `.SS "${plain(heading)}"` :
                `.SH "${plain(heading.includes(':') ? heading : heading.toUpperCase())}"`;
        if (paragraph)
            return `.PP\n${plain(paragraph)}`;
        if (tree)
            return ['.PP', '.EX', ...tree.map(plain), '.EE'].join('\n');
        const columns = head.map(title => ({Offset: 'r', Meaning: 'lx'}[title] || 'l')).join(' ');
        return ['.PP', '.TS', 'tab(|);', head.map(() => 'lb').join(' '), `${columns}.`, head.join('|'),
                ...rows.map(row), '.TE'].join('\n');
    };
    return ["'\\\" t",
            `.\\" Made by scripts/describe-formats: change docs/formats/${name}.ksy or values.ksy instead.`,
            `.TH ${name.toUpperCase()} 5 "" Railwright "File formats"`, '.nh', '.ad l',
            '.SH NAME', `${name} \\- ${title[0].toLowerCase()}${title.slice(1)}`, '.SH DESCRIPTION',
            ...blocks.map(text),
            '.SH "SEE ALSO"', '.BR railwright (1),', '.BR railwright\\-cli (1),', `.BR ${other} (5)`].join('\n') + '\n';
}

const pages = ['nltrack', 'nlelem'].map(name => new FormatPage(name)).flatMap(page => [
    [`docs/formats/${page.name}.md`, markdown(page)],
    [`packaging/man/${page.name}.5`, manual(page)],
]);
for (const [file, content] of pages) {
    const there = path.join(root, file);
    if (process.argv[2] !== '--check') {
        fs.mkdirSync(path.dirname(there), {recursive: true});
        fs.writeFileSync(there, content);
    } else if (!fs.existsSync(there) || fs.readFileSync(there, 'utf8') !== content) {
        console.error(`${file} is out of date, scripts/describe-formats makes it anew.`);
        process.exitCode = 1;
    }
}
