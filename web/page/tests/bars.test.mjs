// Files of prices as people have them: what is read, what is left out with its reason, what is refused.
import assert from "node:assert/strict";
import { test } from "node:test";

import { readBars, readBarsFile } from "../modules/page/src/prices/bars.mjs";
import { gapsOf, nextTimes, slotsOf } from "../modules/page/src/prices/cadence.mjs";
import { dateOrderOf, momentOf } from "../modules/page/src/prices/dates.mjs";
import { decimalMarkOf, numberOf } from "../modules/page/src/prices/numbers.mjs";

const utc = (text) => Date.parse(`${text}Z`);
const read = (text, options) => {
  const reading = readBars(text, options);
  assert.ok(reading.isGood, reading.refusal);
  return reading.file;
};
const refusal = (text) => {
  const reading = readBars(text);
  assert.equal(reading.isGood, false);
  return reading.refusal;
};
const row = (bars, k) => [bars.time[k], bars.open[k], bars.high[k], bars.low[k], bars.close[k]];
const BAR = [utc("2026-01-05T00:00"), 1101.25, 1112.5, 1098, 1110];
const NEXT = [utc("2026-01-06T00:00"), 1110, 1120, 1105.75, 1119.5];

const FORMS = {
  "commas, ISO dates, a head": "Date,Open,High,Low,Close,Volume\n2026-01-05,1101.25,1112.5,1098,1110,5\n2026-01-06,1110,1120,1105.75,1119.5,6\n",
  "no head": "2026-01-05,1101.25,1112.5,1098,1110\n2026-01-06,1110,1120,1105.75,1119.5",
  "semicolons, decimal commas, German": "Datum;Eröffnung;Hoch;Tief;Schluss\r\n05.01.2026;1.101,25;1.112,5;1.098;1.110\r\n06.01.2026;1.110;1.120;1.105,75;1.119,5\r\n",
  "tabs, spaces for thousands": "date\topen\thigh\tlow\tclose\n2026/01/05\t1 101,25\t1 112,5\t1 098\t1 110\n2026/01/06\t1 110\t1 120\t1 105,75\t1 119,5\n",
  "quotes, commas for thousands": '"Date","Price","Open","High","Low"\n"Jan 05, 2026","1,110.00","1,101.25","1,112.50","1,098.00"\n"Jan 06, 2026","1,119.50","1,110.00","1,120.00","1,105.75"\n',
  "month first": "Date,Close/Last,Open,High,Low\n01/05/2026,$1110,$1101.25,$1112.5,$1098\n01/06/2026,$1119.5,$1110,$1120,$1105.75\n01/13/2026,$1,$1,$1,$1\n",
  "compact dates, pointed brackets, time of day": "<TICKER>,<DATE>,<TIME>,<OPEN>,<HIGH>,<LOW>,<CLOSE>\nXY,20260105,000000,1101.25,1112.5,1098,1110\nXY,20260106,000000,1110,1120,1105.75,1119.5\n",
  "names of months": "Date|Open|High|Low|Close\n5-Jan-2026|1101.25|1112.5|1098|1110\n6-Jan-26|1110|1120|1105.75|1119.5\n",
  "seconds since 1970": "time,open,high,low,close\n1767571200,1101.25,1112.5,1098,1110\n1767657600,1110,1120,1105.75,1119.5\n",
  "spaces, apostrophes": "2026-01-05 1'101.25 1'112.5 1'098 1'110\n2026-01-06 1'110 1'120 1'105.75 1'119.5\n",
  "newest first, a byte order mark, old ends of lines": "\uFEFFDate,Open,High,Low,Close\r2026-01-06,1110,1120,1105.75,1119.5\r2026-01-05,1101.25,1112.5,1098,1110\r",
  "words above the head": "Prices of something\nin dollars\n\nDate,Open,High,Low,Close\n2026-01-05,1101.25,1112.5,1098,1110\n2026-01-06,1110,1120,1105.75,1119.5",
};

for (const [name, text] of Object.entries(FORMS)) {
  test(`form: ${name}`, () => {
    const { bars } = read(text);
    assert.deepEqual(row(bars, 0), BAR);
    assert.deepEqual(row(bars, 1), NEXT);
  });
}

test("bytes: UTF-8, UTF-16, Western European", () => {
  const text = "Datum;Eröffnung;Hoch;Tief;Schluß\n05.01.2026;1;2;1;2\n";
  const utf16 = Buffer.from(`\uFEFF${text}`, "utf16le");
  const latin = Buffer.from(text, "latin1");
  for (const bytes of [Buffer.from(text), utf16, latin]) {
    const reading = readBarsFile(new Uint8Array(bytes));
    assert.ok(reading.isGood, reading.refusal);
    assert.deepEqual(row(reading.file.bars, 0), [utc("2026-01-05T00:00"), 1, 2, 1, 2]);
  }
});

