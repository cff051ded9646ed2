// What the page is made of, without a browser: links, clock, places, tables, the Sun's year.

import assert from "node:assert/strict";
import { test } from "node:test";
import { clockOf, dayOf } from "../modules/page/src/clock.mjs";
import { readPlace } from "../modules/page/src/day/places.mjs";
import { polarSpans, sunYear } from "../modules/page/src/day/rising.mjs";
import { csv } from "../modules/page/src/download.mjs";
import { aspectsNow } from "../modules/page/src/sky/places.mjs";
import { spread } from "../modules/page/src/sky/spread.mjs";
import { decode, encode, follow, initialState } from "../modules/page/src/state.mjs";
import { zodiac } from "../modules/page/src/bodies.mjs";
import { tableCsv } from "../modules/page/src/table.mjs";
import { unpack } from "../modules/src/unpack.mjs";

test("ALinkHoldsWhatItsViewShows", () => {
  const state = {
    ...initialState(), view: "sky", at: Date.UTC(2026, 10, 21, 12, 30), centre: "helio", step: "month", zone: "local",
    latitude: 10,
  };
  assert.equal(encode(state), "#sky?at=2026-11-21T12:30Z&centre=helio&step=month&zone=local");
  assert.deepEqual(decode(encode(state)), { ...state, latitude: initialState().latitude });
  assert.equal(encode(initialState()), "#sky");
  assert.equal(encode({ ...initialState(), view: "year" }), `#year?from=${new Date().getUTCFullYear()}`);
  assert.equal(encode({ ...initialState(), view: "day", date: "-0044-03-15", latitude: -33.87 }), "#day?date=-0044-03-15&latitude=-33.87");
});

test("MomentsBeforeTheYear1000AreKept", () => {
  for (const year of [-1999, -44, 0, 5, 99, 3999]) {
    const date = new Date(0);
    date.setUTCFullYear(year, 2, 15);
    const state = { ...initialState(), at: date.getTime() };
    assert.equal(decode(encode(state)).at, state.at, encode(state));
  }
});

test("WhatIsBrokenInALinkFallsBack", () => {
  for (const link of [
    "", "#", "#nothing", "#sky?", "#sky?at=", "#sky?at=2026-02-30T00:00Z", "#sky?at=2026-01-01T24:00Z", "#sky?at=9999-01-01T00:00Z",
    "#sky?centre=moon", "#sky?step=%", "#sky?zone=<b>&theme=__proto__", "#sky?constructor=1&__proto__=2",
  ]) {
    assert.deepEqual(decode(link), initialState(), link);
  }
  assert.deepEqual(decode("#day?latitude=91&longitude=x&date=2026-13-01"), { ...initialState(), view: "day" });
});

test("FollowingALinkLeavesTheOtherViewsAlone", () => {
  const state = { ...initialState(), at: 0, latitude: 59, view: "sky" };
  const next = follow(state, "#day?longitude=18");
  assert.deepEqual([next.view, next.at, next.latitude, next.longitude], ["day", 0, initialState().latitude, 18]);
});

test("ClocksShowUtcAndTheZone", () => {
  const utc = clockOf("utc");
  assert.equal(utc.format(Date.UTC(2026, 10, 21, 6, 5, 59)), "2026-11-21 06:05");
  assert.equal(utc.format(-62167219200000 - 1000, "second"), "-0001-12-31 23:59:59");
  assert.equal(utc.format(NaN), "");
  assert.equal(utc.at(2026, 14, 1), Date.UTC(2027, 2, 1));
  assert.equal(utc.at(44, 0, 1), Date.parse("0044-01-01T00:00Z"));
  process.env.TZ = "America/New_York";
  const local = clockOf("local");
  assert.equal(local.label, "America/New_York");
  assert.equal(local.format(Date.UTC(2026, 10, 21, 6, 5)), "2026-11-21 01:05");
  assert.equal(local.offset(Date.UTC(2026, 6, 1)), -4);
  assert.equal(local.at(2026, 6, 1, 12), Date.UTC(2026, 6, 1, 16));
  process.env.TZ = "UTC";
  assert.deepEqual(dayOf("2024-02-29"), [2024, 1, 29]);
  assert.equal(dayOf("2026-02-29"), null);
});

