// Dates and times as files of prices have them.

const DAY_MS = 86400e3;

/** Which comes first in 05/01/2026. */
export type DateOrder = "day" | "month";

/** A date's three numbers; `order` has to settle the first two where `isOpen`. */
interface DateParts {
  first: number;
  second: number;
  year: number;
  isOpen: boolean;
  rest: string;
}

const YEAR_FIRST = /^(\d{4})[-/. ](\d{1,2})(?:[-/. ](\d{1,2}))?(?![\d])(.*)$/;
const COMPACT = /^(\d{4})(\d\d)(\d\d)(?!\d)(.*)$/;
const YEAR_LAST = /^(\d{1,2})[-/. ]+(\d{1,2})[-/. ]+(\d{4}|\d\d)(?!\d)(.*)$/;
const DAY_NAME_YEAR = /^(\d{1,2})[-/. ]*(\p{L}{3,})[-/., ]*(\d{4}|\d\d)(?!\d)(.*)$/u;
const NAME_DAY_YEAR = /^(\p{L}{3,})[-/. ]*(\d{1,2})[-/., ]+(\d{4}|\d\d)(?!\d)(.*)$/u;
const YEAR_NAME_DAY = /^(\d{4})[-/. ]*(\p{L}{3,})[-/. ]*(\d{1,2})(?!\d)(.*)$/u;
const WEEKDAY = /^(?:mon|tue|wed|thu|fri|sat|sun)[a-z]*[.,]?\s+/i;
const UNIX_SECONDS = /^\d{9,10}(?:\.\d+)?$/;
const UNIX_MILLISECONDS = /^\d{12,13}$/;
const TIME =
  /^(\d{1,2}):(\d\d)(?::(\d\d)(?:[.,](\d+))?)?\s*([ap]\.?m\.?)?\s*(z|utc|gmt|[+-]\d\d:?\d\d)?$/i;
const COMPACT_TIME = /^(\d{1,2})(\d\d)(\d\d)?$/;

// The first letters of the months' names in English, German, French and Spanish.
const MONTHS = [
  ["jan", "jän", "ene"], ["feb", "fév", "fev"], ["mar", "mär", "mrz"], ["apr", "avr", "abr"],
  ["may", "mai"], ["jun", "juin"], ["jul", "juil"], ["aug", "aoû", "aou", "ago"], ["sep"],
  ["oct", "okt"], ["nov"], ["dec", "dez", "déc", "dic"],
];

function monthOf(name: string): number {
  const lower = name.toLowerCase();
  return 1 + MONTHS.findIndex((starts) => starts.some((start) => lower.startsWith(start)));
}

function fullYear(text: string): number {
  const year = Number(text);
  return text.length > 2 ? year : year + (year >= 70 ? 1900 : 2000);
}

function partsOf(cell: string): DateParts | null {
  const text = cell.trim().replace(WEEKDAY, "");
  let match = YEAR_FIRST.exec(text) ?? COMPACT.exec(text);
  if (match !== null) {
    const [second, first] = [Number(match[2]), Number(match[3] ?? 1)];
    return { first, second, year: Number(match[1]), isOpen: false, rest: match[4]! };
  }
  match = YEAR_LAST.exec(text);
  if (match !== null) {
    const [first, second] = [Number(match[1]), Number(match[2])];
    return { first, second, year: fullYear(match[3]!), isOpen: true, rest: match[4]! };
  }
  const named: [RegExp, number, number, number][] = [
    [DAY_NAME_YEAR, 1, 2, 3], [NAME_DAY_YEAR, 2, 1, 3], [YEAR_NAME_DAY, 3, 2, 1],
  ];
  for (const [pattern, day, month, year] of named) {
    match = pattern.exec(text);
    if (match !== null) {
      return {
        first: Number(match[day]), second: monthOf(match[month]!), year: fullYear(match[year]!),
        isOpen: false, rest: match[4]!,
      };
    }
  }
  return null;
}

/** Unix time [ms] of a calendar day in UTC; NaN where there is no such day. */
export function dayStart(year: number, month: number, day: number): number {
  const date = new Date(0);
  date.setUTCFullYear(year, month - 1, day);
  return month >= 1 && month <= 12 && date.getUTCMonth() === month - 1 && day >= 1 ? date.getTime() : NaN;
}

