// The golden answers, read: tests/golden/README.md says where they come from and how to read them.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";

export const repository = process.env.ZENITHOR_REPOSITORY;

function withTolerance(tolerances, line) {
  const [, names, absolute, relative] =
    /^# tolerance ([^:]+): ([0-9.e+-]+)(?: or ([0-9.e+-]+) of the value)?$/.exec(line);
  const limit = { absolute: Number(absolute), relative: Number(relative ?? 0) };
  const named = Object.fromEntries(names.split(" ").map((name) => [name, limit]));
  return "all" in named ? named : { ...tolerances, ...named };
}

/** The cases of a file: their cells by column, and how far an answer may be off. */
export function readGolden(name) {
  const cases = [];
  let expected = 0;
  let tolerances = {};
  let names = null;
  for (const line of readFileSync(`${repository}/tests/golden/${name}`, "utf8").split("\n")) {
    if (line.startsWith("# cases ")) {
      expected = Number(line.slice("# cases ".length));
    } else if (line.startsWith("# tolerance ")) {
      tolerances = withTolerance(tolerances, line);
    } else if (line !== "" && !line.startsWith("#")) {
      const cells = line.split("\t");
      if (names === null) {
        names = cells.map((cell) => cell.split(" [")[0]);
      } else {
        assert.equal(cells.length, names.length);
        cases.push({ cell: Object.fromEntries(cells.map((cell, k) => [names[k], cell])), tolerances });
      }
    }
  }
  assert.equal(cases.length, expected);
  return cases;
}

export function allowed(tolerances, name, value) {
  const { absolute, relative } = tolerances[name] ?? tolerances.all;
  return Math.max(absolute, relative * Math.abs(value));
}
