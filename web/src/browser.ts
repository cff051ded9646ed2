// The package in browsers: the module is inside this file, compressed, and ready when the import
// returns, which waits for it.

import { open } from "./library.js";
import packed from "./zenithor.wasm.gz";

// Of all browsers that have the vector instructions; TypeScript's own declaration came late.
type Unpacker = ReadableWritablePair<Uint8Array, Uint8Array>;
const browser = globalThis as unknown as { DecompressionStream: new (format: "gzip") => Unpacker };

const unpacked = new Blob([packed]).stream().pipeThrough(new browser.DecompressionStream("gzip"));
open(await WebAssembly.compile(await new Response(unpacked).arrayBuffer()));

export * from "./index.js";
