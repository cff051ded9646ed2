// Moments: from what users hand over to Julian days of dynamical time (TT), and back.

import { shown } from "./codes.js";
import { library } from "./library.js";

/** A moment. Dates and texts are clock time (UTC, before 1972 universal time; a text may name
 * another zone: "2026-11-21T06:30+01:00"), numbers are Julian days of dynamical time (TT).
 * `null`, NaN and invalid dates are no moment, and what is asked for them is NaN. */
export type Moment = number | Date | string | null;

/** One moment or several. A `Float64Array` of Julian days is taken as it stands. */
export type Times = Moment | readonly Moment[] | ArrayLike<number>;

/** The time scale of all moments of a call, where it is not the one above. */
export type Scale = "utc" | "tt";

const EPOCH = 2440587.5; // Julian day of 1970 January 1, 0h
const DAY_MS = 86400e3;

function isDate(value: unknown): value is Date {
  return Object.prototype.toString.call(value) === "[object Date]";
}

/** Whether it is a Float64Array, of whichever window or frame. */
export function isDoubles(value: unknown): value is Float64Array {
  return Object.prototype.toString.call(value) === "[object Float64Array]";
}

/** Whether several are given and not one. */
export function isMany(values: unknown): values is ArrayLike<unknown> {
  return typeof values === "object" && values !== null && !isDate(values) && "length" in values;
}

const ISO =
  /^([+-]?\d{4,6})(?:-(\d\d)(?:-(\d\d)(?:[T ](\d\d):(\d\d)(?::(\d\d(?:\.\d+)?))?(Z|[+-]\d\d(?::?\d\d)?)?)?)?)?$/i;

/** The Julian day of a text in its own time scale, Gregorian throughout; NaN where it is none. */
function dayOfText(text: string): number {
  const parts = ISO.exec(text.trim());
  if (parts === null) {
    return NaN;
  }
  const [year, month, day] = [Number(parts[1]), Number(parts[2] ?? 1), Number(parts[3] ?? 1)];
  const [hour, minute, second] = [Number(parts[4] ?? 0), Number(parts[5] ?? 0), Number(parts[6] ?? 0)];
  const midnight = new Date(0);
  midnight.setUTCFullYear(year, month - 1, day);
  const isDay = midnight.getUTCMonth() === month - 1 && midnight.getUTCDate() === day;
  if (!isDay || hour > 23 || minute > 59 || second >= 60) {
    return NaN;
  }
  const zone = /^([+-])(\d\d):?(\d\d)?$/.exec(parts[7] ?? "");
  const ahead = zone === null ? 0 : Number(zone[1] + "1") * (60 * Number(zone[2]) + Number(zone[3] ?? 0));
  const milliseconds = ((60 * hour + minute - ahead) * 60 + second) * 1000;
  return midnight.getTime() / DAY_MS + EPOCH + milliseconds / DAY_MS;
}

/** The Julian day of one element. */
function dayOf(value: unknown, scale: Scale | undefined, where: string): number {
  let day = NaN;
  let isClock = true;
  if (typeof value === "number") {
    day = value;
    isClock = false;
  } else if (isDate(value)) {
    const time = value.getTime();
    const whole = Math.floor(time / DAY_MS);
    day = whole + EPOCH + (time - whole * DAY_MS) / DAY_MS;
  } else if (typeof value === "string") {
    day = dayOfText(value);
    if (Number.isNaN(day)) {
      throw new RangeError(
        `${where}: ${shown(value)} is not a date or time; write 2026-11-21, 2026-11-21T06:30 or ` +
          "2026-11-21T06:30+01:00",
      );
    }
  } else if (value !== null) {
    throw new RangeError(
      `${where}: ${shown(value)} is not a moment; a Date, an ISO text or a Julian day is`,
    );
  }
  return scale === "utc" || (isClock && scale === undefined) ? library.ClockToDynamical(day) : day;
}

/** Julian days of dynamical time. */
export function julianDays(times: unknown, scale: Scale | undefined, argument: string): Float64Array {
  if (scale !== undefined && scale !== "tt" && scale !== "utc") {
    throw new RangeError(
      `scale: ${shown(scale)} is neither "tt" (dynamical time) nor "utc" (clock time)`,
    );
  }
  if (isDoubles(times) && scale !== "utc") {
    return times;
  }
  if (!isMany(times)) {
    return Float64Array.of(dayOf(times, scale, argument));
  }
  const days = new Float64Array(times.length);
  for (let k = 0; k < days.length; ++k) {
    days[k] = dayOf(times[k], scale, `${argument}[${k}]`);
  }
  return days;
}

/** The Julian day of a single moment. */
export function oneDay(time: unknown, scale: Scale | undefined, argument: string): number {
  if (isMany(time)) {
    throw new RangeError(`${argument}: one moment is needed, not ${time.length} of them`);
  }
  return julianDays(time, scale, argument)[0]!;
}

/** Unix time [ms], to the nearest millisecond, of a Julian day of clock time. */
export function unixTimeOfClock(day: number): number {
  const whole = Math.floor(day - 0.5);
  return (whole - (EPOCH - 0.5)) * DAY_MS + Math.round((day - 0.5 - whole) * DAY_MS);
}

/** Unix times [ms] of Julian days of dynamical time. */
export function unixTimes(days: Float64Array): Float64Array {
  return days.map((day) => unixTimeOfClock(library.DynamicalToClock(day)));
}

/** Julian days of dynamical time (TT) of one or several moments. NaN for `null`, NaN, invalid dates,
 * and for clock times beyond day 1e8 either way. A `RangeError` says which element is no moment.
 *
 *     julianDay("2000-01-01T11:58:55.816") // 2451545
 */
export function julianDay(times: Moment, options?: { scale?: Scale }): number;
export function julianDay(times: Times, options?: { scale?: Scale }): Float64Array;
export function julianDay(times: Times, options: { scale?: Scale } = {}): number | Float64Array {
  const days = julianDays(times, options.scale, "times");
  return isMany(times) ? days.slice() : days[0]!;
}

/** Unix time [ms], as `new Date` takes it, of one or several Julian days of dynamical time (TT). */
export function unixTime(julianDay: number): number;
export function unixTime(julianDays: ArrayLike<number>): Float64Array;
export function unixTime(julianDays: number | ArrayLike<number>): number | Float64Array {
  return typeof julianDays === "number"
    ? unixTimeOfClock(library.DynamicalToClock(julianDays))
    : unixTimes(Float64Array.from(julianDays));
}
