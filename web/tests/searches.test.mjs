// Searches: that they find what is there, hold together, and say what is wrong.
import assert from "node:assert/strict";
import { test } from "node:test";

import { aspects, crossings, events, ingresses, position, rise, stations } from "zenithor";

const iso = (times) => Array.from(times, (time) => new Date(time).toISOString());

test("the eclipses of 2026", () => {
  const found = events("2026", "2027", ["solar_eclipses", "lunar_eclipses"]);
  assert.deepEqual(found.kind, ["solar_annular", "lunar_total", "solar_total", "lunar_partial"]);
  assert.deepEqual(iso(found.time).map((time) => time.slice(0, 10)),
    ["2026-02-17", "2026-03-03", "2026-08-12", "2026-08-28"]);
});

test("a span is its parts", () => {
  const whole = events("1900", "2100");
  const parts = [events("1900", "1987-06-05T04:03"), events("1987-06-05T04:03", "2100")];
  assert.ok(whole.kind.length > 10000);
  assert.deepEqual(whole.kind, parts.flatMap(({ kind }) => kind));
  assert.deepEqual(Array.from(whole.julianDay), parts.flatMap(({ julianDay }) => Array.from(julianDay)));
});

test("more moments than there is room for are all found", () => {
  const found = crossings("sun", "minute", Array.from({ length: 60 }, (_, k) => k), 2461041.5, 2461101.5);
  assert.equal(found.julianDay.length, 60 * 1440);
  const many = crossings("moon", "second", 0, 2461041.5, 2461041.5 + 100);
  assert.equal(many.julianDay.length, 100 * 1440);
  assert.ok(many.julianDay.every((day, k) => k === 0 || day > many.julianDay[k - 1]));
});

test("at a crossing the field has the value, in the direction that is told", () => {
  const found = crossings(["moon", "mars"], "declination", [0, 10], "2026", "2027");
  assert.ok(new Set(found.body).size === 2);
  found.julianDay.forEach((day, k) => {
    const [before, at, after] = position(found.body[k], [day - 1e-3, day, day + 1e-3], "declination");
    assert.ok(Math.abs(at - found.target[k]) < 1e-5);
    assert.equal(Math.sign(after - before), found.direction[k]);
  });
});

test("stations, ingresses and aspects that almanacs have", () => {
  assert.deepEqual(iso(stations("mercury", "2026-01-01", "2026-07-01").time).map((time) => time.slice(0, 16)),
    ["2026-02-26T06:48", "2026-03-20T19:32", "2026-06-29T17:35"]);
  assert.deepEqual(Array.from(ingresses("sun", "2026-01-01", "2026-04-01").target), [300, 330, 0]);
  const great = aspects("jupiter", ["saturn"], 0, "2020", "2021");
  assert.deepEqual(iso(great.time), ["2020-12-21T18:20:44.366Z"]);
  assert.deepEqual([great.body, great.other, ...great.angle], [["jupiter"], ["saturn"], 0]);
});

test("several bodies come in the order of time", () => {
  const found = stations(["mercury", "venus", "mars"], "2020", "2025");
  assert.ok(found.julianDay.every((day, k) => k === 0 || day >= found.julianDay[k - 1]));
  assert.deepEqual([...new Set(found.body)].sort(), ["mars", "mercury", "venus"]);
});

test("rise, transit and set of days and places", () => {
  const day = rise("sun", "2026-11-21", 59.33, 18.07, { zone: 1 });
  assert.deepEqual(iso(day.rise).concat(iso(day.set)).map((time) => time.slice(11, 16)), ["06:55", "14:10"]);
  const polar = rise("sun", ["2026-06-21", "2026-12-21", null], 78.2, 15.6);
  assert.deepEqual(polar.status.filter((_, k) => k % 3 === 0), ["always_up", "never_up", "unsettled"]);
  assert.ok(polar.rise.every(Number.isNaN));
  const places = rise("moon", 2461365.7, [10, 20, 30], [0, 100, -100], { zone: [0, 7, -7] });
  assert.equal(places.rise.length, 3);
  assert.deepEqual(places.transit[1], rise("moon", 2461365.7, 20, 100, { zone: 7 }).transit[0]);
});

test("errors say which argument or element", () => {
  const cases = [
    [() => events("2026", "2027", ["phases", "party"]), /kinds\[1\]: there is no kind of event "party"; there are seasons, phases/],
    [() => events("2026", "2027", []), /kinds: at least one/],
    [() => events("-2500", "2027"), /start: "-2500" is not a moment between the years -2000 and 4000/],
    [() => events("2026", null), /end: null is not a moment between/],
    [() => events(["2026"], "2027"), /start: one moment is needed, not 1/],
    [() => crossings("sun", "declination", [0, "1"], "2026", "2027"), /targets\[1\]: "1" is not a finite number/],
    [() => crossings("earth", "declination", 0, "2026", "2027"), /crossings of earth, declination: /],
    [() => ingresses("sun", "2026", "2027", { field: "declination" }), /field: declination is no longitude/],
    [() => stations("mars", "2026", "2027", { field: "year" }), /stations of mars, year: /],
    [() => aspects("mars", ["venus", "mars"], 0, "2026", "2027"), /aspects of mars and mars, apparent_longitude: /],
    [() => aspects("mars", ["venus", "x"], 0, "2026", "2027"), /others\[1\]: there is no body "x"/],
    [() => rise("earth", 2461365.5, 0, 0), /body: the Earth does not rise/],
    [() => rise("sun", 2461365.5, [0, 91], 0), /latitude\[1\]: 91 is not a number from -90 to 90/],
    [() => rise("sun", [2461365.5, 2461366.5], [0, 1, 2], 0), /latitude: 3 of them, but 2 of days|days: 2 of them, but 3 of latitude/],
  ];
  for (const [call, message] of cases) {
    assert.throws(call, (error) => error instanceof RangeError && message.test(error.message), String(message));
  }
});