/** Milliseconds after the day's start in UTC; NaN where it is no time of day. */
function timeOfDay(cell: string): number {
  const text = cell.trim();
  const match = TIME.exec(text) ?? COMPACT_TIME.exec(text);
  if (match === null) {
    return NaN;
  }
  let hour = Number(match[1]);
  const half = match[5]?.toLowerCase()[0];
  if (half !== undefined) {
    if (hour < 1 || hour > 12) {
      return NaN;
    }
    hour = (hour % 12) + (half === "p" ? 12 : 0);
  }
  const [minute, second] = [Number(match[2]), Number(match[3] ?? 0)];
  if (hour > 24 || minute > 59 || second > 59 || (hour === 24 && minute + second > 0)) {
    return NaN;
  }
  const zone = /^([+-])(\d\d):?(\d\d)$/.exec(match[6] ?? "");
  const ahead = zone === null ? 0 : Number(zone[1] + "1") * (60 * Number(zone[2]) + Number(zone[3]));
  return ((hour * 60 + minute - ahead) * 60 + second) * 1000 + Number("0." + (match[4] ?? "0")) * 1000;
}

/** Whether a cell is a time of day alone, as 09:30 is. */
export function isTimeOfDay(cell: string): boolean {
  return TIME.test(cell.trim()) && !Number.isNaN(timeOfDay(cell));
}

/** Unix time [ms] of a cell with a date, with or without time, and of the cell of the time where there
 * is one; in UTC where no zone is named. NaN where it is no date. */
export function momentOf(cell: string, time: string | undefined, order: DateOrder): number {
  const text = cell.trim();
  if (UNIX_SECONDS.test(text)) {
    return Number(text) * 1000;
  }
  if (UNIX_MILLISECONDS.test(text)) {
    return Number(text);
  }
  const parts = partsOf(text);
  if (parts === null) {
    return NaN;
  }
  const isMonthFirst = parts.isOpen && order === "month";
  const day = isMonthFirst ? parts.second : parts.first;
  const month = isMonthFirst ? parts.first : parts.second;
  const start = dayStart(parts.year, month, day);
  const rest = parts.rest.replace(/^[T\s,;_-]+/i, "").trim();
  const within = rest !== "" ? timeOfDay(rest) : 0;
  const further = time !== undefined && time.trim() !== "" ? timeOfDay(time) : 0;
  return start + within + further;
}

/** Whether a cell is a date. */
export function isDate(cell: string): boolean {
  return !Number.isNaN(momentOf(cell, undefined, "day")) || !Number.isNaN(momentOf(cell, undefined, "month"));
}

/** Which of day and month comes first in many cells. A number above 12 settles it; else the reading in
 * which the dates lie closer together, line by line; else points mean day first and other marks month
 * first, and `unsettled` is a cell that could be read both ways. */
export function dateOrderOf(cells: readonly string[]): { order: DateOrder; unsettled: string | null } {
  let [isDayFirst, isMonthFirst] = [0, 0];
  let open: string | null = null;
  const walked = { day: 0, month: 0 };
  const last = { day: NaN, month: NaN };
  for (const cell of cells) {
    const parts = partsOf(cell);
    if (parts === null || !parts.isOpen) {
      continue;
    }
    isDayFirst += parts.first > 12 ? 1 : 0;
    isMonthFirst += parts.second > 12 ? 1 : 0;
    if (parts.first !== parts.second) {
      open ??= cell.trim();
    }
    for (const order of ["day", "month"] as const) {
      const moment = momentOf(cell, undefined, order);
      walked[order] += Number.isNaN(last[order]) ? 0 : Math.abs(moment - last[order]) / DAY_MS;
      last[order] = moment;
    }
  }
  if (isDayFirst !== isMonthFirst) {
    return { order: isDayFirst > isMonthFirst ? "day" : "month", unsettled: null };
  }
  if (walked.day * 2 < walked.month || walked.month * 2 < walked.day) {
    return { order: walked.day < walked.month ? "day" : "month", unsettled: null };
  }
  return { order: open?.includes(".") ? "day" : "month", unsettled: open };
}
