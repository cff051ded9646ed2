// The sky at the bars of a chart: values where they are seen, lines from them.

import type { BodyName, FieldName } from "zenithor";
import { daysOf, columnsFor } from "../chart/values.js";
import type { Column } from "../chart/values.js";
import { shortestWay } from "../chart/strokes.js";

/** The most values of a line that are computed for one drawing. */
const MOST_PLACES = 1200;
// Between two places a body has to be seen to move less than half a circle.
const LARGEST_STEP = 150;

/** The greatest motions [deg/day], of the Earth the Sun's. */
const FASTEST: Readonly<Record<BodyName, number>> = {
  sun: 1.02, moon: 15.4, mercury: 6.4, venus: 1.7, earth: 1.02, mars: 0.8, jupiter: 0.3, saturn: 0.15,
  uranus: 0.1, neptune: 0.05, pluto: 0.05,
};

/** A line's points, in the order of time; `NaN` where it is interrupted. */
export interface Points {
  x: number[];
  value: number[];
}

export interface Sky {
  times: Float64Array;
  /** A value at one place. */
  value(body: BodyName, field: FieldName, slot: number): number;
  /** The values of what is seen from `first` to `last` and a little beyond. A longitude is interrupted where
   * the places lie too far apart to tell how it moved. */
  points(body: BodyName, field: FieldName, first: number, last: number): Points;
  /** Whether the places of a drawing lie too far apart for a longitude of the body. */
  isTooFast(body: BodyName, first: number, last: number): boolean;
}

/** A drawing has a value at every so many places. */
function strideOf(first: number, last: number): number {
  return 2 ** Math.max(0, Math.ceil(Math.log2((last - first + 1) / MOST_PLACES)));
}

const longestStep = (body: BodyName) => (LARGEST_STEP / FASTEST[body]) * 86400e3;

const LONGITUDES: readonly FieldName[] = ["apparent_longitude", "helio_longitude"];

export function skyAt(times: Float64Array): Sky {
  const columns = columnsFor(daysOf(times));
  return {
    times,
    value(body, field, slot) {
      const column: Column = columns(body, field);
      column.fill(slot, slot, 1);
      return column.values[slot]!;
    },
    points(body, field, first, last) {
      const column = columns(body, field);
      const stride = strideOf(first, last);
      const from = Math.max(0, (Math.floor(first / stride) - 1) * stride);
      const to = Math.min(times.length - 1, (Math.ceil(last / stride) + 1) * stride);
      column.fill(from, to, stride);
      column.fill(to, to, 1);
      const points: Points = { x: [], value: [] };
      const most = LONGITUDES.includes(field) ? longestStep(body) : Infinity;
      const add = (slot: number) => {
        const before = points.x[points.x.length - 1];
        if (before !== undefined && times[slot]! - times[before]! > most) {
          points.x.push(slot);
          points.value.push(NaN);
        }
        points.x.push(slot);
        points.value.push(column.values[slot]!);
      };
      for (let slot = from; slot <= to; slot += stride) {
        add(slot);
      }
      if (points.x[points.x.length - 1]! < to) {
        add(to);
      }
      return points;
    },
    isTooFast(body, first, last) {
      const places = (last - first) / strideOf(first, last);
      return last > first && (times[last]! - times[first]!) / places > longestStep(body);
    },
  };
}

/** The angle between two longitudes [deg], 0 to 180. */
export function angleBetween(first: Points, second: Points): Points {
  const x: number[] = [];
  const value: number[] = [];
  const others = new Map(second.x.map((slot, k) => [slot, second.value[k]!]));
  first.x.forEach((slot, k) => {
    x.push(slot);
    value.push(Math.abs(shortestWay(first.value[k]!, others.get(slot) ?? NaN)));
  });
  return { x, value };
}
