// The package in Node: the module lies beside this file, and is ready when the import returns.

import { readFileSync } from "node:fs";
import { join } from "node:path";

import { open } from "./library.js";

open(new WebAssembly.Module(readFileSync(join(__dirname, "zenithor.wasm"))));

export * from "./index.js";
