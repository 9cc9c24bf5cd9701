'use strict';
// Reads documents using only the descriptions in docs/formats: compiles them to a reader, and converts its results to
// the form of `railwright-cli dump`.
const compiler = require('kaitai-struct-compiler');
const fs = require('fs');
const KaitaiStream = require('kaitai-struct/KaitaiStream');
const path = require('path');
const yaml = require('js-yaml');

const formats = path.join(__dirname, '../../docs/formats');
const load = name => yaml.load(fs.readFileSync(path.join(formats, path.basename(name) + '.ksy'), 'utf8'));

/** The program's name for a field or type of a description. */
const nameInCode = id => id.replace(/(?:^|_)(.)/g, (_, first) => first.toUpperCase());
/** The compiled reader's name for a field. */
const property = id => id.replace(/_(.)/g, (_, first) => first.toUpperCase());

const windows1252 = '€\x81‚ƒ„…†‡ˆ‰Š‹Œ\x8dŽ\x8f\x90‘’“”•–—˜™š›œ\x9džŸ';
const characters = bytes =>
    Array.from(bytes, byte => (byte >> 5 === 4 ? windows1252[byte - 0x80] : String.fromCharCode(byte))).join('');

const values = {
    Color: read => read.value,
    Flag8: read => read.value,
    Text: read => characters(read.value),
    TextIfAny: read => characters(read.value),
    Vector3: read => [read.x, read.y, read.z],
};

class SecondReader {
    /** Compiles the description of a kind, `nltrack` or `nlelem`, into a folder. */
    static async compile(kind, folder) {
        const description = load(kind);
        const files = await compiler.compile('javascript', description, {importYaml: async name => load(name)}, true);
        for (const [name, source] of Object.entries(files))
            fs.writeFileSync(path.join(folder, name), source);
        const name = nameInCode(kind);
        return new SecondReader(require(path.join(folder, name))[name], description);
    }

    constructor(Format, description) {
        this.Format = Format;
        this.types = new Map(Object.entries(description.types).map(([id, type]) => [nameInCode(id), type]));
        /** The first two different values of each field. */
        this.seen = new Map();
    }

    /** @return a file's content from the compiled reader. @throws if the file is not a document. */
    read(bytes) {
        const file = new this.Format(new KaitaiStream(Uint8Array.from(bytes).buffer));
        file._read();
        return file;
    }

    /** @return the chunks below `parent`, in file order. */
    chunksOf(parent) {
        return (parent.chunks || []).flatMap(chunk => [chunk, ...this.chunksOf(chunk)]);
    }

    /**
     * @return the document in a file. Adds the rules that the descriptions cannot express: the byte after the end is 0,
     * an unknown chunk must not include it, and the later of two chunks of a kind counts.
     */
    document(bytes) {
        const file = this.read(Buffer.concat([bytes, Buffer.alloc(1)]));
        if (!this.types.has('Chunk'))
            return this.element(file);
        const document = {FileHeader: this.record(file.fileHeader)};
        for (const chunk of this.chunksOf(file)) {
            if (chunk.isKnown)
                document[chunk.record.constructor.name] = this.record(chunk.record);
            else if (chunk.record.end > bytes.length)
                throw new Error('an unknown chunk leads out of the file');
        }
        if (document.Terrain)
            this.setUpTerrain(document.Terrain);
        return document;
    }

    /** A record of the file holds a control point of the previous node. Moves it there. */
    element(file) {
        const nodes = [{}];
        for (const [i, {ControlOut, ...node}] of file.nodes.map(node => this.record(node)).entries()) {
            nodes[i].ControlOut = ControlOut;
            nodes.push(node);
        }
        return {NodeCount: file.nodeCount, Nodes: nodes};
    }

    setUpTerrain(terrain) {
        const {GridSizeX: width, GridSizeZ: depth, Heights: heights} = terrain;
        terrain.HasTerrain = true;
        terrain.Heights = Array.from({length: depth > 0 ? width : 0}, (_, x) =>
            Array.from({length: depth}, (_, z) => heights[z * width + x]));
    }

    value(read) {
        if (Array.isArray(read))
            return read.map(item => this.value(item));
        if (typeof read !== 'object')
            return read;
        const convert = values[read.constructor.name];
        return convert ? convert(read) : this.record(read);
    }

    /** @return the fields of a record by their names in the program. Separate parts of a list are combined. */
    record(read) {
        const typeName = read.constructor.name;
        const {seq, instances = {}} = this.types.get(typeName);
        const lists = Object.entries(instances);
        const parts = lists.flatMap(([, {value}]) => value.match(/\w+/g));
        const record = {};
        for (const {id} of seq.filter(({id}) => id && read[property(id)] !== undefined)) {
            const value = this.value(read[property(id)]);
            this.note(typeName + '.' + id, value);
            if (id === 'parameters')
                Object.assign(record, value);
            else if (id !== 'size' && !parts.includes(id))
                record[nameInCode(id)] = value;
        }
        for (const [id] of lists)
            record[nameInCode(id)] = read[property(id)];
        return record;
    }

    note(field, value) {
        if (!this.seen.has(field))
            this.seen.set(field, new Set());
        const values = this.seen.get(field);
        if (values.size < 2)
            values.add(JSON.stringify(value));
    }

    /** @return the fields of records that never had two values, so that the test proves nothing about them. */
    unproved() {
        const records = [...this.types].filter(([name]) => !/^(Chunk|UnknownChunk|Closing)$/.test(name));
        const fields = records.flatMap(([name, {seq}]) => seq.filter(({id}) => id).map(({id}) => name + '.' + id));
        return fields.filter(field => !(this.seen.get(field)?.size > 1));
    }
}

module.exports = {SecondReader};
