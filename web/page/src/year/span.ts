// The moments of the Year view, and what the sky shows in its span.

import type { Clock } from "../clock.js";
import { FIRST_YEAR, LAST_YEAR } from "../state.js";
import type { State } from "../state.js";

const DAY_MS = 86400e3;
// What is answered ends with the year 3999 in dynamical time, some hours from the clock's.
const LATEST = Date.UTC(LAST_YEAR, 11, 31);

export interface YearSpan {
  from: number;
  to: number;
  /** Days between two moments. */
  step: number;
  /** The moments, the ends among them. */
  times: Float64Array;
  /** "2026", "2026 to 2028" */
  words: string;
}

/** The span that the state asks for, inside the years that are answered. The steps are such that a drawing
 * needs at most a thousand moments. */
export function yearSpan(state: Pick<State, "from" | "years">, clock: Clock): YearSpan {
  const first = Math.min(Math.max(state.from, FIRST_YEAR), LAST_YEAR);
  const years = Math.min(state.years, LAST_YEAR + 1 - first);
  const from = clock.at(first, 0, 1);
  const to = Math.min(clock.at(first + years, 0, 1), LATEST);
  const step = years <= 2 ? 1 : years <= 5 ? 2 : 4;
  const times: number[] = [];
  for (let time = from; time < to; time += step * DAY_MS) {
    times.push(time);
  }
  times.push(to);
  const words = years === 1 ? String(first) : `${first} to ${first + years - 1}`;
  return { from, to, step, times: Float64Array.from(times), words };
}
