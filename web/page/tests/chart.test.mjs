// Strokes, retrograde spans, families of lines, labels, the sample: what the charts are drawn from.
import assert from "node:assert/strict";
import { test } from "node:test";

import { position } from "../modules/src/index.mjs";
import { unpack } from "../modules/src/unpack.mjs";
import { cutOut, roundTicks, valueAt } from "../modules/page/src/chart/lines.mjs";
import { angleBetween, skyAt } from "../modules/page/src/prices/sky.mjs";
import { clockOf } from "../modules/page/src/clock.mjs";
import { yearSpan } from "../modules/page/src/year/span.mjs";
import { movedApart } from "../modules/page/src/chart/labels.mjs";
import { retrogradeSpans } from "../modules/page/src/chart/retrograde.mjs";
import { folded, plainStrokes, shortestWay, strokesOf } from "../modules/page/src/chart/strokes.mjs";
import { linesBetween, nearestLine, priceOf, suggestedUnit } from "../modules/page/src/prices/family.mjs";
import { sampleBars } from "../modules/page/src/prices/sample.mjs";

test("a longitude that passes 360 is two strokes, both ending at the edge", () => {
  const strokes = strokesOf([0, 1], [350, 20], 360);
  assert.deepEqual(strokes, [
    { x: [0, 1 / 3], y: [350, 360] },
    { x: [1 / 3, 1], y: [0, 20] },
  ]);
  assert.deepEqual(strokesOf([0, 1], [20, 350], 360), [
    { x: [0, 2 / 3], y: [20, 0] },
    { x: [2 / 3, 1], y: [360, 350] },
  ]);
});

test("modulo 30 a fast body passes several edges between two places", () => {
  const strokes = strokesOf([0, 1], [25, 95], 30);
  assert.deepEqual(strokes.map(({ y }) => y), [[25, 30], [0, 30], [0, 30], [0, 5]]);
  assert.deepEqual(strokes[1].x, [5 / 70, 35 / 70]);
});

test("no stroke ever jumps", () => {
  for (const modulo of [360, 90, 45, 30]) {
    const x = Array.from({ length: 400 }, (_, k) => k);
    const longitude = x.map((k) => folded(100 + 3 * k + 60 * Math.sin(k / 9), 360));
    let covered = 0;
    for (const { x: at, y } of strokesOf(x, longitude, modulo)) {
      for (let k = 1; k < y.length; ++k) {
        assert.ok(Math.abs(y[k] - y[k - 1]) <= 10 + 1e-9 && at[k] >= at[k - 1]);
        covered += at[k] - at[k - 1];
      }
      assert.ok(y.every((value) => value >= 0 && value <= modulo));
    }
    assert.ok(Math.abs(covered - 399) < 1e-9);
  }
});

test("a missing value ends a stroke; a turning point on the edge stays on its side", () => {
  assert.equal(strokesOf([0, 1, 2, 3, 4], [1, 2, NaN, 4, 5], 360).length, 2);
  assert.equal(plainStrokes([0, 1, 2, 3, 4], [1, 2, NaN, 4, 5]).length, 2);
  assert.deepEqual(strokesOf([], [], 360), []);
  assert.equal(shortestWay(359, 1), 2);
  assert.equal(folded(-1e-20, 360), 0);
});

test("retrograde spans from stations, open at the ends of the span", () => {
  assert.deepEqual(retrogradeSpans([10, 20], [-1, 1], 0, 100, false), [{ from: 10, to: 20, beginsHere: true, endsHere: true }]);
  assert.deepEqual(retrogradeSpans([10, 90], [1, -1], 0, 100, true), [
    { from: 0, to: 10, beginsHere: false, endsHere: true }, { from: 90, to: 100, beginsHere: true, endsHere: false },
  ]);
  assert.deepEqual(retrogradeSpans([], [], 0, 100, false), []);
  assert.deepEqual(retrogradeSpans([], [], 0, 100, true), [{ from: 0, to: 100, beginsHere: false, endsHere: false }]);
});

test("families: every price between has its line, and the lines are unit times spacing apart", () => {
  for (const isMirrored of [false, true]) {
    const family = { unit: 2.5, spacing: 30, isMirrored };
    assert.equal(priceOf(10, 3, family) - priceOf(10, 2, family), 75);
    for (const price of [-80, 0, 1, 990, 1234.5]) {
      for (const longitude of [0, 12.3, 29.99, 200, 359.9]) {
        const { k, price: there } = nearestLine(longitude, price, family);
        assert.ok(Math.abs(there - price) <= 37.5 + 1e-9);
        assert.equal(there, priceOf(longitude, k, family));
      }
    }
    // Every line that meets the prices is among those that are drawn.
    const { first, count } = linesBetween(1000, 1200, family);
    for (let longitude = 0; longitude < 30; longitude += 0.5) {
      for (let k = -100; k < 100; ++k) {
        const price = priceOf(longitude, k, family);
        assert.ok(price < 1000 || price > 1200 || (k >= first && k < first + count));
      }
    }
  }
  assert.equal(linesBetween(0, Infinity, { unit: 1, spacing: 30, isMirrored: false }).count, 0);
});

