meta:
  id: values
  title: The values of track and element files
  license: MIT
  ks-version: '0.11'
  endian: be
doc: |
  All numbers of more than one byte are big-endian.
types:
  tag:
    doc: Four letters. Small letters count as capitals; they are written as capitals.
    seq:
      - id: letters
        type: letter
        repeat: expr
        repeat-expr: 4
    instances:
      code:
        doc: The four capitals as one number, the first in the highest byte.
        value: >-
          ((letters[0].capital * 256 + letters[1].capital) * 256 + letters[2].capital) * 256 + letters[3].capital
      are_letters:
        value: letters[0].is_letter and letters[1].is_letter and letters[2].is_letter and letters[3].is_letter
  letter:
    seq:
      - id: byte
        type: u1
    instances:
      is_small:
        value: byte >= 0x61 and byte <= 0x7a
      is_letter:
        value: is_small or (byte >= 0x41 and byte <= 0x5a)
      capital:
        value: 'is_small ? byte - 0x20 : byte'
  flag8:
    doc: False if the byte is 0, true if it is anything else. True is written as 0xFF.
    seq:
      - id: byte
        type: u1
    instances:
      value:
        value: byte != 0
  color:
    doc: |
      A colour. The first byte is passed over and written as 0. The other three are kept as they are.
    seq:
      - size: 1
      - id: value
        type: b24
  vector3:
    doc: A point in metres, or another triple. X points east, Y up and Z south.
    seq:
      - id: x
        type: f4
      - id: y
        type: f4
      - id: z
        type: f4
  text:
    doc: |
      A length n, then n bytes, one for each character in the ANSI code page of the machine that wrote the file.
      Windows-1252 is usual. Nothing ends the text and nothing pads it. A negative length is an error.
    seq:
      - id: length
        type: s4
        valid:
          min: 0
      - id: value
        size: length
  text_if_any:
    doc: A text whose length may be negative, which counts as 0.
    seq:
      - id: length
        type: s4
      - id: value
        size: 'length < 0 ? 0 : length'
