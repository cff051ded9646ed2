// When something happens: crossings, ingresses, stations, aspects; seasons, phases, eclipses.

import {
  BodyLike, BodyName, EventKindName, FieldLike, KindLike, OneOrMany, bodiesOf, bodyName, bodyOf,
  eventKindName, fieldName, fieldOf, kindSetOf, shown,
} from "./codes.js";
import { FIRST_DAY, LAST_DAY, checked, doubles, integers, library, room } from "./library.js";
import { Moment, Scale, isMany, oneDay, unixTimes } from "./times.js";

/** Moments found by a search, in the order of time: columns of the same length. */
export interface Moments {
  /** Julian days of dynamical time (TT). */
  julianDay: Float64Array;
  /** The same as Unix time [ms], as `new Date` takes it. */
  time: Float64Array;
}

/** Seasons, phases, eclipses. */
export interface Events extends Moments {
  kind: EventKindName[];
}

/** Moments at which a field takes a value. */
export interface Crossings extends Moments {
  body: BodyName[];
  target: Float64Array;
  /** 1 where the field rises through it, -1 where it falls, 0 where it touches it. */
  direction: Int32Array;
}

/** Moments at which a field turns. */
export interface Stations extends Moments {
  body: BodyName[];
  /** 1 where it begins to rise (a planet turns direct), -1 where it begins to fall (retrograde). */
  direction: Int32Array;
}

/** Moments at which two bodies stand at an angle. */
export interface Aspects extends Moments {
  body: BodyName[];
  other: BodyName[];
  angle: Float64Array;
  /** 1 where `body` less `other` is `angle`, -1 where it is `-angle`. */
  direction: Int32Array;
}

export interface SearchOptions {
  /** `apparent_longitude` where nothing else is said. */
  field?: FieldLike;
  /** What `start` and `end` are given in, if not clock time for dates and texts and dynamical time
   * for numbers. */
  scale?: Scale;
}

// So many moments have room, each with a number.
const CAPACITY = Math.floor((1 << 20) / 12);
const CODES_AT = 2 * CAPACITY; // [integers]

type Found = { days: number[]; codes: number[] };
type Ask = (from: number, to: number, daysAt: number, codesAt: number, capacity: number) => number;

function spanOf(start: Moment, end: Moment, scale: Scale | undefined): [number, number] {
  const days = [oneDay(start, scale, "start"), oneDay(end, scale, "end")] as [number, number];
  days.forEach((day, k) => {
    if (!(day >= FIRST_DAY && day <= LAST_DAY)) {
      throw new RangeError(
        `${k === 0 ? "start" : "end"}: ${shown(k === 0 ? start : end)} is not a moment between the ` +
          `years -2000 and 4000 (Julian days ${FIRST_DAY} to ${LAST_DAY})`,
      );
    }
  });
  return days;
}

/** One finite number, or several. */
function numbersOf(values: unknown, argument: string): number[] {
  return Array.from(isMany(values) ? values : [values], (value, k) => {
    if (typeof value !== "number" || !Number.isFinite(value)) {
      const where = isMany(values) ? `${argument}[${k}]` : argument;
      throw new RangeError(`${where}: ${shown(value)} is not a finite number`);
    }
    return value;
  });
}

/** All moments of a span, and the number of each. A span that has more than there is room for is
 * searched in halves, which together hold the same. */
function collect(ask: Ask, [from, to]: [number, number], question: string, found: Found): Found {
  const count = checked(ask(from, to, room, room + 4 * CODES_AT, CAPACITY), question);
  if (count > CAPACITY) {
    const middle = from + (to - from) / 2;
    collect(ask, [from, middle], question, found);
    return collect(ask, [middle, to], question, found);
  }
  for (let k = 0; k < count; ++k) {
    found.days.push(doubles[k]!);
    found.codes.push(integers[CODES_AT + k]!);
  }
  return found;
}

/** The moments of several searches in the order of time: their days, and of which search and number
 * each is. */
function inOrder(parts: readonly Found[]) {
  const all = parts.flatMap(({ days, codes }, part) =>
    days.map((day, k) => ({ day, code: codes[k]!, part })),
  );
  all.sort((a, b) => a.day - b.day);
  const julianDay = Float64Array.from(all, ({ day }) => day);
  return {
    julianDay,
    time: unixTimes(julianDay),
    codes: Int32Array.from(all, ({ code }) => code),
    parts: all.map(({ part }) => part),
  };
}

/** Equinoxes and solstices, phases of the Moon, eclipses of a span, which holds `start` and not
 * `end`; in the years -2000 to 4000. `kinds` is one or several, or the sets "seasons", "phases",
 * "solar_eclipses", "lunar_eclipses", "eclipses", "all". None is missed and none given twice; an
 * eclipse and the new or full moon of that day are two events.
 *
 *     events("2026", "2027", "solar_eclipses").kind // ["solar_annular", "solar_total"]
 */
export function events(
  start: Moment, end: Moment, kinds: OneOrMany<KindLike> = "all", options: { scale?: Scale } = {},
): Events {
  const bits = kindSetOf(kinds);
  const span = spanOf(start, end, options.scale);
  const ask: Ask = (...rest) => library.EventsOfKinds(bits, ...rest);
  const { julianDay, time, codes } = inOrder([collect(ask, span, "events", { days: [], codes: [] })]);
  return { julianDay, time, kind: Array.from(codes, eventKindName) };
}

