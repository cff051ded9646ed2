// The package itself: both kinds of module, the one for browsers, its numbers, its types, its start.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { readFileSync, readdirSync } from "node:fs";
import { createRequire } from "node:module";
import { dirname, join } from "node:path";
import { test } from "node:test";
import { fileURLToPath, pathToFileURL } from "node:url";

import * as imported from "zenithor";

import { repository } from "./golden.mjs";

const here = dirname(fileURLToPath(import.meta.url));
const require = createRequire(import.meta.url);
const folder = dirname(require.resolve("zenithor/package.json"));
const header = readFileSync(`${repository}/include/zenithor/values.h`, "utf8");

test("an ES module and a CommonJS module, which are one", () => {
  const required = require("zenithor");
  assert.deepEqual(Object.keys(imported).sort(), Object.keys(required).sort());
  for (const name of Object.keys(required)) {
    assert.equal(imported[name], required[name]);
  }
});

test("the module for browsers gives the same bits", async () => {
  const browser = await import(pathToFileURL(join(folder, "browser.mjs")));
  assert.deepEqual(Object.keys(browser).sort(), Object.keys(imported).sort());
  assert.equal(browser.dataFingerprint, imported.dataFingerprint);
  const days = Float64Array.from({ length: 50 }, (_, k) => 2451545 + 97.3 * k);
  const bodies = Object.keys(imported.Body);
  const fields = ["helio_longitude", "declination", "longitude_motion"];
  assert.deepEqual(browser.position(bodies, days, fields), imported.position(bodies, days, fields));
  assert.doesNotMatch(readFileSync(join(folder, "browser.mjs"), "utf8"), /\bfrom\s*["']|require\(/);
});

test("version and data are the library's", () => {
  const version = /ZENITHOR_VALUES_VERSION_STRING "(.*)"/.exec(header)[1];
  assert.equal(imported.version, version);
  assert.equal(require("zenithor/package.json").version, version);
  assert.match(imported.dataFingerprint, /^[0-9a-f]{64}$/);
});

test("bodies, fields and kinds have the header's names and numbers", () => {
  for (const [prefix, codes] of [["BODY", imported.Body], ["FIELD", imported.Field], ["KIND", imported.EventKind]]) {
    const ofHeader = Object.fromEntries(
      Array.from(header.matchAll(new RegExp(`ZENITHOR_${prefix}_([A-Z_]+) = (\\d+)`, "g")))
        .filter(([, name]) => name !== "COUNT")
        .map(([, name, number]) => [name.toLowerCase(), Number(number)]));
    assert.deepEqual({ ...codes }, ofHeader);
  }
});

test("what is in the package, and nothing it depends on", () => {
  assert.deepEqual(readdirSync(folder).sort(), ["LICENSE", "README.md", "browser.mjs", "node.cjs", "node.mjs",
    "package.json", "types", "zenithor.wasm"]);
  const { dependencies, peerDependencies } = require("zenithor/package.json");
  assert.equal(dependencies ?? peerDependencies, undefined);
  const module = new WebAssembly.Module(readFileSync(join(folder, "zenithor.wasm")));
  assert.deepEqual(WebAssembly.Module.imports(module), []);
});

test("the types say it strictly, for both kinds of module", () => {
  for (const source of ["types.mts", "types.cts"]) {
    execFileSync("tsc", ["--strict", "--noEmit", "--target", "es2022", "--module", "node16",
      "--moduleResolution", "node16", join(here, source)], { cwd: here, encoding: "utf8" });
  }
});

// Processor time of a new process, less that of one that does nothing; the least of several, because
// others use the machine.
test("import and first value take less than 100 ms", (t) => {
  const time = (program) => {
    const script = `${program}; const { user, system } = process.cpuUsage(); console.log(user + system)`;
    return Number(execFileSync(process.execPath, ["-e", script], { cwd: here })) / 1000;
  };
  const least = (program) => Math.min(...Array.from({ length: 5 }, () => time(program)));
  const taken = least('require("zenithor").position("mars", 2451545)') - least("0");
  t.diagnostic(`import and first value: ${taken.toFixed(1)} ms of processor time`);
  assert.ok(taken < 100, `${taken} ms`);
});
