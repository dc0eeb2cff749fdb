// compile.js DESCRIPTION LANGUAGE FOLDER: has the compiler of Kaitai Struct make a reader.
"use strict";

const fs = require("fs");
const path = require("path");
const compiler = require("kaitai-struct-compiler");
const yaml = require("js-yaml");

const [description, language, folder] = process.argv.slice(2);
const schema = yaml.load(fs.readFileSync(description, "utf8"));

compiler.compile(language, schema, null, false).then((files) => {
    fs.mkdirSync(folder, { recursive: true });
    for (const [name, text] of Object.entries(files))
        fs.writeFileSync(path.join(folder, name), text);
}).catch((error) => {
    console.error(String(error));
    process.exit(1);
});
