// The examples of the guide: every line that ends in a comment is evaluated and gives what stands
// there. "..." at its end stands for further digits.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";

import * as zenithor from "zenithor";

import { repository } from "./golden.mjs";

const asText = (value) => JSON.stringify(ArrayBuffer.isView(value) ? Array.from(value) : value);

for (const guide of ["docs/javascript.md", "web/README.md"]) {
  test(`the examples of ${guide}`, () => {
    const blocks = Array.from(readFileSync(`${repository}/${guide}`, "utf8").matchAll(/^```js\n(.*?)^```/gms));
    let compared = 0;
    for (const [, block] of blocks) {
      const body = block.replace(/^import .*$/gm, "").replace(/^(?!const )(.*);\s+\/\/ (.*)$/gm,
        (_, expression, expected) => `compare(${expression}, ${JSON.stringify(expected)});`);
      const compare = (value, expected) => {
        ++compared;
        if (expected.endsWith("...")) {
          assert.ok(asText(value).startsWith(expected.slice(0, -3)), `${asText(value)} is not ${expected}`);
        } else {
          assert.equal(asText(value), expected);
        }
      };
      new Function("compare", ...Object.keys(zenithor), body)(compare, ...Object.values(zenithor));
    }
    assert.ok(compared >= 2, `${compared}`);
  });
}
