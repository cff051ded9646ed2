// When bodies rise, cross the meridian and set on the days of a clock, and when the Sun is up.

import { rise } from "zenithor";
import type { BodyName, RiseStatus } from "zenithor";
import type { Clock } from "../clock.js";
import type { Spot } from "./places.js";

export interface Rising {
  body: BodyName;
  /** Unix times [ms], NaN where there is none, and why. */
  rise: number;
  transit: number;
  set: number;
  status: readonly [RiseStatus, RiseStatus, RiseStatus];
}

const noon = (clock: Clock, year: number, month: number, day: number) => clock.at(year, month, day, 12);

/** A calendar day as the library takes it: its date, whatever the clock. */
function date(year: number, month: number, day: number): Date {
  const answer = new Date(0);
  answer.setUTCFullYear(year, month, day);
  return answer;
}

/** Of one body on one day: the civil day of the clock as it goes at noon. */
export function risingOf(body: BodyName, [year, month, day]: readonly [number, number, number], spot: Spot, clock: Clock): Rising {
  const zone = clock.offset(noon(clock, year, month, day));
  const found = rise(body, date(year, month, day), spot.latitude, spot.longitude, { zone });
  const [first, second, third] = found.status;
  return { body, rise: found.rise[0]!, transit: found.transit[0]!, set: found.set[0]!, status: [first!, second!, third!] };
}

/** A day of the Sun; times and spans in hours of the clock, 0 to 24. */
export interface SunDay {
  /** Unix time [ms] of noon. */
  noon: number;
  rise: number;
  transit: number;
  set: number;
  status: Rising["status"];
  /** When the Sun is up. */
  up: readonly (readonly [number, number])[];
  daylight: number;
}

/** What a clock shows, in hours of its day. */
function hours(clock: Clock, time: number): number {
  const [, , , hour, minute, second] = clock.parts(time);
  return hour + minute / 60 + (second + (time - Math.floor(time / 1000) * 1000) / 1000) / 3600;
}

/** Every day of a year. Whether the Sun is up as a day begins is what the day before ended with. */
export function sunYear(year: number, spot: Spot, clock: Clock): SunDay[] {
  const length = Math.round((date(year + 1, 0, 1).getTime() - date(year, 0, 1).getTime()) / 86400e3);
  const noons = Array.from({ length }, (_, k) => noon(clock, year, 0, 1 + k));
  const days = noons.map((_, k) => date(year, 0, 1 + k));
  const found = rise("sun", days, spot.latitude, spot.longitude, { zone: noons.map(clock.offset) });
  let isUp: boolean | null = null;
  return noons.map((moment, k) => {
    const [rises, transit, sets] = [found.rise[k]!, found.transit[k]!, found.set[k]!].map((time) => hours(clock, time)) as
      [number, number, number];
    const status = found.status.slice(3 * k, 3 * k + 3) as unknown as Rising["status"];
    const turns = [
      ...(Number.isFinite(rises) ? [{ at: rises, isRise: true }] : []),
      ...(Number.isFinite(sets) ? [{ at: sets, isRise: false }] : []),
    ].sort((a, b) => a.at - b.at);
    if (turns.length > 0) {
      isUp = !turns[0]!.isRise;
    } else if (status[0] === "always_up" || status[0] === "never_up") {
      isUp = status[0] === "always_up";
    }
    const up: [number, number][] = [];
    let since = 0;
    for (const { at, isRise } of turns) {
      if (isUp && !isRise) {
        up.push([since, at]);
      }
      isUp = isRise;
      since = at;
    }
    if (isUp) {
      up.push([since, 24]);
    }
    const daylight = up.reduce((sum, [from, to]) => sum + to - from, 0);
    return { noon: moment, rise: rises, transit, set: sets, status, up, daylight };
  });
}

/** Spans of days, first and last, on which the Sun does not set or does not rise. */
export function polarSpans(days: readonly SunDay[]): { status: "always_up" | "never_up"; first: number; last: number }[] {
  const spans: { status: "always_up" | "never_up"; first: number; last: number }[] = [];
  days.forEach(({ status: [status] }, k) => {
    if (status === "always_up" || status === "never_up") {
      const open = spans.at(-1);
      if (open && open.status === status && open.last === k - 1) {
        open.last = k;
      } else {
        spans.push({ status, first: k, last: k });
      }
    }
  });
  return spans;
}