test("moments within a day, with and without zone", () => {
  const cells = {
    "2026-01-05 09:30": "2026-01-05T09:30", "2026-01-05T09:30:15Z": "2026-01-05T09:30:15",
    "2026-01-05T09:30+01:00": "2026-01-05T08:30", "20260105 093000": "2026-01-05T09:30",
    "05.01.2026 09:30": "2026-01-05T09:30", "Mon 05 Jan 2026": "2026-01-05T00:00",
    "2026-01-05 12:05 am": "2026-01-05T00:05", "Jan 5, 2026, 4:00 PM": "2026-01-05T16:00",
    "2026-01": "2026-01-01T00:00", "05.01.99": "1999-01-05T00:00",
  };
  for (const [cell, moment] of Object.entries(cells)) {
    assert.equal(momentOf(cell, undefined, "day"), utc(moment), cell);
  }
  assert.equal(momentOf("2026-01-05", "16:15", "day"), utc("2026-01-05T16:15"));
  for (const cell of ["", "hello", "2026-02-30", "2026-13-01", "32.01.2026", "2026-01-05 25:00", "12"]) {
    assert.ok(Number.isNaN(momentOf(cell, undefined, "day")), cell);
  }
});

test("day or month first", () => {
  assert.deepEqual(dateOrderOf(["01/05/2026", "13/05/2026"]), { order: "day", unsettled: null });
  assert.deepEqual(dateOrderOf(["01/05/2026", "05/13/2026"]), { order: "month", unsettled: null });
  // 1 to 5 January lie closer together than the first of five months.
  assert.equal(dateOrderOf(["01/01/2026", "01/02/2026", "01/03/2026", "01/04/2026"]).order, "month");
  assert.equal(dateOrderOf(["01-01-2026", "02-01-2026", "03-01-2026", "04-01-2026"]).order, "day");
  assert.deepEqual(dateOrderOf(["01/05/2026"]), { order: "month", unsettled: "01/05/2026" });
  assert.deepEqual(dateOrderOf(["01.05.2026"]), { order: "day", unsettled: "01.05.2026" });
  const { notes } = read("01/05/2026,1.5,2.5,1.25,2.25");
  assert.ok(notes.some((note) => /01\/05\/2026 can be read two ways; here the month comes first/.test(note)), notes);
  assert.equal(read("01/05/2026,1.5,2.5,1.25,2.25", { order: "day" }).bars.time[0], utc("2026-05-01T00:00"));
});

test("decimal marks", () => {
  assert.equal(decimalMarkOf(["1.234,5"]).mark, ",");
  assert.equal(decimalMarkOf(["1,234.5"]).mark, ".");
  assert.equal(decimalMarkOf(["1,234,567"]).mark, ".");
  assert.equal(decimalMarkOf(["1.234.567"]).mark, ",");
  assert.equal(decimalMarkOf(["0,875", "1,105"]).mark, ",");
  assert.deepEqual(decimalMarkOf(["1,234"]), { mark: ".", unsettled: "1,234" });
  assert.equal(numberOf("1 234,50 €", ","), 1234.5);
  assert.equal(numberOf("-37.63", "."), -37.63);
  assert.equal(numberOf("1.5e3", "."), 1500);
  assert.equal(numberOf("1,5", "."), NaN);
  assert.equal(numberOf("12,34,567", "."), NaN);
  assert.equal(numberOf("0x10", "."), NaN);
  assert.equal(numberOf("", "."), NaN);
});

test("refusals say what is wrong, where, and what to do", () => {
  const cases = [
    ["", /empty.*Choose/], ["\n \n\n", /empty/], [";;;\n;;;\n", /separators and no values/],
    ["Date,Open,High,Low,Close\n", /head and no line below/],
    ["PK\u0003\u0004rest", /not plain text.*Save the sheet as CSV/], ["a\0b\0c", /not plain text/],
    ["<!DOCTYPE html><html>", /web page/], ['{"a": 1}', /data object/],
    ["hello world\nthis is no file of prices\n", /No line begins with a date.*Line 1 has “hello”/],
    ["Name,Open,High,Low,Close\nXY,1,2,3,4\n", /Line 1 names no column of dates.*“Date”/],
    ["Date,Open,High,Low\n2026-01-05,1,2,3\n", /Line 1 names no column of closing prices.*“Close”/],
    ["2026-01-05,1,2,3\n2026-01-06,1,2,3\n", /Line 1 has 3 numbers after its date.*head that names/],
    ["Date,Open,High,Low,Close\n2026-01-05,1,2,x,4\n2026-01-06,1,2,y,4\n", /No line can be read.*Line 2: low: “x” is not a number/],
    ["Date,Close\n2026-01-05,1\nsoon,2\nlater,3\nnever,4\n", /Only 1 of 4 lines.*Line 3: “soon” is not a date/],
  ];
  for (const [text, pattern] of cases) {
    assert.match(refusal(text), pattern);
  }
});

