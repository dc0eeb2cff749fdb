#!/bin/sh
# make.sh FOLDER: writes the binary files into the folder, byte by byte. docs/binary.md tells what stands in them.
set -eu
folder="$1"

# A number of four bytes, the first one the highest.
number() {
    printf "$(printf '\\%03o\\%03o\\%03o\\%03o' $(($1 >> 24 & 255)) $(($1 >> 16 & 255)) $(($1 >> 8 & 255)) $(($1 & 255)))"
}

# A text of ASCII in UTF-16, behind its size.
text() {
    number $((2 * ${#1}))
    printf '%s' "$1" | sed 's/./_&/g' | tr _ '\000'
}

# The bytes of a value behind their size: the text of a number.
value() {
    number ${#1}
    printf '%s' "$1"
}

# What all plain representations of a report begin with, up to the length of the elements: 50 bytes, 0x32.
plain() {
    text IRGObject
    text ReportBase
    number 1 # tag: root
}

# What all compressed ones begin with, up to the size of the data: 64 bytes, 0x40.
compressed() {
    text IRGObjectQCompress
    text ReportBase
}

frequency=$((0xcf452ada)) # a tag, as the next one
frequency_value=$((0x8aff57b3))

# A good report with a frequency: 86 bytes, 0x56.
good() {
    plain
    number 32 # length: elements
    number $frequency
    number 24
    number $frequency_value
    number 16
    value 121500000.00
}

# An object of another class.
{
    text IRGObject
    text Frequency
    number 1
    number 24
    number $frequency_value
    number 16
    value 121500000.00
} >"$folder/NoReport.bin"

# A binary file that claims ten bytes more than it has.
{
    number 96
    good
} >"$folder/LengthMismatch.bin"

# A value whose element is a byte longer than the value.
{
    plain
    number 33
    number $frequency
    number 25
    number $frequency_value
    number 17
    value 121500000.00
    printf x
} >"$folder/LengthMismatch-value.bin"

# Elements of two gigabytes, of which there are none.
{
    plain
    number $((0x7fffffff))
} >"$folder/BinaryParsingException.bin"

# Compressed data that zlib cannot have written.
{
    compressed
    number 8 # size: data
    number 32 # their length when uncompressed
    printf 'junk'
} >"$folder/DamagedData.bin"

# A report, and something behind it.
{
    good
    printf 'the end'
} >"$folder/TrailingData.bin"

# The decimal comma.
{
    plain
    number 25
    number $frequency
    number 17
    number $frequency_value
    number 9
    value 121,5
} >"$folder/NotANumber.bin"

# The value twice.
{
    plain
    number 56
    number $frequency
    number 48
    number $frequency_value
    number 16
    value 121500000.00
    number $frequency_value
    number 16
    value 118000000.00
} >"$folder/RepeatedElement.bin"

# Zeros that claim to be a byte more than 256 MiB when uncompressed. Fewer of them could not be so many, since zlib makes a
# byte of no more than 1032.
{
    compressed
    number 260204
    number $((0x10000001))
    head -c 260200 /dev/zero
} >"$folder/TooLarge.bin"
