'use strict';
// Tests the descriptions in docs/formats: compare.js PROGRAM WORK. Reads every sample document and random ones with a
// reader compiled from the descriptions. PROGRAM, the command line, must read the same from each, and refuse the same
// ones. WORK is a folder for the files, which is kept after a failure.
const assert = require('assert');
const {execFileSync, execFile} = require('child_process');
const fs = require('fs');
const path = require('path');
const {promisify} = require('util');
const {RandomFiles} = require('./RandomFiles');
const {SecondReader} = require('./SecondReader');

const randomTracks = 240;
const randomElements = 30;
const [program, work] = process.argv.slice(2).map(file => path.resolve(file));
const root = path.join(__dirname, '../..');
const bytesOf = name => fs.readFileSync(path.join(work, name));
const run = promisify(execFile);
const output = {encoding: 'utf8', cwd: work, maxBuffer: 1 << 28};

/** Copies all documents into the folder. @return their names. */
function collect() {
    const names = [];
    const put = (origin, kind, bytes) => {
        names.push(`${names.length}-${origin}.${kind}`);
        fs.writeFileSync(path.join(work, names[names.length - 1]), bytes);
    };
    const corpora = ['track', 'element', 'chain'].map(target => 'fuzz/corpus/' + target);
    for (const folder of ['examples', 'tests/fixtures/broken', ...corpora]) {
        const files = fs.readdirSync(path.join(root, folder));
        assert(files.length > 0, folder + ' is empty');
        for (const file of files) {
            const bytes = fs.readFileSync(path.join(root, folder, file));
            const isElement = file.endsWith('.nlelem') || folder.endsWith('element') || (bytes[0] | 0x20) === 0x65;
            put('sample', isElement ? 'nlelem' : 'nltrack', bytes);
        }
    }
    const random = new RandomFiles(20240229);
    for (let i = 0; i < randomTracks + randomElements; ++i) {
        const [kind, file] = i < randomTracks ? ['nltrack', random.track()] : ['nlelem', random.element()];
        put('random', kind, file);
        put('spoiled', kind, random.spoiled(file));
    }
    return names;
}

/** @return the names of the files that the program accepts. */
function taken(names) {
    let printed;
    try {
        printed = execFileSync(program, ['check', ...names], output);
    } catch (error) { // nonzero exit status after a refused file
        printed = error.stdout;
    }
    const verdicts = printed.trim().split('\n');
    assert.equal(verdicts.length, names.length, 'each file has a verdict');
    return new Set(names.filter((name, i) => verdicts[i].startsWith(name + ': ok')));
}

function isEmpty(value) {
    return typeof value === 'object' ? Object.values(value).every(isEmpty) : [0, false, ''].some(none => Object.is(value, none));
}

/** Compares the results of the program and the second reader. Values that are not in the file must be empty. */
function compare(dumped, read, where) {
    if (read === undefined)
        return assert(isEmpty(dumped), where + ' is read by the program only');
    if (typeof read === 'object') {
        assert(typeof dumped === 'object' && dumped.length === read.length, where + ' has another form');
        for (const name of Object.keys(read))
            assert(name in dumped, `${where}.${name} is read by the description only`);
        for (const name of Object.keys(dumped))
            compare(dumped[name], read[name], `${where}.${name}`);
        return undefined;
    }
    const isSpecial = typeof dumped === 'string' && typeof read === 'number' && !Number.isFinite(read);
    const expected = isSpecial ? String(read).replace('Infinity', 'inf').toLowerCase() : read;
    return assert(Object.is(dumped, expected), `${where} is ${read}, and the program has ${dumped}`);
}