test("what is left out is named with line and reason, the rest is kept", () => {
  const { bars, left, notes } = read(
    "Date,Open,High,Low,Close\n" +
    "2026-01-05,10,12,9,11\n" +
    "2026-01-06,11,13,10,\n" +
    "2026-01-07,,,,\n" +
    "2026-02-30,11,13,10,12\n" +
    "2026-01-08,11,13,10\n" +
    "2026-01-09,11,13,ten,12\n" +
    "2026-01-12,12,14,11,13\n" +
    "2026-01-13,12,14,11,13\n" + "2026-01-14,12,14,11,13\n" + "2026-01-15,12,14,11,13\n" +
    "2026-01-16,12,14,11,13\n" + "9999-01-16,12,14,11,13\n");
  assert.equal(bars.time.length, 6);
  assert.deepEqual(left.map(({ line }) => line), [3, 4, 5, 6, 7, 13]);
  assert.deepEqual(left.map(({ why }) => why), [
    "has no close", "has a date and no prices", "“2026-02-30” is not a date", "has 4 cells where 5 are needed",
    "low: “ten” is not a number", "9999-01-16 is outside the years -1999 to 3990",
  ]);
  assert.ok(notes.some((note) => note.startsWith("6 lines are no bar")));
});

test("bars and lines left out add up to the file's lines", () => {
  const lines = ["Date,Open,High,Low,Close"];
  for (let k = 0; k < 500; ++k) {
    const day = new Date(Date.UTC(2020, 0, 1 + Math.floor(k * 0.9))).toISOString().slice(0, 10);
    lines.push(k % 7 === 3 ? `${day},1,2,broken,3` : k % 11 === 5 ? "" : `${day},${k},${k + 2},${k - 1},${k + 1}`);
  }
  const { bars, left } = read(lines.join("\n"));
  const blank = lines.filter((line) => line === "").length;
  assert.equal(bars.time.length + left.length + blank + 1, lines.length);
});

test("duplicates: the same bar once, of two different ones the later line", () => {
  const { bars, left, notes } = read(
    "Date,Open,High,Low,Close\n2026-01-05,10,12,9,11\n2026-01-05,10,12,9,11\n2026-01-06,11,13,10,12\n2026-01-06,11,13,10,12.5\n");
  assert.deepEqual([...bars.close], [11, 12.5]);
  assert.deepEqual(left, [
    { line: 3, why: "repeats line 2 (2026-01-05)" },
    { line: 4, why: "2026-01-06 stands again in line 5 with other prices, which are taken" },
  ]);
  assert.ok(notes.some((note) => /1 line repeats a bar/.test(note)) && notes.some((note) => /1 date has two bars/.test(note)));
});

test("unordered lines are sorted, and it is said", () => {
  const { bars, notes } = read("2026-01-07,1.5,1.5,1.5,1.5\n2026-01-05,2.5,2.5,2.5,2.5\n2026-01-06,3.5,3.5,3.5,3.5\n");
  assert.deepEqual([...bars.close], [2.5, 3.5, 1.5]);
  assert.ok(notes.some((note) => /1 line was out of order/.test(note)), notes);
});

test("gaps are named; weekends and holidays are none", () => {
  const days = [];
  for (let day = Date.UTC(2026, 0, 5); day < Date.UTC(2026, 11, 1); day += 86400e3) {
    const weekday = new Date(day).getUTCDay();
    const isGap = day > Date.UTC(2026, 2, 6) && day < Date.UTC(2026, 3, 6);
    const isHoliday = day === Date.UTC(2026, 4, 1);
    if (weekday % 6 !== 0 && !isGap && !isHoliday) {
      days.push(day);
    }
  }
  const times = Float64Array.from(days);
  const [gap, ...rest] = gapsOf(times);
  assert.deepEqual(rest, []);
  assert.deepEqual([gap.from, gap.to, gap.missing], [Date.UTC(2026, 2, 6), Date.UTC(2026, 3, 6), 20]);
  const slots = slotsOf(times, 10);
  assert.equal(slots.time.length, times.length + 20 + 10);
  assert.equal(slots.bar.filter((bar) => bar < 0).length, 30);
  assert.ok(slots.time.every((time, k) => k === 0 || time > slots.time[k - 1]));
  const { notes } = read(days.map((day) => `${new Date(day).toISOString().slice(0, 10)},1.5,1.5,1.5,1.5`).join("\n"));
  assert.ok(notes.some((note) => /1 gap; the widest from 2026-03-06 to 2026-04-06, where about 20 bars are missing/.test(note)), notes);
});

