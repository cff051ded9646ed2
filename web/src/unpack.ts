// The module inside a page or package, compressed: taken into use.

import { open } from "./library.js";
import packed from "./zenithor.wasm.gz";

// Of all browsers that have the vector instructions; TypeScript's own declaration came late.
type Unpacker = ReadableWritablePair<Uint8Array, Uint8Array>;
const browser = globalThis as unknown as { DecompressionStream: new (format: "gzip") => Unpacker };

/** Makes the library ready; every other function needs that. */
export async function unpack(): Promise<void> {
  const unpacked = new Blob([packed]).stream().pipeThrough(new browser.DecompressionStream("gzip"));
  open(await WebAssembly.compile(await new Response(unpacked).arrayBuffer()));
}