/** Checks that all skipped bytes of a record and its inner records are 0, and checks their sizes. */
function checkWritten(read, where) {
    if (Array.isArray(read))
        return read.forEach((item, i) => checkWritten(item, `${where}.${i}`));
    if (read === null || typeof read !== 'object' || !read._debug)
        return undefined;
    for (const name of Object.keys(read).filter(name => !/^_(io|root|parent|debug)$/.test(name))) {
        if (/^_unnamed/.test(name))
            assert(read[name].every(byte => byte === 0), `${where} has noise in ${name}`);
        else
            checkWritten(read[name], `${where}.${name}`);
    }
    const typeName = read.constructor.name;
    const ends = Object.values(read._debug).map(({end}) => end).filter(end => end !== undefined);
    if (/Block$/.test(typeName))
        assert.equal(read.size, Math.max(...ends) - read._debug.size.end, where + ' counts its parameters');
    if ('chunkSize' in read && 'chunks' in read)
        assert.equal(read.chunkSize, Math.max(...ends) - read._debug.chunkSize.end, where + ' counts its bytes');
    if (typeName === 'Flag8')
        assert([0, 0xff].includes(read.byte), where + ' is written as 0xFF');
    return undefined;
}

const tagOf = ({tag}) => tag.letters.map(({byte}) => String.fromCharCode(byte)).join('');

/** Checks that the program saves a file in the form that the descriptions call written. */
function checkSaved(reader, original, saved, where) {
    const file = reader.read(saved);
    checkWritten(file, where);
    if (file.fileHeader === undefined) {
        assert.equal(tagOf(file), 'ELEM');
        assert.equal(file.chunkSize, original.readInt32BE(4), where + ' keeps its size as read');
        assert.equal(file.closing.subChunks, 0);
        return assert.equal(file.closing._debug.subChunks.end, saved.length, where + ' ends with its last field');
    }
    assert.equal(tagOf(file), 'NLIM');
    assert.equal(file.chunkSize + 8, saved.length, where + ' is as long as it says');
    const document = reader.document(original);
    const checkTree = (chunk, type) => {
        const inside = (type['-sub-chunks'] || []).filter(tag => tag !== 'tera' || document.Terrain);
        assert.deepEqual(chunk.chunks.map(tagOf), inside.map(tag => tag.toUpperCase()), where + ' has its chunks in order');
    };
    checkTree(file, reader.types.get('FileHeader'));
    for (const chunk of reader.chunksOf(file))
        checkTree(chunk, reader.types.get(chunk.record.constructor.name));
    document.FileHeader.Version = [1, 3, 0, 0];
    return compare(reader.document(saved), document, where);
}

async function main() {
    fs.rmSync(work, {recursive: true, force: true});
    fs.mkdirSync(work, {recursive: true});
    const readers = {
        '.nltrack': await SecondReader.compile('nltrack', work),
        '.nlelem': await SecondReader.compile('nlelem', work),
    };
    const names = collect();
    const good = taken(names);
    const tally = {read: 0, refused: 0, saved: 0};
    const toDump = [];
    for (const name of names) {
        let document, fault;
        try {
            document = readers[path.extname(name)].document(bytesOf(name));
        } catch (error) {
            fault = error;
        }
        if (good.has(name))
            assert(document, `${name} is read by the program, and not by the description: ${fault && fault.stack}`);
        else
            assert(!document, `${name} is refused by the program, and not by the description`), ++tally.refused;
        if (document)
            toDump.push([name, document]);
    }
    const compareNext = async () => {
        for (let next; (next = toDump.pop());) {
            const [name, document] = next;
            compare(JSON.parse((await run(program, ['dump', name], output)).stdout), document, name);
            if (++tally.read % 8 === 0) {
                const saved = 'saved-' + name;
                await run(program, ['apply', name, '-o', saved], output);
                checkSaved(readers[path.extname(name)], bytesOf(name), bytesOf(saved), saved);
                ++tally.saved;
            }
        }
    };
    await Promise.all([compareNext(), compareNext()]);
    for (const [extension, reader] of Object.entries(readers))
        assert.deepEqual(reader.unproved(), [], extension + ': these fields never had two values');
    console.log(`${tally.read} documents are the same to both readers, ${tally.refused} are refused by both, ` +
                `${tally.saved} were saved and are as described.`);
    assert(tally.read >= 400 && tally.refused >= 300 && tally.saved >= 50, 'there are enough documents');
    fs.rmSync(work, {recursive: true});
}

main().catch(error => {
    console.error(error.message.split('\n').slice(0, 20).join('\n'));
    process.exit(1);
});
