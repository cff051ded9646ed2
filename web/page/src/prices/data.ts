// What a chart of prices is drawn from: places along its axis, and the sky there.

import type { Clock } from "../clock.js";
import { clockOf } from "../clock.js";
import { longitudeField, retrogradeOf } from "../chart/marks.js";
import type { Centre, Mark } from "../chart/marks.js";
import type { Span } from "../chart/retrograde.js";
import { plainStrokes } from "../chart/strokes.js";
import type { Stroke } from "../chart/strokes.js";
import type { BodyName } from "zenithor";
import type { Bars } from "./bars.js";
import { cadenceOf, slotsOf } from "./cadence.js";
import type { Slots } from "./cadence.js";
import { angleBetween, skyAt } from "./sky.js";
import type { Sky } from "./sky.js";

const HOUR_MS = 3600e3;
// What is answered ends with the year 3999.
const LATEST = Date.UTC(3999, 11, 31);
/** Events are searched in so many years at the most, the last ones. */
export const MOST_YEARS = 150;

export interface ChartData {
  bars: Bars;
  slots: Slots;
  sky: Sky;
  /** Whether bars are days or longer, which have a date and no time of day. */
  isDaily: boolean;
  /** The most digits behind the point that the prices have. */
  digits: number;
  isPositive: boolean;
  /** The span in which events are searched. */
  from: number;
  to: number;
  retrograde(body: BodyName): { marks: Mark[]; spans: Span[] };
}

function digitsOf(bars: Bars): number {
  let digits = 0;
  const size = bars.close.length;
  for (let k = Math.max(0, size - 300); k < size; ++k) {
    for (const price of [bars.open[k]!, bars.close[k]!]) {
      while (digits < 8 && Math.abs(price - Number(price.toFixed(digits))) > 1e-9 * Math.abs(price)) {
        ++digits;
      }
    }
  }
  return digits;
}

/** The places up to the end of the years that are answered. */
function answered({ time, bar, last }: Slots): Slots {
  const size = time.findIndex((one) => one > LATEST);
  return size < 0 ? { time, bar, last } : { time: time.slice(0, size), bar: bar.slice(0, size), last: Math.min(last, size - 1) };
}

/** Daily and longer bars stand for their date at the given hour of UTC. */
export function chartData(bars: Bars, ahead: number, hour: number): ChartData {
  const isDaily = cadenceOf(bars.time).kind !== "within a day";
  const slots = answered(slotsOf(bars.time, ahead));
  const times = isDaily ? slots.time.map((time) => time + Math.min(hour, 23.99) * HOUR_MS) : slots.time;
  const turning = new Map<BodyName, { marks: Mark[]; spans: Span[] }>();
  const to = times[times.length - 1]! + 1;
  const from = Math.max(times[0]!, to - MOST_YEARS * 365.25 * 24 * HOUR_MS);
  return {
    bars, slots, isDaily, from, to,
    sky: skyAt(times),
    digits: digitsOf(bars),
    isPositive: bars.low.every((price) => price > 0),
    retrograde(body) {
      let found = turning.get(body);
      if (found === undefined) {
        found = retrogradeOf(body, from, to);
        turning.set(body, found);
      }
      return found;
    },
  };
}

/** Dates of bars are dates and belong to no zone; times within a day are shown in the chosen one. */
export function axisClock(data: ChartData, clock: Clock): Clock {
  return data.isDaily ? clockOf("utc") : clock;
}

/** The lines of a further pane where so much is seen; the body that has none is left out. */
export function paneStrokes(
  data: ChartData, which: "declination" | "motion", body: BodyName, first: number, last: number,
): Stroke[] {
  const points = data.sky.points(body, which === "motion" ? "longitude_motion" : "declination", first, last);
  return plainStrokes(points.x, points.value);
}

export function angleStrokes(
  data: ChartData, first: BodyName, second: BodyName, centre: Centre, from: number, to: number,
): Stroke[] {
  const field = longitudeField(centre);
  const angle = angleBetween(data.sky.points(first, field, from, to), data.sky.points(second, field, from, to));
  return plainStrokes(angle.x, angle.value);
}

/** The lowest and the highest price of some of the bars. */
export function priceRange(bars: Bars, first: number, last: number): [number, number] {
  let [low, high] = [Infinity, -Infinity];
  for (let k = Math.max(first, 0); k <= Math.min(last, bars.low.length - 1); ++k) {
    low = Math.min(low, bars.low[k]!);
    high = Math.max(high, bars.high[k]!);
  }
  return [low, high];
}
