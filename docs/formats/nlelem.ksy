meta:
  id: nlelem
  title: Element file of the NoLimits simulator
  file-extension: nlelem
  license: MIT
  ks-version: '0.11'
  imports:
    - values
  endian: be
doc: |
  An element is a short piece of track that starts at the origin. Its file is one chunk, `ELEM`, with nothing but the
  curve: a chain of cubic Bezier spans. The span from node i - 1 to node i runs from one `Position` to the next; the
  `ControlOut` of node i - 1 and the `ControlIn` of node i are its inner control points.

  An element of n spans has n + 1 nodes, numbered from 0. There is one record for each node but node 0. That one lies at
  the origin, and only its `ControlOut` is in the file, in the record of node 1. The last node has no `ControlOut`.

  The file is 144 + 50 x `NodeCount` bytes long.
-reading: |
  The file has to begin with the tag; there is no version. `NodeCount` is not believed before it is held against the bytes
  that remain. Reading ends with the last record: nothing behind it is looked at, or need be there. The byte behind the
  end of a file reads as 0, so that a file may lack the last byte of its last record. A reader that Kaitai Struct makes
  cannot know that.

  What is wrong with a file, and at which byte, is told by `railwright-cli check`. A file of 2 GiB or more is refused.
-writing: |
  `ChunkSize` is written as it was read. Everything that is passed over is written as 0. Floats and whole numbers keep
  their exact bits, those of "not a number" included.
seq:
  - id: tag
    type: values::tag
    valid:
      expr: _.code == 0x454c454d
    doc: '"ELEM".'
  - id: chunk_size
    type: s4
    doc: The number of bytes behind this field, 136 + 50 x `NodeCount`. It is not looked at.
  - size: 64
  - id: node_count
    type: s4
    valid:
      min: 0
    doc: The number of spans, and of records.
  - id: nodes
    type: element_node
    repeat: expr
    repeat-expr: node_count
    doc: The nodes from 1 on.
  - id: closing
    type: closing
    if: _io.size - _io.pos >= 68
    doc: What closes the file. Reading ends before it.
types:
  element_node:
    doc: The record of node i.
    seq:
      - id: control_out
        type: values::vector3
        doc: Control point of node i - 1 on the side of node i.
      - id: control_in
        type: values::vector3
        doc: Control point of node i on the side of node i - 1.
      - id: position
        type: values::vector3
        doc: The point that the curve passes through.
      - id: roll
        type: f4
        doc: Roll of the track at the node.
      - id: flag_a
        type: values::flag8
        doc: Kept for the simulator.
      - id: flag_b
        type: values::flag8
        doc: Kept for the simulator.
      - size: 8
  closing:
    doc: It is written and never read.
    seq:
      - size: 64
      - id: sub_chunks
        type: s4
        doc: The number of chunks in this one, 0.
