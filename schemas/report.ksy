meta:
  id: report
  title: Reports of radio monitoring, binary forms
  application: reportgenerator
  endian: be
  ks-version: "0.10"

doc: |
  The binary forms of ReportBase, Frequency, IFBandwidth, Area and Coordinate.

  The top is a representation, plain or compressed, or a binary file, which is a byte array that holds a representation.
  The body of a representation consists of tagged elements, which are the same for every class.

  The raw form says nothing of itself, so that who reads it knows the class: raw_report_base, raw_frequency, raw_if_bandwidth,
  raw_area, raw_coordinate.

  Lengths of elements are signed; a negative one is refused here as one that is too large.

seq:
  - id: file_size
    type: u4
    if: is_binary_file
    doc: Size of the byte array, which is the rest of the file.
  - id: representation
    type: representation

instances:
  second_word:
    pos: 4
    type: u4
  is_binary_file:
    value: second_word != 0x00490052
    doc: A representation begins with the size of its marker, and then "IR"; a binary file with two sizes.

enums:
  tag:
    0xcf452ada: frequency
    0xca8f8c7c: if_bandwidth
    0xa838be37: area
    0x4ecb4e58: min
    0x6e8dd7f5: max
    0xaa39c731: use
    0x8aff57b3: value
    0xccfedfa1: version
    0x8c9fbca8: name
    0x6f69083f: coordinates
    0xc22211a9: script_id
    0x247e7491: longitude
    0xcb2f4b76: latitude

types:

  # --- Representations

  representation:
    seq:
      - id: marker
        type: utf16_text
      - id: object_name
        type: utf16_text
        doc: Of the class that has written it, as a rule. Readers don't compare it.
      - id: body
        doc: Missing where the marker is another one.
        type:
          switch-on: marker.text
          cases:
            '"IRGObject"': body
            '"IRGObjectQCompress"': compressed_body

  body:
    seq:
      - id: root_tag
        type: u4
        doc: Written as 1, and not compared when read.
      - id: len_elements
        type: u4
      - id: elements
        type: elements
        size: len_elements

  compressed_body:
    seq:
      - id: len_packed
        type: u4
      - id: packed
        type: packed_body
        size: len_packed

  packed_body:
    seq:
      - id: len_body
        type: u4
        doc: Of the body when unpacked, as the writer tells it.
      - id: body
        type: body
        size-eos: true
        process: zlib

  # --- Tagged elements

  elements:
    seq:
      - id: items
        type: element
        repeat: eos

  element:
    doc: |
      Elements come in any order. Of those that come more than once the last one counts, but for coordinates, which are
      appended. Unknown ones are to be passed over.
    seq:
      - id: tag
        type: u4
        enum: tag
      - id: len_content
        type: u4
      - id: content
        size: len_content
        type:
          switch-on: tag
          cases:
            'tag::frequency': elements
            'tag::if_bandwidth': elements
            'tag::area': elements
            'tag::min': number
            'tag::max': number
            'tag::use': switch
            'tag::value': number
            'tag::version': utf16_text
            'tag::name': utf8_text
            'tag::coordinates': coordinates
            'tag::script_id': utf8_text
            'tag::longitude': number
            'tag::latitude': number

  coordinates:
    seq:
      - id: num_items
        type: u4
      - id: items
        type: coordinate
        repeat: expr
        repeat-expr: num_items

  coordinate:
    seq:
      - id: len_elements
        type: u4
      - id: elements
        type: elements
        size: len_elements

  # --- The raw form

  raw_report_base:
    seq:
      - id: flags
        type: u1
      - id: frequency
        type: raw_frequency
        if: flags & 1 != 0
      - id: if_bandwidth
        type: raw_if_bandwidth
        if: flags & 2 != 0
      - id: area
        type: raw_area
        if: flags & 4 != 0

  raw_frequency:
    seq:
      - id: flags
        type: u1
      - id: value
        type: f8
        doc: Set if bit 0 of the flags is.
      - id: min
        type: f8
        if: flags & 2 != 0
      - id: max
        type: f8
        if: flags & 4 != 0
      - id: use
        type: switch
        if: flags & 8 != 0
    instances:
      is_value_set:
        value: flags & 1 != 0

  raw_if_bandwidth:
    seq:
      - id: flags
        type: u1
      - id: value
        type: f8
        doc: Set if bit 0 of the flags is.
      - id: min
        type: f8
        if: flags & 2 != 0
      - id: max
        type: f8
        if: flags & 4 != 0
    instances:
      is_value_set:
        value: flags & 1 != 0

  raw_area:
    seq:
      - id: flags
        type: u1
        doc: Name, coordinates and script identifier, from bit 0. The first two stand here whether they are set or not.
      - id: version
        type: utf16_text
      - id: name
        type: utf16_text
      - id: num_coordinates
        type: u4
      - id: coordinates
        type: raw_coordinate
        repeat: expr
        repeat-expr: num_coordinates
      - id: script_id
        type: utf16_text
        if: flags & 4 != 0

  raw_coordinate:
    seq:
      - id: flags
        type: u1
      - id: longitude
        type: f8
      - id: latitude
        type: f8
    instances:
      is_longitude_set:
        value: flags & 1 != 0
      is_latitude_set:
        value: flags & 2 != 0

  # --- Values

  number:
    doc: A number as the text of the XML form, with two decimals, or six of a longitude or latitude.
    seq:
      - id: len_text
        type: u4
      - id: text
        type: str
        size: len_text
        encoding: UTF-8
        if: len_text != 0xffff_ffff

  switch:
    seq:
      - id: byte
        type: u1
    instances:
      is_on:
        value: byte != 0

  utf8_text:
    seq:
      - id: len_bytes
        type: u4
      - id: bytes
        size: len_bytes
        if: not is_null
    instances:
      is_null:
        value: len_bytes == 0xffff_ffff
      text:
        value: bytes.to_s("UTF-8")
        if: not is_null

  utf16_text:
    seq:
      - id: len_units
        type: u4
        doc: In bytes.
      - id: units
        size: len_units
        if: not is_null
    instances:
      is_null:
        value: len_units == 0xffff_ffff
      text:
        value: units.to_s("UTF-16BE")
        if: not is_null