test("PlacesAreReadAsPeopleWriteThem", () => {
  const near = (text, latitude, longitude) => {
    const found = readPlace(text);
    assert.equal(typeof found, "object", `${text}: ${found}`);
    assert.ok(Math.abs(found.latitude - latitude) < 1e-5 && Math.abs(found.longitude - longitude) < 1e-5, text);
  };
  near("59.33, 18.07", 59.33, 18.07);
  near("-33.87 151.21", -33.87, 151.21);
  near("59°20'N 18°4'E", 59 + 20 / 60, 18 + 4 / 60);
  near("33°52′10″S, 151°12′30″E", -(33 + 52 / 60 + 10 / 3600), 151 + 12 / 60 + 30 / 3600);
  near("40.71 N, 74.01 W", 40.71, -74.01);
  near(" stockholm ", 59.33, 18.07);
  near("Zürich", 47.38, 8.54);
  near("São Paulo", -23.55, -46.63);
  for (const text of ["", "Atlantis", "91, 0", "0, 181", "59,33, 18,07", "1 2 3 4 5 6 7", "12", "S", "E 5, N 7"]) {
    assert.equal(typeof readPlace(text), "string", text);
  }
  assert.match(readPlace("san"), /begins several names: San Francisco, Santiago/);
});

test("LabelsRoundACircleAreMovedApart", () => {
  const apart = (answer) => {
    const sorted = answer.slice().sort((a, b) => a - b);
    return Math.min(...sorted.map((angle, k) => (k === 0 ? sorted[0] + 360 - sorted.at(-1) : angle - sorted[k - 1])));
  };
  assert.deepEqual(spread([], 10), []);
  assert.deepEqual(spread([123], 10), [123]);
  assert.deepEqual(spread([10, 100, 200], 10), [10, 100, 200]);
  const pair = spread([359, 1], 10);
  assert.ok(Math.abs(pair[0] - 355) < 1e-9 && Math.abs(pair[1] - 5) < 1e-9, String(pair));
  for (const angles of [[0, 0, 0, 0], [350, 355, 0, 5, 10, 180], [5, 15.1, 25, 26, 27], Array(10).fill(77), Array(60).fill(1)]) {
    assert.ok(apart(spread(angles, 10)) >= Math.min(10, 360 / angles.length) - 1e-6, String(angles));
  }
});

test("AspectsAreFoundAcrossZero", () => {
  const [found, ...more] = aspectsNow([{ body: "sun", longitude: 359 }, { body: "moon", longitude: 90.5 }]);
  assert.deepEqual([found.aspect.name, found.angle, more.length], ["square", 91.5, 0]);
  assert.deepEqual(aspectsNow([{ body: "sun", longitude: 0 }, { body: "moon", longitude: 45 }]), []);
});

test("TheZodiacIsCutToMinutes", () => {
  assert.deepEqual([0, 29.9999, 352.565335, 359.999, -1].map(zodiac), ["00 Ari 00'", "29 Ari 59'", "22 Psc 33'", "29 Psc 59'", "29 Psc 00'"]);
});

test("CsvFilesAreReadBackAsTheyWere", () => {
  assert.equal(csv([["a", "b,c", 'd"e'], [1.5, null, NaN], ["=1+1", "-x", "-5"]]), 'a,"b,c","d""e"\r\n1.5,,\r\n\'=1+1,\'-x,-5\r\n');
  const columns = [{ head: "Body", value: ({ name }) => name }, { head: "Longitude", unit: "deg", value: ({ x }) => x, digits: 4 }];
  assert.equal(tableCsv(columns, [{ name: "Sun", x: 1.00005 }, { name: "Moon", x: -0.00001 }]), "Body,Longitude [deg]\r\nSun,1.0001\r\nMoon,0.0000\r\n");
});

test("TheSunsYearIsRightAtThePolesAndOverMidnight", async () => {
  await unpack();
  const utc = clockOf("utc");
  const tromso = sunYear(2026, { latitude: 69.65, longitude: 18.96 }, utc);
  assert.equal(tromso.length, 365);
  assert.deepEqual(polarSpans(tromso).map(({ status }) => status), ["never_up", "always_up", "never_up"]);
  assert.equal(tromso[171].daylight, 24);
  assert.equal(tromso[354].daylight, 0);
  // From one day to the next daylight changes by an hour and a half at most, also where it is the whole day.
  tromso.slice(1).forEach(({ daylight }, k) => assert.ok(Math.abs(daylight - tromso[k].daylight) < 2.5, `day ${k + 1}`));
  // At Tokyo the Sun is up as the day of UTC begins.
  const tokyo = sunYear(2024, { latitude: 35.68, longitude: 139.69 }, utc);
  assert.equal(tokyo.length, 366);
  for (const { up, daylight } of tokyo) {
    assert.deepEqual([up.length, up[0][0], up[1][1]], [2, 0, 24]);
    assert.ok(daylight > 9.6 && daylight < 14.7);
  }
  const pole = sunYear(2026, { latitude: 90, longitude: 0 }, utc);
  const lengths = pole.map(({ daylight }) => daylight);
  assert.ok(lengths.slice(0, 75).every((length) => length === 0) && lengths.slice(80, 264).every((length) => length === 24));
  assert.ok(lengths.slice(270).every((length) => length === 0));
});