test("a suggested unit draws two to five lines through the prices", () => {
  for (const [low, high] of [[1000, 1300], [1.05, 1.12], [60000, 110000], [0.0001, 0.0002]]) {
    for (const spacing of [360, 90, 30, 15]) {
      const lines = (high - low) / (suggestedUnit(low, high, spacing) * spacing);
      assert.ok(lines >= 1.5 && lines <= 6, `${low} ${high} ${spacing}: ${lines}`);
    }
  }
  assert.equal(suggestedUnit(5, 5, 30), 1);
});

test("labels are moved apart, keep their order and stay inside", () => {
  const wanted = [50, 52, 51, 99, 3, 1];
  const places = movedApart(wanted, 14, 120);
  const order = [...places.keys()].sort((a, b) => places[a] - places[b]);
  assert.deepEqual(order, [5, 4, 0, 2, 1, 3]);
  for (let k = 1; k < order.length; ++k) {
    assert.ok(places[order[k]] - places[order[k - 1]] >= 14 - 1e-9);
  }
  assert.ok(places.every((place) => place >= 7 - 1e-9 && place <= 113 + 1e-9));
  assert.deepEqual(movedApart([20, 60], 14, 120), [20, 60]);
  assert.equal(movedApart(new Array(20).fill(5), 14, 100).length, 20);
  assert.deepEqual(movedApart([], 14, 100), []);
});

test("the sample is the same every time, on weekdays, and its bars are bars", () => {
  const bars = sampleBars();
  assert.deepEqual(bars, sampleBars());
  assert.notDeepEqual(bars.close, sampleBars(780, 8).close);
  bars.time.forEach((time, k) => {
    assert.ok(new Date(time).getUTCDay() % 6 !== 0 && (k === 0 || time > bars.time[k - 1]));
    assert.ok(bars.low[k] <= Math.min(bars.open[k], bars.close[k]) && bars.high[k] >= Math.max(bars.open[k], bars.close[k]));
    assert.ok(bars.low[k] > 0);
  });
});

await unpack();

test("a band ends where its span ends, between two points too", () => {
  const strokes = [{ x: [0, 2, 4], y: [0, 20, 0] }, { x: [4, 6], y: [100, 120] }];
  assert.deepEqual(cutOut(strokes, 1, 5), [{ x: [1, 2, 4], y: [10, 20, 0] }, { x: [4, 5], y: [100, 110] }]);
  assert.deepEqual(cutOut(strokes, 0.5, 1.5), [{ x: [0.5, 1.5], y: [5, 15] }]);
  assert.deepEqual(cutOut(strokes, 7, 9), []);
  assert.equal(valueAt(strokes, 3), 10);
  assert.equal(valueAt(strokes, 4), 100);
  assert.ok(Number.isNaN(valueAt(strokes, 6.5)));
});

test("ticks are round and inside", () => {
  assert.deepEqual(roundTicks(-24, 24, 6, "°").map(({ text }) => text), ["−20°", "−10°", "0°", "+10°", "+20°"]);
  assert.deepEqual(roundTicks(0, 1.02, 5, "").map(({ text }) => text), ["0.0", "0.5", "1.0"]);
  assert.deepEqual(roundTicks(1, 1, 5, ""), []);
});

test("a year's moments are its days, to the end of the years that are answered", () => {
  const utc = clockOf("utc");
  assert.equal(yearSpan({ from: 2024, years: 1 }, utc).times.length, 367);
  assert.equal(yearSpan({ from: 2026, years: 10 }, utc).step, 4);
  for (const from of [-1999, 3999]) {
    const { times } = yearSpan({ from, years: 10 }, utc);
    assert.ok(position("pluto", times.map((time) => time / 86400e3 + 2440587.5), "apparent_longitude").every(Number.isFinite));
    assert.ok(times.every((time, k) => k === 0 || time > times[k - 1]));
  }
});

test("a line has the library's values, and is interrupted where a body may have gone either way", () => {
  const days = Float64Array.from({ length: 60 }, (_, k) => Date.UTC(2020, 0, 1) + k * 86400e3);
  const months = Float64Array.from({ length: 60 }, (_, k) => Date.UTC(2020, k, 1));
  const { x, value } = skyAt(days).points("moon", "apparent_longitude", 10, 20);
  assert.deepEqual(x, [9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21]);
  x.forEach((slot, k) => assert.equal(value[k], position("moon", new Date(days[slot]))));
  assert.ok(skyAt(months).points("moon", "apparent_longitude", 0, 59).value.some(Number.isNaN));
  assert.ok(skyAt(months).points("sun", "apparent_longitude", 0, 59).value.every(Number.isFinite));
});

test("far out a line has a value at every second, fourth, eighth place and at the end", () => {
  const days = Float64Array.from({ length: 10000 }, (_, k) => Date.UTC(1990, 0, 1) + k * 86400e3);
  const sky = skyAt(days);
  const { x, value } = sky.points("mars", "apparent_longitude", 0, 9999);
  assert.ok(x.length <= 1300 && x[0] === 0 && x[x.length - 1] === 9999);
  assert.ok(value.every(Number.isFinite));
  const angle = angleBetween(sky.points("mars", "apparent_longitude", 0, 99), sky.points("sun", "apparent_longitude", 0, 99));
  angle.x.forEach((slot, k) => {
    const way = Math.abs(position("mars", new Date(days[slot])) - position("sun", new Date(days[slot])));
    assert.ok(Math.abs(angle.value[k] - Math.min(way, 360 - way)) < 1e-12);
  });
});
