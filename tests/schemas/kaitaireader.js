// Has the reader that report.ksy gives for JavaScript take apart what written_objects has written, and compares:
//
//     kaitaireader.js WRITTEN EXCEPTIONS COUNT
//
// As kaitaireader.py, which tells what these are. The module Report and the package kaitai-struct are found by NODE_PATH.
"use strict";

const fs = require("fs");
const path = require("path");
const readline = require("readline");
const KaitaiStream = require("kaitai-struct/KaitaiStream");
const Report = require("Report").Report;

const Tag = Report.Tag;
const NUMBER = /^([+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?|nan|[+-]?inf)$/;
const MODEL_VERSION = 1.0;

// --- Values, as written_objects gives them

/** A text that is no number counts as 0. */
function numberOfText(text) {
    const trimmed = (text ?? "").trim();
    if (!NUMBER.test(trimmed))
        return 0;
    return Number(trimmed.replace("inf", "Infinity"));
}

function numberValue(number) {
    if (Number.isNaN(number))
        return "nan";
    const bytes = Buffer.alloc(8);
    bytes.writeDoubleBE(number);
    return bytes.toString("hex");
}

/** As the library decodes it: without a byte order mark, and up to the first NUL. */
function textOfUtf8(text) {
    if (text.isNull)
        return null;
    const decoded = Buffer.from(text.bytes).toString("utf8").replace(/^\ufeff/, "").split("\0")[0];
    return Buffer.from(decoded, "utf16le").swap16().toString("hex");
}

function textOfUtf16(text) {
    return text.isNull ? null : Buffer.from(text.units).toString("hex");
}

// --- Tagged elements, read as classes do

function last(elements, tag) {
    return elements.items.filter((item) => item.tag === tag).at(-1)?.content;
}

function taggedNumber(elements, tag) {
    const content = last(elements, tag);
    return content === undefined ? null : numberValue(numberOfText(content.text));
}

function taggedBounds(elements) {
    return {
        value: taggedNumber(elements, Tag.VALUE),
        min: taggedNumber(elements, Tag.MIN),
        max: taggedNumber(elements, Tag.MAX),
    };
}

function taggedFrequency(elements) {
    return { ...taggedBounds(elements), use: last(elements, Tag.USE)?.isOn ?? null };
}

function taggedCoordinate(elements) {
    return {
        longitude: taggedNumber(elements, Tag.LONGITUDE),
        latitude: taggedNumber(elements, Tag.LATITUDE),
    };
}

function taggedArea(elements) {
    let area = { version: null, name: null, coordinates: [], scriptId: null };
    for (const { tag, content } of elements.items) {
        if (tag === Tag.VERSION) {
            const version = textOfUtf16(content);
            // Data of an older version begin with an empty area.
            if (numberOfText(content.text) < MODEL_VERSION)
                area = { name: null, coordinates: [], scriptId: null };
            area.version = version;
        } else if (tag === Tag.NAME) {
            area.name = textOfUtf8(content);
        } else if (tag === Tag.SCRIPT_ID) {
            area.scriptId = textOfUtf8(content);
        } else if (tag === Tag.COORDINATES) {
            area.coordinates.push(...content.items.map((item) => taggedCoordinate(item.elements)));
        }
    }
    return area;
}

function taggedReport(elements) {
    const read = (tag, values) => {
        const content = last(elements, tag);
        return content === undefined ? null : values(content);
    };
    return {
        frequency: read(Tag.FREQUENCY, taggedFrequency),
        ifBandwidth: read(Tag.IF_BANDWIDTH, taggedBounds),
        area: read(Tag.AREA, taggedArea),
    };
}

const TAGGED = {
    ReportBase: taggedReport,
    Frequency: taggedFrequency,
    IFBandwidth: taggedBounds,
    Area: taggedArea,
    Coordinate: taggedCoordinate,
};

function readRepresentation(name, data) {
    let body = new Report(new KaitaiStream(data)).representation.body;
    if (body instanceof Report.CompressedBody)
        body = body.packed.body;
    return body === undefined ? null : TAGGED[name](body.elements);
}

// --- The raw form

function rawBounds(raw) {
    return {
        value: raw.isValueSet ? numberValue(raw.value) : null,
        min: raw.min === undefined ? null : numberValue(raw.min),
        max: raw.max === undefined ? null : numberValue(raw.max),
    };
}

function rawFrequency(raw) {
    return { ...rawBounds(raw), use: raw.use?.isOn ?? null };
}

function rawCoordinate(raw) {
    return {
        longitude: raw.isLongitudeSet ? numberValue(raw.longitude) : null,
        latitude: raw.isLatitudeSet ? numberValue(raw.latitude) : null,
    };
}

function rawArea(raw) {
    return {
        version: textOfUtf16(raw.version),
        name: textOfUtf16(raw.name),
        coordinates: raw.coordinates.map(rawCoordinate),
        scriptId: raw.scriptId === undefined ? null : textOfUtf16(raw.scriptId),
    };
}

function rawReport(raw) {
    return {
        frequency: raw.frequency === undefined ? null : rawFrequency(raw.frequency),
        ifBandwidth: raw.ifBandwidth === undefined ? null : rawBounds(raw.ifBandwidth),
        area: raw.area === undefined ? null : rawArea(raw.area),
    };
}

const RAW = {
    ReportBase: [Report.RawReportBase, rawReport],
    Frequency: [Report.RawFrequency, rawFrequency],
    IFBandwidth: [Report.RawIfBandwidth, rawBounds],
    Area: [Report.RawArea, rawArea],
    Coordinate: [Report.RawCoordinate, rawCoordinate],
};

function readRaw(name, data) {
    const [Reader, values] = RAW[name];
    return values(new Reader(new KaitaiStream(data)));
}

// --- Comparison

/** Whether the description refuses the data, rather than the test goes wrong. */
function isRefusal(error) {
    return error instanceof KaitaiStream.EOFError || error instanceof RangeError ||
        String(error.code).startsWith("Z_") || error.code === "ERR_BUFFER_TOO_LARGE";
}

/** Null where the reader refuses the data. */
function valuesOf(line) {
    const data = new Uint8Array(Buffer.from(line.bytes, "base64")).buffer;
    try {
        return line.form === "raw" ? readRaw(line.class, data) : readRepresentation(line.class, data);
    } catch (error) {
        if (isRefusal(error))
            return null;
        throw error;
    }
}

/** The keys in one order. */
function sorted(value) {
    if (Array.isArray(value))
        return value.map(sorted);
    if (value === null || typeof value !== "object")
        return value;
    return Object.fromEntries(Object.keys(value).sort().map((key) => [key, sorted(value[key])]));
}

async function main() {
    const [written, exceptions, count] = process.argv.slice(2);
    const listed = new Set(fs.readFileSync(exceptions, "utf8").split("\n")
        .map((line) => line.split("#")[0].trim()).filter((line) => line));
    const unlike = new Set();
    const counts = {};
    const input = fs.createReadStream(path.join(written, "binary.jsonl"));
    for await (const text of readline.createInterface({ input })) {
        const line = JSON.parse(text);
        counts[line.form] = (counts[line.form] ?? 0) + 1;
        if (JSON.stringify(sorted(valuesOf(line))) !== JSON.stringify(sorted(line.values)))
            unlike.add(line.name + (line.name.startsWith("generated") ? ` ${line.form}` : ""));
    }
    console.log(counts);
    const surprises = [...unlike].filter((name) => !listed.has(name));
    const outdated = [...listed].filter((name) => !unlike.has(name));
    surprises.forEach((name) => console.log(`read otherwise than by the library: ${name}`));
    outdated.forEach((name) => console.log(`read as by the library, but listed: ${name}`));
    const isComplete = Object.keys(counts).length === 4 && Math.min(...Object.values(counts)) >= Number(count);
    process.exit(surprises.length > 0 || outdated.length > 0 || !isComplete ? 1 : 0);
}

main();
