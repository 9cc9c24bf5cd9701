'use strict';
// The page about a file format as a list of blocks: headings, paragraphs, trees and tables. Generated from the
// format's description for Kaitai Struct.
const fs = require('fs');
const path = require('path');
const yaml = require('js-yaml');

const formats = path.join(__dirname, '../../docs/formats');
const load = name => yaml.load(fs.readFileSync(path.join(formats, name + '.ksy'), 'utf8'));
const shared = load('values');

const numbers = {
    u1: {name: 'byte', size: 1, doc: 'A whole number from 0 to 255.'},
    s4: {name: 'long', size: 4, doc: "A whole number with a sign, in two's complement."},
    f4: {name: 'single', size: 4, doc: 'A float of 32 bits, IEEE 754.'},
    b24: {size: 3},
};
/** Fields without a name in the program. */
const nameless = ['tag', 'size', 'chunks', 'parameters', 'record'];

/** The program's name for a field or type. */
const nameInCode = id => id.replace(/(?:^|_)(.)/g, (_, first) => first.toUpperCase());
const inCode = words => (words ? '`' + words + '`' : '');
const product = expression => expression.split(' * ').map(id => inCode(nameInCode(id))).join(' x ');
const isText = ({type}) => /^values::text/.test(type);
const isOneOf = ({type}) => typeof type === 'object';
const isList = field => field['repeat-expr'] !== undefined && typeof field['repeat-expr'] !== 'number';
const oneLine = text => text.trim().replace(/\n/g, ' ');

/** A number of bytes: a fixed part, and variable parts in words. */
class Size {
    constructor(fixed, ...more) {
        this.fixed = fixed;
        this.more = more;
    }

    static sum(sizes) {
        return new Size(sizes.reduce((sum, {fixed}) => sum + fixed, 0), ...sizes.flatMap(({more}) => more));
    }

    toString() {
        return [...(this.fixed ? [this.fixed] : []), ...this.more].join(' + ');
    }
}

class FormatPage {
    /** @param name of the format, `nltrack` or `nlelem`. */
    constructor(name) {
        this.name = name;
        this.format = load(name);
        this.title = this.format.meta.title;
        this.blocks = [];
        this.usedTypes = new Set(['tag']);
        const body = () => (this.format.types.chunk ? this.describeChunks() : this.describeElement());
        this.paragraphs(this.format.doc);
        this.heading(2, 'Values');
        const valuesAt = this.blocks.length;
        this.heading(2, 'Reading');
        this.paragraphs(this.format['-reading']);
        this.heading(2, 'Writing');
        this.paragraphs(this.format['-writing']);
        body();
        this.blocks.splice(valuesAt, 0, ...this.values());
    }

    heading(level, text) {
        this.blocks.push({heading: text, level});
    }

    paragraphs(text = '') {
        for (const paragraph of text.split('\n\n').filter(Boolean))
            this.blocks.push({paragraph: oneLine(paragraph)});
    }

    table(head, rows) {
        this.blocks.push({head, rows});
    }

    /** Returns the table of the value types that the page uses. */
    values() {
        const all = [...Object.entries(numbers), ...Object.entries(shared.types)].filter(([id]) => this.usedTypes.has(id));
        const rows = all.map(([id, {name, size, doc}]) =>
            [name || id, String(size || this.sizeOfType('values::' + id)), oneLine(doc)]);
        return [{paragraph: oneLine(shared.doc)}, {head: ['Type', 'Bytes', 'Meaning'], rows}];
    }

    /** @return the size of a type, independent of a field. */
    sizeOfType(type) {
        if (numbers[type])
            return new Size(numbers[type].size);
        if (isText({type}))
            return new Size(4, 'n');
        const id = type.replace('values::', '');
        const {seq} = this.format.types[id] || shared.types[id];
        return Size.sum(seq.map(field => this.sizeOf(field)));
    }

    /** @return the size of a field as part of its record's size. */
    sizeOf(field) {
        if (field.size)
            return typeof field.size === 'number' ? new Size(field.size) : new Size(0, product(field.size));
        if (isOneOf(field))
            return new Size(0, `the size of the ${field.id}`);
        const name = inCode(nameInCode(field.id));
        if (isText(field))
            return new Size(4, `the length of ${name}`);
        const one = this.sizeOfType(field.type);
        const count = field['repeat-expr'];
        if (!isList(field))
            return new Size(one.fixed * (count || 1), ...one.more);
        return new Size(0, one.more.length > 0 ? `the size of all ${name}` : `${one.fixed} x ${product(count)}`);
    }

    /** Returns the cells of a field's row, without its offset. */
    cells(field) {
        const varies = isOneOf(field) || field.type === 'chunk' ||
            (isList(field) && this.sizeOfType(field.type).more.length > 0);
        const bytes = varies ? 'varies' : isText(field) ? '4 + n' :
            isList(field) ? `${this.sizeOfType(field.type)} each` : String(this.sizeOf(field));
        const name = field.part || (field.id && !nameless.includes(field.id) ? nameInCode(field.id) : '');
        return [bytes, this.typeName(field), inCode(name), field.doc || (field.size ? 'Written as 0.' : '')];
    }

