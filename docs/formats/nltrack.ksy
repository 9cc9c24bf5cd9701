meta:
  id: nltrack
  title: Track file of the NoLimits simulator
  file-extension: nltrack
  license: MIT
  ks-version: '0.11'
  imports:
    - values
  endian: be
doc: |
  A file is one root chunk, `NLIM`, which holds all others. A chunk is a tag, the number of bytes that follow, its own
  fields, the number of its sub-chunks, and these, one after the other. Nothing marks its end.
-reading: |
  The file has to begin with the tag of the root; its version is not looked at. Each chunk ends where its fields and its
  sub-chunks end: `ChunkSize` of a known chunk is not looked at. A known chunk is taken wherever its tag turns up, in any
  order and nesting. If it comes twice, the later one counts. The record of a missing chunk is empty. Bytes behind the
  last chunk are not looked at. The byte behind the end of a file reads as 0, so that a file may lack its last byte.

  No count and no length is believed before it is held against the bytes that remain, so that a load never takes more than
  a small multiple of the file's size. A file that ends too early, or has a negative count, is refused. What is wrong, and
  at which byte, is told by `railwright-cli check`. A file of 2 GiB or more is refused, too.

  A reader that Kaitai Struct makes gives all chunks as they stand. It cannot know two things: that of two chunks with the
  same tag the later one counts, and that the byte behind the end of a file reads as 0.
-writing: |
  A file is always written in the same form: version 1, 3, 0, 0, the chunks in the order of the tree, `ChunkSize` and
  `SubChunks` computed anew, and 0 in everything that is passed over. Unknown chunks and bytes behind the last chunk are
  lost. Floats and whole numbers keep their exact bits, those of "not a number" included. A file in this form comes
  back byte for byte.

  An empty track without terrain has 665 bytes.
seq:
  - id: tag
    type: values::tag
    valid:
      expr: _.code == 0x4e4c494d
    doc: '"NLIM".'
  - id: chunk_size
    type: s4
    doc: The number of bytes behind this field up to the chunk's end, sub-chunks included.
  - id: file_header
    type: file_header
    doc: The chunk's own fields.
  - id: sub_chunks
    type: s4
    valid:
      min: 0
    doc: The number of chunks that stand directly in this one, 4, or 3 without terrain.
  - id: chunks
    type: chunk
    repeat: expr
    repeat-expr: sub_chunks
    doc: The sub-chunks.
enums:
  tag:
    0x5452434b: trck
    0x494e464f: info
    0x42455a52: bezr
    0x5345474d: segm
    0x53555050: supp
    0x46554e44: fund
    0x52415343: rasc
    0x4652454e: fren
    0x54554245: tube
    0x43415457: catw
    0x5343454e: scen
    0x53434f42: scob
    0x54455241: tera
    0x454e5643: envc
  track_type:
    0:
      id: steel_looping
      doc: Steel Looping
    1:
      id: corkscrew
      doc: Corkscrew
    2:
      id: inverted_2_seat
      doc: Inverted (2 Seat)
    3:
      id: twisted_steel
      doc: Twisted Steel
    4:
      id: inverted_4_seat
      doc: Inverted (4 Seat)
    5:
      id: hyper_coaster_2_seat
      doc: Hyper Coaster (2 Seat)
    6:
      id: floorless_twisted_steel
      doc: Floorless Twisted Steel
    7:
      id: stand_up_twisted_steel
      doc: Stand-Up Twisted Steel
    8:
      id: hyper_coaster_4_seat
      doc: Hyper Coaster (4 Seat)
    9:
      id: wooden_coaster_trailored_2_seat
      doc: Wooden Coaster (Trailored 2 Seat)
    10:
      id: wooden_coaster_classic_4_seat
      doc: Wooden Coaster (Classic 4 Seat)
    11:
      id: wooden_coaster_classic_6_seat
      doc: Wooden Coaster (Classic 6 Seat)
    12:
      id: wooden_coaster_trailored_4_seat
      doc: Wooden Coaster (Trailored 4 Seat)
  segment_type:
    0:
      id: normal
      doc: Normal, without parameters
    1:
      id: station
      doc: Station
    2:
      id: lift
      doc: Lift
    3:
      id: transport
      doc: Transport
    4:
      id: brake
      doc: Brake
  support_type:
    0:
      id: track_nodes
      doc: Track Nodes
    2:
      id: single
      doc: Single
    3:
      id: complex
      doc: Complex
    4:
      id: inverted
      doc: Inverted
    5:
      id: degree_90_bank
      doc: 90 Degree Bank
    6:
      id: small_inverted
      doc: Small Inverted
    7:
      id: a_shape
      doc: "'A' Shape"
  beam_type:
    0:
      id: medium
      doc: Medium
    1:
      id: large
      doc: Large
    2:
      id: small
      doc: Small
    3:
      id: l_beam
      doc: "'L' Beam"
    4:
      id: h_beam
      doc: "'H' Beam"
    5:
      id: x_large
      doc: X Large
    6:
      id: xx_large
      doc: XX Large
    7:
      id: wood_4x4
      doc: Wood 4x4
    8:
      id: wood_1x4
      doc: Wood 1x4
    9:
      id: wood_2x2
      doc: Wood 2x2
  tree_type:
    1:
      id: type_a
      doc: Type A
    2:
      id: type_b
      doc: Type B
    3:
      id: type_c
      doc: Type C
