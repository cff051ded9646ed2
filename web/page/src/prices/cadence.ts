// How far apart bars are, where some are missing, and when the next ones come.

import { dayStart } from "./dates.js";

const DAY_MS = 86400e3;

export interface Cadence {
  /** The usual distance [ms]: the median. */
  step: number;
  kind: "within a day" | "daily" | "weekly" | "monthly" | "longer";
  /** Whether there are bars on Saturdays or Sundays. */
  hasWeekends: boolean;
  words: string;
}

const WORDS = {
  "within a day": "several a day", daily: "daily", weekly: "weekly", monthly: "monthly", longer: "longer than monthly",
} as const;

function weekday(time: number): number {
  return (((Math.floor(time / DAY_MS) + 4) % 7) + 7) % 7; // 0 is Sunday
}

const isWeekend = (time: number) => weekday(time) % 6 === 0;

export function cadenceOf(times: ArrayLike<number>): Cadence {
  const steps: number[] = [];
  let weekends = 0;
  for (let k = 0; k < times.length; ++k) {
    weekends += isWeekend(times[k]!) ? 1 : 0;
    if (k > 0) {
      steps.push(times[k]! - times[k - 1]!);
    }
  }
  steps.sort((a, b) => a - b);
  const step = steps.length === 0 ? DAY_MS : steps[steps.length >> 1]!;
  const days = step / DAY_MS;
  const kind = days < 0.9 ? "within a day" : days < 5 ? "daily" : days < 20 ? "weekly" : days < 45 ? "monthly" : "longer";
  const hasWeekends = weekends * 20 > times.length;
  return { step, kind, hasWeekends, words: WORDS[kind] };
}

/** A span without bars. */
export interface Gap {
  from: number;
  to: number;
  /** About how many bars are not there. */
  missing: number;
  /** The place of the bar before. */
  after: number;
}

/** The days of a span, ends not counted, on which bars are expected. */
function daysBetween(from: number, to: number, hasWeekends: boolean): number {
  const [first, last] = [Math.floor(from / DAY_MS) + 1, Math.floor(to / DAY_MS) - 1];
  const days = last - first + 1;
  if (days <= 0 || hasWeekends) {
    return Math.max(days, 0);
  }
  const whole = Math.floor(days / 7);
  let rest = 5 * whole;
  for (let day = first + 7 * whole; day <= last; ++day) {
    rest += isWeekend(day * DAY_MS) ? 0 : 1;
  }
  return rest;
}

// Markets close for holidays; longer pauses are gaps. Within a day nights and weekends are none.
const MOST_HOLIDAYS = 4;

/** The gaps of bars: spans in which more bars are missing than holidays explain. */
export function gapsOf(times: ArrayLike<number>): Gap[] {
  const { step, kind, hasWeekends } = cadenceOf(times);
  const gaps: Gap[] = [];
  for (let k = 1; k < times.length; ++k) {
    const [from, to] = [times[k - 1]!, times[k]!];
    if (to - from <= 1.5 * step) {
      continue;
    }
    let missing = Math.round((to - from) / step) - 1;
    if (kind === "daily") {
      missing = daysBetween(from, to, hasWeekends);
    } else if (kind === "within a day") {
      missing = to - from > 5 * DAY_MS ? daysBetween(from, to, hasWeekends) : 0;
    }
    if (missing > (kind === "daily" || kind === "within a day" ? MOST_HOLIDAYS : 0)) {
      gaps.push({ from, to, missing, after: k - 1 });
    }
  }
  return gaps;
}

/** The times of the bars that follow. */
export function nextTimes(times: Float64Array, wanted: number, cadence: Cadence = cadenceOf(times)): number[] {
  const { step, kind, hasWeekends } = cadence;
  const next: number[] = [];
  if (times.length === 0 || wanted <= 0) {
    return next;
  }
  const last = times[times.length - 1]!;
  if (kind === "daily" || kind === "within a day") {
    // The times of day that the last days had.
    const within = new Set<number>();
    for (let k = times.length - 1; k >= 0 && times[k]! > last - 6 * DAY_MS; --k) {
      within.add(((times[k]! % DAY_MS) + DAY_MS) % DAY_MS);
    }
    const hours = kind === "daily" ? [((last % DAY_MS) + DAY_MS) % DAY_MS] : [...within].sort((a, b) => a - b);
    for (let day = Math.floor(last / DAY_MS) * DAY_MS; next.length < wanted; day += DAY_MS) {
      for (const hour of hours) {
        if (day + hour > last && next.length < wanted && (hasWeekends || !isWeekend(day))) {
          next.push(day + hour);
        }
      }
    }
    return next;
  }
  const months = kind === "weekly" ? 0 : Math.max(1, Math.round(step / (30.44 * DAY_MS)));
  const date = new Date(last);
  const isMonthEnd = new Date(last + DAY_MS).getUTCDate() === 1;
  for (let k = 1; k <= wanted; ++k) {
    if (months === 0) {
      next.push(last + k * step);
    } else {
      const month = date.getUTCMonth() + k * months;
      const [year, within] = [date.getUTCFullYear() + Math.floor(month / 12), (month % 12) + 1];
      const length = 32 - new Date(dayStart(year, within, 28) + 4 * DAY_MS).getUTCDate();
      const day = isMonthEnd ? length : Math.min(date.getUTCDate(), length);
      next.push(dayStart(year, within, day) + (((last % DAY_MS) + DAY_MS) % DAY_MS));
    }
  }
  return next;
}

/** Moments along the chart: the bars, empty places where daily or longer bars are missing, and the
 * future. Between bars that are closer together the market is closed, and no place is kept. */
export interface Slots {
  time: Float64Array;
  /** The place of the bar that stands here; -1 where none does. */
  bar: Int32Array;
  /** The place of the last bar. */
  last: number;
}

const MOST_FILLED = 20000;

export function slotsOf(times: Float64Array, ahead: number): Slots {
  const cadence = cadenceOf(times);
  const { step, kind } = cadence;
  const time: number[] = [];
  const bar: number[] = [];
  let room = MOST_FILLED;
  const gaps = kind === "within a day" ? [] : gapsOf(times);
  let gap = 0;
  for (let k = 0; k < times.length; ++k) {
    time.push(times[k]!);
    bar.push(k);
    const next = gaps[gap];
    if (next === undefined || next.after !== k) {
      continue;
    }
    ++gap;
    const filled = nextTimes(times.subarray(k, k + 1), Math.min(room, next.missing + 1), cadence)
      .filter((one) => one < next.to - 0.5 * step);
    room -= filled.length;
    for (const one of filled) {
      time.push(one);
      bar.push(-1);
    }
  }
  const last = time.length - 1;
  for (const one of nextTimes(times, ahead, cadence)) {
    time.push(one);
    bar.push(-1);
  }
  return { time: Float64Array.from(time), bar: Int32Array.from(bar), last };
}