function crossingsOf(
  bodies: OneOrMany<BodyLike>, field: number, targets: readonly number[], span: [number, number],
): Crossings {
  const asked = bodiesOf(bodies).flatMap((body) => targets.map((target) => ({ body, target })));
  const { julianDay, time, codes, parts } = inOrder(
    asked.map(({ body, target }) =>
      collect(
        (...rest) => library.DirectedCrossings(body, field, target, ...rest),
        span,
        `crossings of ${bodyName(body)}, ${fieldName(field)}`,
        { days: [], codes: [] },
      ),
    ),
  );
  return {
    julianDay,
    time,
    body: parts.map((part) => bodyName(asked[part]!.body)),
    target: Float64Array.from(parts, (part) => asked[part]!.target),
    direction: codes,
  };
}

/** The moments of a span at which a field of a body takes a value: any field that the bodies have;
 * `targets` in its unit, longitudes modulo 360, right ascension modulo 24. Good to 1e-6 day of the
 * library's own values where the field changes by more than 1e-4 of its unit a day; contacts that
 * only just happen are found.
 *
 *     crossings("moon", "declination", 0, "2026-11", "2026-12")
 */
export function crossings(
  bodies: OneOrMany<BodyLike>, field: FieldLike, targets: OneOrMany<number> | ArrayLike<number>,
  start: Moment, end: Moment, options: { scale?: Scale } = {},
): Crossings {
  const code = fieldOf(field);
  return crossingsOf(bodies, code, numbersOf(targets, "targets"), spanOf(start, end, options.scale));
}

/** The moments of a span at which a body passes from one sign of the zodiac into another: at which
 * its longitude takes a multiple of 30 degrees. `target` is the boundary, 0 for Aries, 30 for Taurus
 * and so on. Where `direction` is 1 the body enters the sign that begins there, where it is -1
 * (retrograde) the sign before.
 *
 *     ingresses("sun", "2026-01-01", "2026-04-01").target // 300, 330, 0
 */
export function ingresses(
  bodies: OneOrMany<BodyLike>, start: Moment, end: Moment, options: SearchOptions = {},
): Crossings {
  const field = fieldOf(options.field ?? "apparent_longitude");
  if (library.FieldPeriod(field) !== 360) {
    throw new RangeError(`field: ${fieldName(field)} is no longitude, so it has no signs`);
  }
  const boundaries = Array.from({ length: 12 }, (_, sign) => 30 * sign);
  return crossingsOf(bodies, field, boundaries, spanOf(start, end, options.scale));
}

/** The moments of a span at which a longitude (`apparent_longitude`, `geo_longitude`,
 * `helio_longitude`) or the `declination` turns. The longitudes of the Sun and the Moon never do.
 * Good to 1e-6 day; Uranus, Neptune and Pluto to 1e-5 day.
 *
 *     stations("mercury", "2026-01-01", "2026-07-01").direction // -1, 1, -1
 */
export function stations(
  bodies: OneOrMany<BodyLike>, start: Moment, end: Moment, options: SearchOptions = {},
): Stations {
  const asked = bodiesOf(bodies);
  const field = fieldOf(options.field ?? "apparent_longitude");
  const span = spanOf(start, end, options.scale);
  const { julianDay, time, codes, parts } = inOrder(
    asked.map((body) =>
      collect(
        (...rest) => library.DirectedStations(body, field, ...rest),
        span,
        `stations of ${bodyName(body)}, ${fieldName(field)}`,
        { days: [], codes: [] },
      ),
    ),
  );
  return { julianDay, time, body: parts.map((part) => bodyName(asked[part]!)), direction: codes };
}

/** The moments of a span at which a body and another stand at an angle [deg]: 0 conjunction, 90
 * square, 120 trine, 180 opposition, any other; both ways round are found. Of `declination` 0 is the
 * parallel. Good to 1e-6 day; contacts that only just happen, before a station, are found.
 *
 *     aspects("jupiter", "saturn", 0, "2020", "2021") // 2020-12-21T18:20
 */
export function aspects(
  body: BodyLike, others: OneOrMany<BodyLike>, angles: OneOrMany<number> | ArrayLike<number>,
  start: Moment, end: Moment, options: SearchOptions = {},
): Aspects {
  const code = bodyOf(body);
  const otherCodes = bodiesOf(others, "others");
  const field = fieldOf(options.field ?? "apparent_longitude");
  const values = numbersOf(angles, "angles");
  const span = spanOf(start, end, options.scale);
  const asked = otherCodes.flatMap((other) => values.map((angle) => ({ other, angle })));
  const { julianDay, time, codes, parts } = inOrder(
    asked.map(({ other, angle }) =>
      collect(
        (...rest) => library.DirectedAspects(code, other, field, angle, ...rest),
        span,
        `aspects of ${bodyName(code)} and ${bodyName(other)}, ${fieldName(field)}`,
        { days: [], codes: [] },
      ),
    ),
  );
  return {
    julianDay,
    time,
    body: parts.map(() => bodyName(code)),
    other: parts.map((part) => bodyName(asked[part]!.other)),
    angle: Float64Array.from(parts, (part) => asked[part]!.angle),
    direction: codes,
  };
}