types:
  chunk:
    seq:
      - id: tag
        type: values::tag
        doc: The chunk's tag.
      - id: chunk_size
        type: s4
        doc: The number of bytes behind this field up to the chunk's end, sub-chunks included.
      - id: record
        type:
          switch-on: kind
          cases:
            'tag::trck': track_header
            'tag::info': track_info
            'tag::bezr': bezier_curve
            'tag::segm': segment_list
            'tag::supp': support_header
            'tag::fund': fundamental_nodes
            'tag::rasc': pre_fab_supports
            'tag::fren': free_nodes
            'tag::tube': support_beams
            'tag::catw': wood_catwalks
            'tag::scen': scenery
            'tag::scob': scenery_objects
            'tag::tera': terrain
            'tag::envc': environment
            _: unknown_chunk
        doc: The chunk's own fields.
      - id: sub_chunks
        type: s4
        valid:
          min: 0
        if: is_known
        doc: The number of chunks that stand directly in this one.
      - id: chunks
        type: chunk
        repeat: expr
        repeat-expr: sub_chunks
        if: is_known
        doc: The sub-chunks.
    instances:
      kind:
        value: tag.code
        enum: tag
      is_known:
        value: >-
          kind == tag::trck or kind == tag::info or kind == tag::bezr or kind == tag::segm or kind == tag::supp
          or kind == tag::fund or kind == tag::rasc or kind == tag::fren or kind == tag::tube or kind == tag::catw
          or kind == tag::scen or kind == tag::scob or kind == tag::tera or kind == tag::envc
  unknown_chunk:
    doc: |
      A chunk with any other tag, `NLIM` inside of a file included. It is passed over with all that it holds, and lost
      on saving. Its `ChunkSize` is believed; one that is negative or leads out of the file is an error.

      Some writers leave the four bytes of the last field out of `ChunkSize`. So if no four letters stand behind the
      chunk, but four letters stand four bytes further, these four bytes are passed over, too.
    seq:
      - size: _parent.chunk_size
        doc: Fields and sub-chunks.
      - size: 4
        if: not letters_stand_behind and letters_stand_further
        doc: The last field, where it is left out of the size.
    instances:
      end:
        doc: The place behind the chunk. It is worked out when it is first asked for, by the condition of the last field.
        value: _io.pos
      behind:
        pos: end
        type: values::tag
        if: end + 4 <= _io.size
      letters_stand_behind:
        value: end + 4 <= _io.size and behind.are_letters
      further:
        pos: end + 4
        type: values::tag
        if: end + 8 <= _io.size
      letters_stand_further:
        value: end + 8 <= _io.size and further.are_letters
  file_header:
    -sub-chunks: [trck, scen, tera, envc]
    seq:
      - id: version
        type: u1
        repeat: expr
        repeat-expr: 4
        doc: The version. It is read whatever it is, and written as 1, 3, 0, 0.
      - size: 16
  track_header:
    -sub-chunks: [info, bezr, segm, supp]
    seq:
      - id: track_type
        type: s4
        enum: track_type
        doc: The kind of coaster.
      - id: num_trains
        type: s4
        valid:
          min: 0
        doc: The number of trains.
      - id: cars_per_train
        type: s4
        doc: The number of cars of each train.
      - id: trains
        type: train_record
        repeat: expr
        repeat-expr: num_trains
        doc: The trains.
      - id: track_color
        type: values::color
        repeat: expr
        repeat-expr: 8
        doc: Kept for the simulator.
      - size: 16
  train_record:
    seq:
      - id: flag
        type: values::flag8
        doc: Kept for the simulator.
      - size: 7
      - id: name
        type: values::text_if_any
        doc: Kept for the simulator.
      - id: color
        type: values::color
        repeat: expr
        repeat-expr: 4
        doc: Kept for the simulator.
  track_info:
    seq:
      - size: 16
      - id: author_comments
        type: values::text_if_any
        doc: What the author says of the track.
  bezier_curve:
    doc: |
      The centre line of the track, a chain of cubic Bezier spans. The span from a node to the next runs from one
      `Position` to the other; the first one's `ControlOut` and the second one's `ControlIn` are its inner control points.
    seq:
      - size: 16
      - id: node_count
        type: s4
        valid:
          min: 0
        doc: The number of nodes.
      - id: nodes
        type: bezier_node
        repeat: expr
        repeat-expr: node_count
        doc: The nodes, in track order.
      - size: 16
  bezier_node:
    doc: Mind the order of the flags, A, C, B.
    seq:
      - id: position
        type: values::vector3
        doc: The point that the curve passes through.
      - id: control_in
        type: values::vector3
        doc: Control point on the side of the node before.
      - id: control_out
        type: values::vector3
        doc: Control point on the side of the next node.
      - id: roll
        type: f4
        doc: Roll of the track at the node. Its sign turns with the direction of travel.
      - id: flag_a
        type: values::flag8
        doc: Kept for the simulator.
      - id: flag_c
        type: values::flag8
        doc: Kept for the simulator; Node Smoother clears it.
      - id: flag_b
        type: values::flag8
        doc: Kept for the simulator.
      - size: 17
  segment_list:
    seq:
      - id: segment_count
        type: s4
        valid:
          min: 0
        doc: The number of segments.
      - id: closed_circuit
        type: values::flag8
        doc: The track is a complete circuit. Its last node's span leads to node 0.
      - size: 16
      - id: segments
        type: track_segment
        repeat: expr
        repeat-expr: segment_count
        doc: The segments. Segment i describes the span that starts at node i.
      - size: 16
  track_segment:
    doc: A segment of any other type than 0 to 4 has neither a size of parameters nor parameters. It takes 33 bytes.
    seq:
      - id: segment_type
        type: s4
        enum: segment_type
        doc: The kind of segment.
      - id: custom_colors
        type: values::flag8
        doc: The segment has colours of its own.
      - id: color
        type: values::color
        repeat: expr
        repeat-expr: 3
        doc: Kept for the simulator.
      - id: tunnel
        type: values::flag8
        doc: The segment runs in a tunnel.
      - size: 15
      - id: parameters
        type:
          switch-on: segment_type
          cases:
            'segment_type::normal': normal_block
            'segment_type::station': station_block
            'segment_type::lift': lift_block
            'segment_type::transport': transport_block
            'segment_type::brake': brake_block
        doc: The size of the parameters and the parameters.
  normal_block:
    seq:
      - id: size
        type: s4
        doc: The number of bytes that follow, written as 0. It is passed over.
  station_block:
    seq:
      - id: size
        type: s4
        doc: The number of bytes that follow, written as 126. It is passed over.
      - id: station_value0
        type: f4
        doc: Kept for the simulator.
      - id: station_value1
        type: f4
        doc: Kept for the simulator.
      - id: station_value2
        type: f4
        doc: Kept for the simulator.
      - id: station_value3
        type: f4
        doc: Kept for the simulator.
      - id: station_byte0
        type: u1
        doc: Kept for the simulator.
      - id: station_byte1
        type: u1
        doc: Kept for the simulator.
      - id: station_flag1
        type: values::flag8
        doc: Kept for the simulator.
      - id: station_byte2
        type: u1
        doc: Kept for the simulator.
      - id: station_value4
        type: f4
        doc: Kept for the simulator; Backwards Rebuild changes it.
      - size: 4
      - id: station_flag3
        type: values::flag8
        doc: Kept for the simulator.
      - id: station_value8
        type: f4
        doc: Kept for the simulator.
      - size: 4
      - id: station_value9
        type: f4
        doc: Kept for the simulator.
      - id: station_value10
        type: f4
        doc: Kept for the simulator.
      - size: 4
      - id: station_flag2
        type: values::flag8
        doc: Kept for the simulator.
      - id: station_value5
        type: f4
        doc: Kept for the simulator; Backwards Rebuild changes it.
      - id: station_value6
        type: f4
        doc: Kept for the simulator; Backwards Rebuild changes it.
      - id: station_value7
        type: f4
        doc: Kept for the simulator.
      - size: 64
  lift_block:
    seq:
      - id: size
        type: s4
        doc: The number of bytes that follow, written as 36. It is passed over.
      - size: 3
      - id: lift_byte
        type: u1
        doc: Kept for the simulator.
      - id: lift_value0
        type: f4
        doc: Kept for the simulator; Backwards Rebuild changes it.
      - id: lift_value1
        type: f4
        doc: Kept for the simulator; Backwards Rebuild changes it.
      - id: lift_value2
        type: f4
        doc: Kept for the simulator; Backwards Rebuild changes it.
      - size: 4
      - id: lift_flag1
        type: values::flag8
        doc: Kept for the simulator.
      - id: lift_flag2
        type: values::flag8
        doc: Kept for the simulator.
      - size: 14
  transport_block:
    seq:
      - id: size
        type: s4
        doc: The number of bytes that follow, written as 28. It is passed over.
      - id: transport_value0
        type: f4
        doc: Kept for the simulator; Backwards Rebuild changes it.
      - id: transport_value1
        type: f4
        doc: Kept for the simulator; Backwards Rebuild changes it.
      - id: transport_value2
        type: f4
        doc: Kept for the simulator.
      - size: 3
      - id: transport_byte
        type: u1
        doc: Kept for the simulator.
      - id: transport_flag1
        type: values::flag8
        doc: Kept for the simulator.
      - id: transport_flag2
        type: values::flag8
        doc: Kept for the simulator.
      - size: 10
  brake_block:
    seq:
      - id: size
        type: s4
        doc: The number of bytes that follow, written as 50. It is passed over.
      - id: brake_value0
        type: f4
        doc: Kept for the simulator.
      - id: brake_value1
        type: f4
        doc: Kept for the simulator.
      - id: brake_value2
        type: f4
        doc: Kept for the simulator.
      - size: 4
      - id: brake_value6
        type: f4
        doc: Kept for the simulator.
      - id: brake_flag1
        type: values::flag8
        doc: Kept for the simulator.
      - id: brake_flag3
        type: values::flag8
        doc: Kept for the simulator.
      - id: brake_value3
        type: f4
        doc: Kept for the simulator; Backwards Rebuild changes it.
      - id: brake_value4
        type: f4
        doc: Kept for the simulator; Backwards Rebuild changes it.
      - id: brake_value5
        type: f4
        doc: Kept for the simulator.
      - id: brake_flag4
        type: values::flag8
        doc: Kept for the simulator.
      - id: brake_flag5
        type: values::flag8
        doc: Kept for the simulator.
      - id: brake_flag2
        type: values::flag8
        doc: Kept for the simulator.
      - size: 13
  support_header:
    -sub-chunks: [fund, rasc, fren, tube, catw]
    doc: It only holds the five chunks of the supports.
    seq:
      - size: 32
  fundamental_nodes:
    doc: The footers of the supports.
    seq:
      - size: 16
      - id: count
        type: s4
        valid:
          min: 0
        doc: The number of fundamental nodes.
      - id: items
        type: fundamental_node
        repeat: expr
        repeat-expr: count
        doc: The fundamental nodes.
      - size: 16
  fundamental_node:
    seq:
      - id: flag1
        type: values::flag8
        doc: Kept for the simulator.
      - id: value1
        type: f4
        doc: Kept for the simulator.
      - id: flag2
        type: values::flag8
        doc: Kept for the simulator.
      - id: value2
        type: f4
        doc: Kept for the simulator.
      - size: 6
      - id: position
        type: values::vector3
        doc: Where the footer stands.
      - size: 64
  pre_fab_supports:
    doc: The pre-fabricated supports.
    seq:
      - size: 16
      - id: node_count
        type: s4
        valid:
          min: 0
        doc: The number of nodes, as a rule that of the track's nodes.
      - id: nodes
        type: pre_fab_node
        repeat: expr
        repeat-expr: node_count
        doc: The supports of each node, in the order of the track's nodes.
      - size: 16
  pre_fab_node:
    seq:
      - id: support_count
        type: s4
        valid:
          min: 0
        doc: The number of supports at this node.
      - id: supports
        type: pre_fab_support
        repeat: expr
        repeat-expr: support_count
        doc: The supports.
  pre_fab_support:
    seq:
      - id: support_type
        type: s4
        enum: support_type
        doc: The kind of support.
      - id: value
        type: f4
        doc: Kept for the simulator.
      - size: 16
  free_nodes:
    doc: The free nodes of the supports.
    seq:
      - size: 16
      - id: count
        type: s4
        valid:
          min: 0
        doc: The number of free nodes.
      - id: items
        type: free_node
        repeat: expr
        repeat-expr: count
        doc: The free nodes.
      - size: 16
  free_node:
    seq:
      - id: position
        type: values::vector3
        doc: Where the node lies.
      - size: 16
  support_beams:
    doc: The beams of the supports.
    seq:
      - size: 16
      - id: count
        type: s4
        valid:
          min: 0
        doc: The number of beams.
      - id: items
        type: support_beam
        repeat: expr
        repeat-expr: count
        doc: The beams.
      - size: 16
  support_beam:
    doc: Mind the order at both ends, 0, 2, 1.
    seq:
      - id: end_a_0
        type: s4
        doc: Kept for the simulator.
      - id: end_a_2
        type: s4
        doc: Kept for the simulator.
      - id: end_a_1
        type: s4
        doc: Kept for the simulator.
      - size: 4
      - id: end_b_0
        type: s4
        doc: Kept for the simulator.
      - id: end_b_2
        type: s4
        doc: Kept for the simulator.
      - id: end_b_1
        type: s4
        doc: Kept for the simulator.
      - size: 4
      - id: beam_type
        type: s4
        enum: beam_type
        doc: The kind of beam.
      - id: value1
        type: s4
        doc: Kept for the simulator.
      - id: value2
        type: f4
        doc: Kept for the simulator.
      - size: 4
    instances:
      end_a:
        value: '[end_a_0, end_a_1, end_a_2]'
      end_b:
        value: '[end_b_0, end_b_1, end_b_2]'
  wood_catwalks:
    doc: The wooden catwalks.
    seq:
      - size: 16
      - id: count
        type: s4
        valid:
          min: 0
        doc: The number of catwalks.
      - id: items
        type: wood_catwalk
        repeat: expr
        repeat-expr: count
        doc: The catwalks.
      - size: 16
  wood_catwalk:
    seq:
      - id: value
        type: s4
        repeat: expr
        repeat-expr: 6
        doc: Kept for the simulator.
      - id: extra_bytes
        type: s4
        valid:
          min: 0
        doc: The number of bytes that follow.
      - size: extra_bytes
        doc: Written as 0.
  scenery:
    -sub-chunks: [scob]
    seq:
      - size: 16
      - id: tree_count
        type: s4
        valid:
          min: 0
        doc: The number of trees.
      - id: trees
        type: tree
        repeat: expr
        repeat-expr: tree_count
        doc: The trees.
      - size: 16
  tree:
    seq:
      - id: position
        type: values::vector3
        doc: Where the tree stands.
      - id: tree_type
        type: s4
        enum: tree_type
        doc: The kind of tree.
      - id: value
        type: f4
        doc: Kept for the simulator.
      - size: 44
  scenery_objects:
    doc: The 3D objects.
    seq:
      - size: 16
      - id: count
        type: s4
        valid:
          min: 0
        doc: The number of objects.
      - id: items
        type: scenery_object
        repeat: expr
        repeat-expr: count
        doc: The objects.
      - size: 16
  scenery_object:
    doc: The three numbers of `VectorD` stand behind `VectorA`, `VectorB` and `VectorC`.
    seq:
      - id: text2
        type: values::text
        doc: Kept for the simulator.
      - id: file_name
        type: values::text
        doc: The file name of the object's 3DS model.
      - id: vector_a
        type: values::vector3
        doc: Kept for the simulator.
      - id: vector_d_x
        type: f4
        doc: Kept for the simulator.
      - id: vector_b
        type: values::vector3
        doc: Kept for the simulator.
      - id: vector_d_y
        type: f4
        doc: Kept for the simulator.
      - id: vector_c
        type: values::vector3
        doc: Kept for the simulator.
      - id: vector_d_z
        type: f4
        doc: Kept for the simulator.
      - id: vector_e
        type: values::vector3
        doc: Kept for the simulator.
      - size: 20
    instances:
      vector_d:
        value: '[vector_d_x, vector_d_y, vector_d_z]'
  terrain:
    doc: The chunk is only there if the track has terrain.
    seq:
      - id: grid_size_x
        type: s4
        valid:
          min: 0
        doc: The number of grid points in the first direction.
      - id: grid_size_z
        type: s4
        valid:
          min: 0
        doc: The number of grid points in the second direction.
      - id: value1
        type: f4
        doc: Kept for the simulator.
      - id: value2
        type: f4
        doc: Kept for the simulator.
      - id: text1
        type: values::text
        doc: Kept for the simulator.
      - id: value3
        type: f4
        doc: Kept for the simulator.
      - id: text2
        type: values::text
        doc: Kept for the simulator.
      - id: value4
        type: f4
        doc: Kept for the simulator.
      - id: flag1
        type: values::flag8
        doc: Kept for the simulator.
      - size: 4
      - id: text3
        type: values::text
        doc: Kept for the simulator.
      - id: value5
        type: f4
        doc: Kept for the simulator.
      - id: byte1
        type: u1
        doc: Kept for the simulator.
      - size: 15
      - id: heights
        type: f4
        repeat: expr
        repeat-expr: grid_size_x * grid_size_z
        doc: The heights in metres, for the first z those of all x, then for the next z.
      - size: 16
  environment:
    seq:
      - size: 16
      - id: preferred_environment
        type: values::text_if_any
        doc: The name of the environment that the track asks for. Empty if it asks for none.
      - id: text2
        type: values::text_if_any
        doc: Kept for the simulator.
      - size: 16
