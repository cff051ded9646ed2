// The package in browsers: the module is inside this file, compressed, and ready when the import
// returns, which waits for it.

import { unpack } from "./unpack.js";

await unpack();

export * from "./index.js";
