// A file of prices as bars: what is read, what is left out and why, or why it is refused.

import { layoutOf } from "./columns.js";
import type { ColumnName, Columns } from "./columns.js";
import { linesOf, textOf } from "./cells.js";
import type { Line } from "./cells.js";
import { dateOrderOf, momentOf } from "./dates.js";
import type { DateOrder } from "./dates.js";
import { decimalMarkOf, numberOf } from "./numbers.js";
import type { DecimalMark } from "./numbers.js";
import { cadenceOf, gapsOf } from "./cadence.js";
import type { Gap } from "./cadence.js";

/** Bars in the order of time, all columns of one length. */
export interface Bars {
  /** Unix time [ms] at which a bar is dated. */
  time: Float64Array;
  open: Float64Array;
  high: Float64Array;
  low: Float64Array;
  close: Float64Array;
}

/** A line that is no bar of the chart. */
export interface LeftLine {
  line: number;
  why: string;
}

export interface BarsFile {
  bars: Bars;
  /** How the file was read: one sentence each. */
  notes: string[];
  left: LeftLine[];
  gaps: Gap[];
}

export type Reading = { isGood: true; file: BarsFile } | { isGood: false; refusal: string; left: LeftLine[] };

/** How the reader shall take what can be taken in two ways; told by the file where nothing is said. */
export interface ReadingOptions {
  order?: DateOrder;
  mark?: DecimalMark;
}

const MOST_BYTES = 200e6;
const PRICES: readonly ColumnName[] = ["open", "high", "low", "close"];
const SEPARATORS: Readonly<Record<string, string>> = {
  "\t": "tabs", ";": "semicolons", "|": "bars", ",": "commas", " ": "spaces",
};
const MISSING = /^(?:|-+|null|nan|n\/?a|none|\.+)$/i;
const DAY_MS = 86400e3;
// The years that the library answers for.
const EARLIEST = Date.UTC(-1999, 0, 1);
const LATEST = Date.UTC(3990, 0, 1);

const refused = (refusal: string, left: LeftLine[] = []): Reading => ({ isGood: false, refusal, left });
const count = (number: number, one: string, many: string) => `${number} ${number === 1 ? one : many}`;

/** What may not be changed about the day: the calendar date of a moment. */
export function dayText(time: number): string {
  return new Date(time).toISOString().slice(0, time % DAY_MS === 0 ? 10 : 16).replace("T", " ");
}

interface Row {
  line: number;
  time: number;
  prices: [number, number, number, number];
}

/** A line as a bar, or why it is none. */
function rowOf(line: Line, columns: Columns, order: DateOrder, mark: DecimalMark): Row | string {
  const { cells, number } = line;
  const needed = Math.max(...Object.values(columns)) + 1;
  if (cells.length < needed) {
    return `has ${count(cells.length, "cell", "cells")} where ${needed} are needed`;
  }
  const time = momentOf(cells[columns.date]!, columns.time === undefined ? undefined : cells[columns.time], order);
  if (Number.isNaN(time)) {
    const further = columns.time === undefined ? "" : ` ${cells[columns.time]}`;
    return `“${cells[columns.date]!.slice(0, 30)}${further}” is not a date`;
  }
  if (time < EARLIEST || time > LATEST) {
    return `${cells[columns.date]} is outside the years -1999 to 3990`;
  }
  const given = PRICES.filter((name) => columns[name] !== undefined);
  if (given.every((name) => MISSING.test(cells[columns[name]!]!))) {
    return "has a date and no prices";
  }
  const read: Partial<Record<ColumnName, number>> = {};
  for (const name of given) {
    const cell = cells[columns[name]!]!;
    const value = numberOf(cell, mark);
    if (Number.isNaN(value) || !Number.isFinite(value)) {
      return MISSING.test(cell) ? `has no ${name}` : `${name}: “${cell.slice(0, 30)}” is not a number`;
    }
    read[name] = value;
  }
  const close = read.close!;
  const open = read.open ?? close;
  const high = read.high ?? Math.max(open, close);
  const low = read.low ?? Math.min(open, close);
  return { line: number, time, prices: [open, high, low, close] };
}

