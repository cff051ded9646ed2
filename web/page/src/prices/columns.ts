// Which column of a file of prices holds what.

import { isDate, isTimeOfDay } from "./dates.js";
import type { Line } from "./cells.js";
import { numberOf } from "./numbers.js";

export type ColumnName = "date" | "time" | "open" | "high" | "low" | "close";
export type Columns = { date: number; close: number } & Partial<Record<ColumnName, number>>;

/** Words in heads, without case, marks and what stands in brackets. Earlier ones are preferred. */
const WORDS: Readonly<Record<ColumnName, readonly string[]>> = {
  date: [
    "date", "datetime", "date time", "timestamp", "open time", "datum", "datum zeit", "fecha", "data", "day",
    "tag", "dt", "gmt time", "utc", "week", "month", "period", "time",
  ],
  time: ["time", "zeit", "uhrzeit", "heure", "hora", "hour"],
  open: [
    "open", "o", "opening", "opening price", "open price", "eröffnung", "eroeffnung", "eröffnungskurs", "erster",
    "ouverture", "apertura", "abertura",
  ],
  high: [
    "high", "h", "hi", "max", "high price", "hoch", "höchst", "hoechst", "tageshoch", "höchstkurs", "haut",
    "plus haut", "alto", "máximo", "maximo",
  ],
  low: [
    "low", "l", "lo", "min", "low price", "tief", "tiefst", "tagestief", "tiefstkurs", "bas", "plus bas", "bajo",
    "mínimo", "minimo",
  ],
  close: [
    "close", "c", "close last", "closing", "closing price", "close price", "last", "last price", "schluss",
    "schlusskurs", "schluß", "schlußkurs", "clôture", "cloture", "cierre", "fechamento", "settle", "settlement", "price",
    "kurs", "value", "adj close", "adjusted close",
  ],
};

function plain(word: string): string {
  return word.toLowerCase().replace(/[([].*?[)\]]/g, " ").replace(/^[\s<>\d.#]+/, "").replace(/[^\p{L}]+/gu, " ").trim();
}

/** The columns that a head names. */
function named(cells: readonly string[]): Partial<Record<ColumnName, number>> {
  const heads = cells.map(plain);
  const columns: Partial<Record<ColumnName, number>> = {};
  for (const name of Object.keys(WORDS) as ColumnName[]) {
    const word = WORDS[name].find((one) => heads.includes(one));
    const at = word === undefined ? -1 : heads.indexOf(word);
    if (at >= 0 && !Object.values(columns).includes(at)) {
      columns[name] = at;
    }
  }
  return columns;
}

export interface Layout {
  columns: Columns;
  /** The place of the head among the lines; -1 where there is none. */
  head: number;
  /** The place of the first line with a bar. */
  first: number;
}

const list = (cells: readonly string[]) => cells.slice(0, 12).map((cell) => `“${cell.slice(0, 24)}”`).join(", ");

function isNumber(cell: string | undefined): boolean {
  return cell !== undefined && (!Number.isNaN(numberOf(cell, ".")) || !Number.isNaN(numberOf(cell, ",")));
}

/** Where date and prices stand; a sentence where that cannot be told. */
export function layoutOf(lines: readonly Line[]): Layout | string {
  for (let k = 0; k < Math.min(lines.length, 40); ++k) {
    const { cells, number } = lines[k]!;
    const columns = named(cells);
    const isHead = columns.date !== undefined && !cells.some((cell) => isDate(cell));
    if (isHead && columns.close !== undefined) {
      return { columns: columns as Columns, head: k, first: k + 1 };
    }
    if (isHead && columns.high !== undefined) {
      return `Line ${number} names no column of closing prices; it has ${list(cells)}. Call one “Close”.`;
    }
    if (isDate(cells[0]!) && cells.slice(1).some(isNumber)) {
      return withoutHead(lines, k);
    }
  }
  const { cells, number } = lines[0]!;
  const hasPrices = named(cells).close !== undefined;
  return hasPrices
    ? `Line ${number} names no column of dates; it has ${list(cells)}. Call one “Date”.`
    : `No line begins with a date and goes on with prices. Line ${number} has ${list(cells)}. ` +
        "Each line needs date, open, high, low and close, or a head that names these columns.";
}

/** Without a head the columns stand in their common order: date, time of day where there is one, open,
 * high, low, close; or date and close. */
function withoutHead(lines: readonly Line[], first: number): Layout | string {
  const { cells, number } = lines[first]!;
  const hasTime = cells.length > 2 && lines.slice(first, first + 20).every((line) => isTimeOfDay(line.cells[1] ?? ""));
  // 093000 is a time of day where four prices follow it.
  const isCompactTime = !hasTime && cells.length >= 6 && lines.slice(first, first + 20).every(
    (line) => /^\d{3,6}$/.test(line.cells[1] ?? "") && /^0/.test(line.cells[1] ?? "") === /^0/.test(cells[1]!) &&
      Number(line.cells[1]) < 240000 && /[^\d]/.test((line.cells[2] ?? "") + (line.cells[3] ?? "")));
  const at = hasTime || isCompactTime ? 2 : 1;
  const time = at === 2 ? { time: 1 } : {};
  const numbers = cells.slice(at).filter(isNumber).length;
  if (cells.length - at >= 4) {
    return { columns: { date: 0, ...time, open: at, high: at + 1, low: at + 2, close: at + 3 }, head: -1, first };
  }
  if (numbers === 1 || cells.length - at <= 2) {
    return { columns: { date: 0, ...time, close: at }, head: -1, first };
  }
  return (
    `Line ${number} has ${numbers} numbers after its date, and no head says which they are. ` +
    "Open, high, low and close are needed, or the close alone, or a head that names the columns."
  );
}