test("the future goes on in the bars' own steps", () => {
  const days = (...texts) => Float64Array.from(texts, (text) => utc(text));
  const texts = (times) => times.map((time) => new Date(time).toISOString().slice(0, 16));
  const weekdays = days("2026-01-05T00:00", "2026-01-06T00:00", "2026-01-07T00:00", "2026-01-08T00:00", "2026-01-09T00:00");
  assert.deepEqual(texts(nextTimes(weekdays, 2)), ["2026-01-12T00:00", "2026-01-13T00:00"]);
  const monthEnds = days("2025-11-30T00:00", "2025-12-31T00:00", "2026-01-31T00:00");
  assert.deepEqual(texts(nextTimes(monthEnds, 2)), ["2026-02-28T00:00", "2026-03-31T00:00"]);
  const hours = days("2026-01-08T14:00", "2026-01-08T15:00", "2026-01-09T14:00", "2026-01-09T15:00");
  assert.deepEqual(texts(nextTimes(hours, 3)), ["2026-01-12T14:00", "2026-01-12T15:00", "2026-01-13T14:00"]);
  assert.equal(nextTimes(days("2026-01-05T00:00"), 3).length, 3);
  assert.equal(nextTimes(new Float64Array(0), 3).length, 0);
});

test("one price a date; open or close beyond high and low", () => {
  const { bars, notes } = read("date;close\n2026-01-05;1,25\n2026-01-06;1,5\n");
  assert.deepEqual(row(bars, 1), [utc("2026-01-06T00:00"), 1.5, 1.5, 1.5, 1.5]);
  assert.ok(notes.some((note) => /one price a date/.test(note)));
  const odd = read("2026-01-05,10.5,9.5,9.25,11.5\n");
  assert.deepEqual(row(odd.bars, 0), [utc("2026-01-05T00:00"), 10.5, 9.5, 9.25, 11.5]);
  assert.ok(odd.notes.some((note) => /1 bar has its open or close outside/.test(note)));
});

test("100 000 bars, all of them", { timeout: 20000 }, () => {
  const lines = ["Date,Open,High,Low,Close"];
  for (let k = 0; k < 100000; ++k) {
    const time = new Date(Date.UTC(2000, 0, 3) + k * 3600e3).toISOString();
    lines.push(`${time.slice(0, 10)} ${time.slice(11, 16)},${k},${k + 2}.5,${k - 1}.25,${k + 1}`);
  }
  const text = lines.join("\n");
  const { bars, left } = read(text);
  assert.equal(bars.time.length, 100000);
  assert.equal(left.length, 0);
  assert.deepEqual(row(bars, 99999), [Date.UTC(2000, 0, 3) + 99999 * 3600e3, 99999, 100001.5, 99998.25, 100000]);
});

test("hostile files end in a word and never in an exception", () => {
  const hostile = [
    '"', '""""', '"a\n"b,c\n', ",\n".repeat(1000), "1".repeat(100000), "\u0000".repeat(100), "Date,Date,Close,Close\n1,2,3,4\n",
    "Date,Close\n2026-01-05,1e999\n", "Date,Close\n2026-01-05,NaN\n", "Date,Close\n-1,1\n", "Close\n1\n", "Date\n2026-01-05\n",
    "__proto__,constructor,toString\n2026-01-05,1,2\n", "2026-01-05\n2026-01-06\n", "\uD800,\uDFFF\n", "Date,Close\n0,0\n",
    "=1+1,2026-01-05,3\n", "Date;Close\n2026-01-05;1,2,3,4\n",
  ];
  for (const text of hostile) {
    const reading = readBars(text);
    assert.ok(reading.isGood || reading.refusal.length > 20, text.slice(0, 40));
    assert.ok(!reading.isGood || reading.file.bars.time.every(Number.isFinite));
  }
  let seed = 1;
  const random = () => (seed = (seed * 16807) % 2147483647) / 2147483647;
  const alphabet = '0123456789-/:;,.\t" \nDateClose\u00e4';
  for (let round = 0; round < 3000; ++round) {
    let text = round % 2 ? "Date,Open,High,Low,Close\n" : "";
    for (let k = 0; k < 60; ++k) {
      text += random() < 0.2 ? "2026-01-05," : alphabet[Math.floor(random() * alphabet.length)];
    }
    const reading = readBars(text);
    if (reading.isGood) {
      const { time } = reading.file.bars;
      assert.ok(time.every((one, k) => Number.isFinite(one) && (k === 0 || one > time[k - 1])));
    }
  }
});
