// The page around the views: it opens from a file, says what it is, follows links, asks nobody.

import assert from "node:assert/strict";
import { readFileSync, statSync } from "node:fs";
import { test } from "node:test";
import { LIMIT, useBrowser, violations, withPage } from "./harness.mjs";

useBrowser();
const file = new URL("../zenithor-almanac.html", import.meta.url);

test("OneFileBelow2500kB", () => {
  assert.ok(statSync(file).size < 2.5e6);
  const text = readFileSync(file, "utf8");
  assert.match(text, /default-src 'none'; script-src 'sha256-[^']*' 'wasm-unsafe-eval'; style-src 'sha256-[^']*'; img-src data: blob:; connect-src 'none'/);
});

test("EveryViewOpensFromItsLink", LIMIT, async () => {
  for (const [view, title] of [["sky", "Sky"], ["year", "Year"], ["day", "Day"], ["prices", "Prices"]]) {
    await withPage(`#${view}`, {}, async (page) => {
      assert.equal(await page.title(), `${title} – Zenithor almanac`);
      assert.equal(await page.locator("nav a[aria-current]").textContent(), title);
      assert.deepEqual(await violations(page), []);
    });
  }
});