/** The rows in the order of time, one for each moment. */
function inOrder(rows: Row[], notes: string[], left: LeftLine[]): Row[] {
  let [rising, falling] = [0, 0];
  for (let k = 1; k < rows.length; ++k) {
    rising += rows[k]!.time > rows[k - 1]!.time ? 1 : 0;
    falling += rows[k]!.time < rows[k - 1]!.time ? 1 : 0;
  }
  if (falling > 0) {
    notes.push(rising === 0
      ? "The newest bar stood first; the order is turned round."
      : `${count(falling, "line was", "lines were")} out of order; the bars are sorted by date.`);
    rows.sort((a, b) => a.time - b.time || a.line - b.line);
  }
  const kept: Row[] = [];
  let [same, different] = [0, 0];
  for (const row of rows) {
    const last = kept[kept.length - 1];
    if (last === undefined || last.time !== row.time) {
      kept.push(row);
      continue;
    }
    const isSame = row.prices.every((price, k) => price === last.prices[k]);
    const when = dayText(row.time);
    if (isSame) {
      ++same;
      left.push({ line: row.line, why: `repeats line ${last.line} (${when})` });
    } else {
      ++different;
      left.push({ line: last.line, why: `${when} stands again in line ${row.line} with other prices, which are taken` });
      kept[kept.length - 1] = row;
    }
  }
  if (same > 0) {
    notes.push(`${count(same, "line repeats a bar", "lines repeat bars")} that ${same === 1 ? "is" : "are"} there already.`);
  }
  if (different > 0) {
    notes.push(`${count(different, "date has", "dates have")} two bars with different prices; the later line is taken.`);
  }
  return kept;
}

function columnsOf(rows: readonly Row[]): Bars {
  const price = (which: number) => Float64Array.from(rows, ({ prices }) => prices[which]!);
  return {
    time: Float64Array.from(rows, ({ time }) => time),
    open: price(0), high: price(1), low: price(2), close: price(3),
  };
}

function noteColumns(columns: Columns, notes: string[]): void {
  const missing = PRICES.filter((name) => columns[name] === undefined);
  if (missing.length === 3) {
    notes.push("The file has one price a date: bars without height, at the close.");
  } else if (missing.length > 0) {
    notes.push(`The file has no column of ${missing.join(" and ")} prices; the others stand in.`);
  }
}

function noteBars(bars: Bars, gaps: Gap[], notes: string[]): void {
  let outside = 0;
  for (let k = 0; k < bars.time.length; ++k) {
    const [open, close] = [bars.open[k]!, bars.close[k]!];
    if (bars.high[k]! < Math.max(open, close) || bars.low[k]! > Math.min(open, close)) {
      ++outside;
    }
  }
  if (outside > 0) {
    notes.push(`${count(outside, "bar has its", "bars have their")} open or close outside high and low; drawn as given.`);
  }
  if (gaps.length > 0) {
    const widest = gaps.reduce((a, b) => (b.missing > a.missing ? b : a));
    notes.push(
      `${count(gaps.length, "gap", "gaps")}; the widest from ${dayText(widest.from)} to ${dayText(widest.to)}, ` +
        `where about ${count(widest.missing, "bar is", "bars are")} missing.`);
  }
}

/** Reads a file of bars: date, open, high, low, close in lines, with or without a head; commas,
 * semicolons, tabs, bars or spaces between; dates and numbers in their common forms. Lines that are no
 * bars are named with the reason, none is dropped silently; a file in which most lines are none is
 * refused. Times are UTC where the file names no zone. */