    typeName(field) {
        if (field.size)
            return 'passed over';
        if (isOneOf(field))
            return field.id === 'record' ? '' : 'by ' + product(field.type['switch-on']);
        const id = field.type.replace('values::', '');
        this.usedTypes.add(id);
        const name = numbers[id] ? numbers[id].name : shared.types[id] ? id : nameInCode(id);
        const count = field['repeat-expr'];
        return typeof count === 'number' ? `${count} x ${name}` : name;
    }

    /** Adds a table of fields, with offsets that are fixed, and the meanings of their values. */
    fields(seq) {
        let offset = 0;
        const rows = seq.map(field => {
            const row = [offset === undefined ? '' : String(offset), ...this.cells(field)];
            const size = field.type === 'chunk' ? undefined : this.sizeOf(field);
            offset = offset === undefined || !size || size.more.length > 0 ? undefined : offset + size.fixed;
            return row;
        });
        this.table(['Offset', 'Bytes', 'Type', 'Name', 'Meaning'], rows);
        for (const {id, enum: kinds} of seq.filter(field => field.enum)) {
            this.paragraphs(`Values of ${inCode(nameInCode(id))}:`);
            this.table(['Value', 'Meaning'], Object.entries(this.format.enums[kinds]).map(([value, {doc}]) => [value, doc]));
        }
    }

    /** Returns the fields of a type. A separate part of a list is named after its index. */
    fieldsOf({seq, instances = {}}) {
        return seq.map(field => {
            const [list] = Object.keys(instances).filter(id => field.id && instances[id].value.includes(field.id));
            if (!list)
                return field;
            const place = field.id.slice(list.length + 1);
            return {...field, part: nameInCode(list) + (/\d/.test(place) ? `[${place}]` : '.' + place.toUpperCase())};
        });
    }

    /** Adds the types of some fields, and the types that these use. */
    records(seq) {
        for (const field of seq) {
            const types = isOneOf(field) ? Object.values(field.type.cases) : isList(field) ? [field.type] : [];
            for (const id of types.filter(id => this.format.types[id] && id !== 'chunk')) {
                const type = this.format.types[id];
                this.heading(3, isOneOf(field) ? id[0].toUpperCase() + id.slice(1).replace('_', ' ') : nameInCode(id));
                this.paragraphs(`Size: ${this.sizeOfType(id)}. ${type.doc || ''}`);
                this.fields(this.fieldsOf(type));
                this.records(type.seq);
            }
        }
    }

    /** Adds a chunk: its own fields in their frame, and how its size counts. */
    chunk(tag, id) {
        const type = this.format.types[id];
        const inside = type['-sub-chunks'] || [];
        const own = this.fieldsOf(type);
        const [tagField, size, , count, chunks] = this.format.seq;
        this.heading(2, `${tag.toUpperCase()}: ${nameInCode(id)}`);
        this.paragraphs(type.doc);
        this.fields([{...tagField, doc: `"${tag.toUpperCase()}".`}, {...size, doc: ''}, ...own,
                     tag === 'nlim' ? count : {...count, doc: `${inside.length}.`}, ...(inside.length > 0 ? [chunks] : [])]);
        const bytes = Size.sum([...own, count].map(field => this.sizeOf(field)));
        const below = inside.length > 0 ? ', and for each sub-chunk 8 + its `ChunkSize`' : '';
        this.paragraphs(`\`ChunkSize\` is ${bytes}${below}.`);
        this.records(type.seq);
    }

    describeChunks() {
        const {chunk, unknown_chunk: unknown} = this.format.types;
        const {cases} = chunk.seq.find(({id}) => id === 'record').type;
        const recordOf = tag => (tag === 'nlim' ? 'file_header' : cases['tag::' + tag]);
        const inside = tag => this.format.types[recordOf(tag)]['-sub-chunks'] || [];
        const below = (tag, depth) => [[tag, depth], ...inside(tag).flatMap(inner => below(inner, depth + 1))];
        const tree = below('nlim', 0);
        this.heading(2, 'Chunks');
        this.paragraphs('Every chunk has this frame:');
        this.table(['Bytes', 'Type', 'Name', 'Meaning'], chunk.seq.map(field => this.cells(field)));
        this.paragraphs('The chunks and their records, in the order in which they are written:');
        this.blocks.push({tree: tree.map(([tag, depth]) =>
            `${'    '.repeat(depth)}${tag.toUpperCase()}  ${nameInCode(recordOf(tag))}`)});
        this.paragraphs('In the tables of the chunks, offsets count from the tag; in those of records, from the ' +
                        'beginning of the record. Where no offset stands, it depends on what comes before.');
        for (const [tag] of tree)
            this.chunk(tag, recordOf(tag));
        this.heading(2, 'Unknown chunks');
        this.paragraphs(unknown.doc);
    }

    describeElement() {
        const {seq, types} = this.format;
        this.heading(2, 'ELEM: ElementDocument');
        this.paragraphs('Offsets count from the beginning of the file.');
        this.fields(seq.flatMap(field => (field.id === 'closing' ? types.closing.seq : [field])));
        this.records(seq);
    }
}

module.exports = {FormatPage};
