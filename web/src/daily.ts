// When a body rises, crosses the meridian and sets on a civil day.

import { Body, BodyLike, RISE_STATUSES, RiseStatus, bodyOf } from "./codes.js";
import { checked, doubles, integers, library, room } from "./library.js";
import { Times, isMany, julianDays, unixTimeOfClock } from "./times.js";

/** Rise, transit and set of days. `julianDay`, `time` and `status` hold these three of the first day,
 * then of the second and so on. */
export interface RiseTransitSet {
  /** Julian days of universal time; NaN where there is no time. */
  julianDay: Float64Array;
  /** The same as Unix time [ms], as `new Date` takes it. */
  time: Float64Array;
  status: RiseStatus[];
  /** Unix times [ms], one for each day. */
  rise: Float64Array;
  transit: Float64Array;
  set: Float64Array;
}

type Numbers = number | ArrayLike<number>;

const UNSETTLED = RISE_STATUSES.indexOf("unsettled");
const STATUSES_AT = 6; // in the room, behind three doubles [integers]

/** When a body rises, crosses the meridian and sets on civil days.
 *
 * `body` is any but the Earth. `days` are dates (a time of day changes nothing) or Julian days of
 * universal time. `latitude` and `longitude` [deg] are the observer's, north and east positive.
 * `options.zone` [h]: the day is that of a clock so much ahead of universal time, 1 Berlin in winter,
 * -5 New York. Of the last four each is one for all or one for each day (or one day for all places).
 *
 * The centre of the body, the upper limb of Sun and Moon, at the horizon with 34' refraction; within
 * 2 minutes of published tables up to latitude 60. Where an argument is NaN, NaN and "unsettled".
 *
 *     new Date(rise("sun", "2026-11-21", 59.33, 18.07, { zone: 1 }).rise[0]) // 06:55 UTC
 */
export function rise(
  body: BodyLike, days: Times, latitude: Numbers, longitude: Numbers, options: { zone?: Numbers } = {},
): RiseTransitSet {
  const code = bodyOf(body);
  if (code === Body.earth) {
    throw new RangeError("body: the Earth does not rise");
  }
  const zone = options.zone ?? 0;
  // A calendar date as it stands; a number is a moment of universal time.
  const given = { days: julianDays(days, "tt", "days"), latitude, longitude, zone };
  const isMoment = (k: number) => typeof (isMany(days) ? days[k] : days) === "number";
  const lengths = Object.entries({ ...given, days }).filter(([, values]) => isMany(values));
  const size = lengths.length === 0 ? 1 : (lengths[0]![1] as ArrayLike<unknown>).length;
  for (const [name, values] of lengths) {
    const { length } = values as ArrayLike<unknown>;
    if (length !== size) {
      throw new RangeError(`${name}: ${length} of them, but ${size} of ${lengths[0]![0]}`);
    }
  }
  const at = (name: "latitude" | "longitude" | "zone", k: number): number => {
    const values = given[name];
    const value = typeof values === "number" ? values : values[k]!;
    const isWrong = name === "latitude" ? Math.abs(value) > 90 : Math.abs(value) === Infinity;
    if (typeof value !== "number" || isWrong) {
      const limit = name === "latitude" ? "a number from -90 to 90" : "a finite number";
      throw new RangeError(`${isMany(values) ? `${name}[${k}]` : name}: ${value} is not ${limit}`);
    }
    return value;
  };

  const julianDay = new Float64Array(3 * size).fill(NaN);
  const status: RiseStatus[] = [];
  for (let k = 0; k < size; ++k) {
    const hours = at("zone", k);
    const day = given.days[isMany(days) ? k : 0]!;
    const local = isMoment(k) ? day + hours / 24 : day;
    const moment = Math.floor(local + 0.5) - hours / 24;
    const place = [at("longitude", k), at("latitude", k)] as const;
    integers.fill(UNSETTLED, STATUSES_AT, STATUSES_AT + 3);
    doubles.fill(NaN, 0, 3);
    if (![moment, hours, ...place].some(Number.isNaN)) {
      checked(library.Daily(code, moment, hours, ...place, room, room + 4 * STATUSES_AT), "rise");
    }
    julianDay.set(doubles.subarray(0, 3), 3 * k);
    for (let which = 0; which < 3; ++which) {
      status.push(RISE_STATUSES[integers[STATUSES_AT + which]!]!);
    }
  }
  const time = julianDay.map(unixTimeOfClock);
  const each = (which: number) => time.filter((_, k) => k % 3 === which);
  return { julianDay, time, status, rise: each(0), transit: each(1), set: each(2) };
}
