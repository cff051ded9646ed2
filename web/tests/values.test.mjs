// Moments, arrays, missing values, and errors that say which element.
import assert from "node:assert/strict";
import { test } from "node:test";

import { Body, Field, hasField, julianDay, kindName, position, unit, unixTime } from "zenithor";

const NAN = Number.NaN;
const bits = (values) => Array.from(new BigUint64Array(Float64Array.from(values).buffer));

test("one value is a number, and the same in an array to the bit", () => {
  const days = Float64Array.from({ length: 101 }, (_, k) => 2451545 + 0.37 * k);
  const values = position("mars", days);
  assert.ok(values instanceof Float64Array);
  assert.deepEqual(bits(values), bits(Array.from(days, (day) => position("mars", day))));
});

test("every body and field at every moment, moments outermost", () => {
  const bodies = ["sun", "moon", "pluto"];
  const fields = ["apparent_longitude", "declination"];
  const days = [2451545, 2460000.25];
  const values = position(bodies, days, fields);
  const single = days.flatMap((day) =>
    bodies.flatMap((body) => fields.map((field) => position(body, day, field))));
  assert.deepEqual(bits(values), bits(single));
});

test("more moments than a call of the module has room for", () => {
  const days = Float64Array.from({ length: 70000 }, (_, k) => 2400000.5 + 1.7 * k);
  const values = position("moon", days, "centuries");
  assert.ok(Number.isNaN(values[0]));
  const longitudes = position(["sun", "earth"], days, ["year", "month"]);
  assert.equal(longitudes.length, 4 * days.length);
  for (const k of [0, 16383, 16384, 32767, 32768, 69999]) {
    assert.equal(longitudes[4 * k], position("sun", days[k], "year"));
    assert.equal(longitudes[4 * k + 3], position("earth", days[k], "month"));
  }
});

test("an array of the caller's takes the values", () => {
  const out = new Float64Array(2);
  assert.equal(position("venus", [2451545, 2451546], "elongation", { out }), out);
  assert.deepEqual(Array.from(out), Array.from(position("venus", [2451545, 2451546], "elongation")));
  assert.throws(() => position("venus", [2451545], "elongation", { out }), /^RangeError: out: .* 1 numbers/);
});

test("names in any case, or numbers", () => {
  const value = position("mars", 2451545, "apparent_longitude");
  assert.equal(position("MARS", 2451545, "Apparent Longitude"), value);
  assert.equal(position(Body.mars, 2451545, Field.apparent_longitude), value);
});

test("what is missing is NaN, element by element", () => {
  const times = [2451545, NAN, null, new Date(NAN), Infinity, "2000-01-01T12:00Z"];
  const values = position("sun", times);
  assert.deepEqual(Array.from(values, Number.isNaN), [false, true, true, true, true, false]);
  assert.ok(Number.isNaN(position("earth", 2451545, "declination")));
  assert.ok(!hasField("earth", "declination") && hasField("mars", "declination"));
  assert.equal(unit("earth", "declination"), null);
});

test("units and names", () => {
  assert.equal(unit("mars", "geo_distance"), "au");
  assert.equal(unit("moon", "geo_distance"), "km");
  assert.equal(unit("sun", "right_ascension"), "h");
  assert.equal(kindName("solar_total"), "total solar eclipse");
});

test("clock times are UTC, numbers dynamical time", () => {
  const noon = Date.UTC(2026, 10, 21, 6, 30);
  const day = julianDay(new Date(noon));
  assert.ok(Math.abs(day - (2461365.5 + 6.5 / 24 + 69.184 / 86400)) < 1e-9);
  for (const text of ["2026-11-21T06:30", "2026-11-21 06:30:00.000", "2026-11-21T06:30Z",
    "2026-11-21T07:30+01:00", "2026-11-21T00:30-0600"]) {
    assert.equal(julianDay(text), day, text);
  }
  assert.equal(julianDay("2000-01-01T11:58:55.816"), 2451545);
  assert.equal(julianDay("2000-01-01T12:00", { scale: "tt" }), 2451545);
  assert.ok(julianDay(2451545, { scale: "utc" }) > 2451545);
  assert.equal(unixTime(day), noon);
  assert.deepEqual(Array.from(unixTime([day, NAN])), [noon, NAN]);
  assert.equal(julianDay("-0001-03-01", { scale: "tt" }), 1721119.5 - 366);
  assert.equal(julianDay("2026"), julianDay("2026-01-01T00:00:00"));
});

test("errors say which element, and what there is", () => {
  const cases = [
    [() => position("vulcan", 2451545), /^RangeError: bodies: there is no body "vulcan"; there are sun, mercury/],
    [() => position(["sun", 11], 2451545), /^RangeError: bodies\[1\]: there is no body 11;/],
    [() => position("sun", 2451545, ["declination", "colour"]), /^RangeError: fields\[1\]: there is no field "colour"/],
    [() => position("toString", 2451545), /^RangeError: bodies: there is no body "toString"/],
    [() => position("sun", ["2026", "yesterday"]), /^RangeError: times\[1\]: "yesterday" is not a date or time; write/],
    [() => position("sun", ["2026-02-30"]), /^RangeError: times\[0\]: "2026-02-30" is not a date/],
    [() => position("sun", [undefined]), /^RangeError: times\[0\]: undefined is not a moment/],
    [() => position("sun", 2451545, "declination", { scale: "ut1" }), /^RangeError: scale: "ut1" is neither "tt"/],
  ];
  for (const [call, message] of cases) {
    assert.throws(call, (error) => message.test(String(error)), String(message));
  }
});
