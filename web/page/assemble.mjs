// Puts page, style and script into one file whose policy lets exactly these run.
//   node assemble.mjs INDEX STYLE SCRIPT PAGE

import { createHash } from "node:crypto";
import { readFileSync, writeFileSync } from "node:fs";

const [index, style, script, page] = process.argv.slice(2);
const text = (file) => readFileSync(file, "utf8").trim();
const parts = { STYLE: text(style), SCRIPT: text(script) };
if (/<\/script|<!--/i.test(parts.SCRIPT) || /<\/style/i.test(parts.STYLE)) {
  throw new Error("style or script would end inside the page");
}
const hash = (content) => `'sha256-${createHash("sha256").update(content).digest("base64")}'`;
parts.POLICY = [
  "default-src 'none'",
  `script-src ${hash(parts.SCRIPT)} 'wasm-unsafe-eval'`,
  `style-src ${hash(parts.STYLE)}`,
  "img-src data: blob:",
  "connect-src 'none'",
  "base-uri 'none'",
  "form-action 'none'",
].join("; ");
writeFileSync(page, text(index).replace(/@(STYLE|SCRIPT|POLICY)@/g, (_, name) => parts[name]) + "\n");
