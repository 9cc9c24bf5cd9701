'use strict';
// Creates random files of both kinds, the same ones for the same seed. It only knows the parts of the layouts that
// make a file readable: the sizes of records, and the positions of counts, lengths and kinds of segment. Everything
// else is noise, including skipped bytes.

class RandomFiles {
    constructor(seed) {
        this.state = seed;
    }

    /** @return a whole number from 0 to limit - 1. */
    below(limit) {
        this.state = (this.state + 0x6d2b79f5) | 0;
        let mixed = Math.imul(this.state ^ (this.state >>> 15), this.state | 1);
        mixed ^= mixed + Math.imul(mixed ^ (mixed >>> 7), mixed | 61);
        return ((mixed ^ (mixed >>> 14)) >>> 0) % limit;
    }

    noise(size) {
        return Buffer.from(Array.from({length: size}, () => (this.below(5) < 2 ? 0 : this.below(256))));
    }

    long(value) {
        const bytes = Buffer.alloc(4);
        bytes.writeInt32BE(value);
        return bytes;
    }

    text() {
        return this.counted(() => this.noise(1), 9);
    }

    textIfAny() {
        return this.below(4) ? this.text() : this.long(-this.below(3));
    }

    /** @return a count, `between` bytes of noise, and that many items. */
    counted(item, limit = 5, between = 0) {
        const count = this.below(limit);
        return Buffer.concat([this.long(count), this.noise(between), ...Array.from({length: count}, item)]);
    }

    list(item) {
        return Buffer.concat([this.noise(16), this.counted(item), this.noise(16)]);
    }

    segment() {
        const kind = this.below(7) - 1;
        const parameters = [0, 126, 36, 28, 50][kind];
        return Buffer.concat([this.long(kind), this.noise(29 + (parameters === undefined ? 0 : 4 + parameters))]);
    }

    terrain() {
        const [width, depth] = [this.below(4), this.below(4)];
        return [this.long(width), this.long(depth), this.noise(8), this.text(), this.noise(4), this.text(), this.noise(9),
                this.text(), this.noise(20 + 4 * width * depth + 16)];
    }

    /** @return the fields of a chunk. */
    fields(tag) {
        const n = size => this.noise(size);
        switch (tag) {
        case 'NLIM': return [n(20)];
        case 'TRCK': return [n(4), this.counted(() => Buffer.concat([n(8), this.textIfAny(), n(16)]), 5, 4), n(48)];
        case 'INFO': return [n(16), this.textIfAny()];
        case 'BEZR': return [this.list(() => n(60))];
        case 'SEGM': return [this.counted(() => this.segment(), 9, 17), n(16)];
        case 'SUPP': return [n(32)];
        case 'FUND': return [this.list(() => n(92))];
        case 'RASC': return [this.list(() => this.counted(() => n(24)))];
        case 'FREN': return [this.list(() => n(28))];
        case 'TUBE': return [this.list(() => n(48))];
        case 'CATW': return [this.list(() => Buffer.concat([n(24), this.counted(() => n(1))]))];
        case 'SCEN': return [this.list(() => n(64))];
        case 'SCOB': return [this.list(() => Buffer.concat([this.text(), this.text(), n(80)]))];
        case 'TERA': return this.terrain();
        case 'ENVC': return [n(16), this.textIfAny(), this.textIfAny(), n(16)];
        }
    }

    tagged(tag) {
        return Buffer.from(Array.from(tag, letter => (this.below(4) ? letter : letter.toLowerCase())).join(''));
    }

    /** @return an unknown chunk. Every third one leaves the last field out of its size. */
    unknown() {
        const size = this.below(20);
        const leftOut = this.below(3) ? 0 : 4;
        return Buffer.concat([this.tagged(['NLIM', 'ELEM', 'WXYZ'][this.below(3)]), this.long(size),
                              this.noise(size), Buffer.alloc(leftOut)]);
    }

    chunk(tag, below) {
        if (tag === undefined)
            return this.unknown();
        return Buffer.concat([this.tagged(tag), this.noise(4), ...this.fields(tag), this.long(below.length), ...below]);
    }

    /** @return the chunks of some tags. Each contains some of the following ones. */
    chunks(tags) {
        const chunks = [];
        while (tags.length > 0) {
            const [tag] = tags;
            const inside = tag && this.below(2) ? 1 + this.below(tags.length) : 1;
            chunks.push(this.chunk(tag, this.chunks(tags.slice(1, inside))));
            tags = tags.slice(inside);
        }
        return chunks;
    }

    track() {
        const known = ['TRCK', 'INFO', 'BEZR', 'SEGM', 'SUPP', 'FUND', 'RASC', 'FREN', 'TUBE', 'CATW', 'SCEN', 'SCOB',
                       'TERA', 'ENVC'];
        const tags = Array.from({length: this.below(24)}, () => known.concat(undefined, undefined)[this.below(16)]);
        return this.chunk('NLIM', this.chunks(tags));
    }

    element() {
        return Buffer.concat([this.tagged('ELEM'), this.noise(68), this.counted(() => this.noise(50)), this.noise(68)]);
    }

    /** @return the file with a fault that may make it unreadable. */
    spoiled(file) {
        if (this.below(2))
            return file.subarray(0, this.below(file.length));
        const bytes = Buffer.from(file);
        for (let i = this.below(4); i >= 0; --i)
            bytes[this.below(bytes.length)] = [0, 1, 4, 0x41, 0x7f, 0xff][this.below(6)];
        return bytes;
    }
}

module.exports = {RandomFiles};