export function readBars(text: string, options: ReadingOptions = {}): Reading {
  if (text.trim() === "" || text.trim() === "\uFEFF") {
    return refused("The file is empty. Choose a file with a date and prices in each line.");
  }
  if (/^(?:PK\u0003|\u00D0\u00CF\u0011|%PDF|\{\\rtf)/.test(text) || text.slice(0, 4000).includes("\0")) {
    return refused("The file is not plain text. Save the sheet as CSV (comma separated) and choose that file.");
  }
  if (/^\s*(?:<(?:!doctype|html|\?xml)|[{[]\s*["{[])/i.test(text)) {
    return refused("The file is a web page or a data object, not lines of prices. Save it as CSV and choose that file.");
  }
  const { lines, separator } = linesOf(text);
  if (lines.length === 0) {
    return refused("The file holds separators and no values. Choose a file with a date and prices in each line.");
  }
  const layout = layoutOf(lines);
  if (typeof layout === "string") {
    return refused(layout);
  }
  const { columns, head, first } = layout;
  const left: LeftLine[] = [];
  lines.slice(0, first).forEach(({ number }, k) => {
    if (k !== head) {
      left.push({ line: number, why: "stands above the bars and is none" });
    }
  });
  const below = lines.slice(first);
  if (below.length === 0) {
    return refused("The file has a head and no line below it. Choose a file with a date and prices in each line.");
  }
  const notes: string[] = [];
  const order = options.order === undefined
    ? dateOrderOf(below.map(({ cells }) => cells[columns.date] ?? "")) : { order: options.order, unsettled: null };
  const mark = options.mark === undefined
    ? decimalMarkOf(cellsOf(below, columns)) : { mark: options.mark, unsettled: null };

  const rows: Row[] = [];
  let bad = 0;
  for (const line of below) {
    const row = rowOf(line, columns, order.order, mark.mark);
    if (typeof row === "string") {
      left.push({ line: line.number, why: row });
      ++bad;
    } else {
      rows.push(row);
    }
  }
  if (rows.length === 0 || bad > rows.length) {
    const [worst] = left.filter(({ why }) => !why.startsWith("stands above"));
    return refused(
      `${rows.length === 0 ? "No line" : `Only ${rows.length} of ${below.length} lines`} can be read as a bar. ` +
        `Line ${worst!.line}: ${worst!.why}. Each line needs a date and prices, as in 2026-01-05,101.2,103.0,100.8,102.5.`,
      left);
  }
  const kept = inOrder(rows, notes, left);
  const bars = columnsOf(kept);
  const gaps = gapsOf(bars.time);
  const read = `${count(bars.time.length, "bar", "bars")} read, ${dayText(bars.time[0]!)} to ` +
    `${dayText(bars.time[bars.time.length - 1]!)}, ${cadenceOf(bars.time).words}; ${SEPARATORS[separator]} between the cells` +
    `${mark.mark === "," ? ", decimal commas" : ""}.`;
  notes.unshift(read);
  noteColumns(columns, notes);
  if (order.unsettled !== null) {
    notes.push(`Dates such as ${order.unsettled} can be read two ways; here the ${order.order} comes first.`);
  }
  if (mark.unsettled !== null) {
    notes.push(`Numbers such as ${mark.unsettled} can be read two ways; here it is ${numberOf(mark.unsettled, mark.mark)}.`);
  }
  noteBars(bars, gaps, notes);
  if (left.length > 0) {
    notes.push(`${count(left.length, "line is", "lines are")} no bar of the chart; each is listed with its reason.`);
    left.sort((a, b) => a.line - b.line);
  }
  return { isGood: true, file: { bars, notes, left, gaps } };
}

function* cellsOf(lines: readonly Line[], columns: Columns): Generator<string> {
  for (const { cells } of lines) {
    for (const name of PRICES) {
      const at = columns[name];
      if (at !== undefined && cells[at] !== undefined) {
        yield cells[at]!;
      }
    }
  }
}

/** Reads the bytes of a file. */
export function readBarsFile(bytes: Uint8Array, options: ReadingOptions = {}): Reading {
  if (bytes.length > MOST_BYTES) {
    return refused(`The file has ${Math.round(bytes.length / 1e6)} MB; at most ${MOST_BYTES / 1e6} MB are read. Cut it into parts.`);
  }
  return readBars(textOf(bytes), options);
}
