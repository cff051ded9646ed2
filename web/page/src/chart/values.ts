// Values of bodies at the moments along an axis, computed when they are first needed.

import { julianDay, position } from "zenithor";
import type { BodyName, FieldName } from "zenithor";

const EPOCH = 2440587.5;

/** Julian days (TT) of Unix times [ms]. */
export function daysOf(times: Float64Array): Float64Array {
  return julianDay(times.map((time) => time / 86400e3 + EPOCH), { scale: "utc" });
}

/** Values of one field of a body at places along the axis: those that a drawing needs are filled in, at
 * every `step`-th place, and kept. */
export interface Column {
  values: Float64Array;
  /** Fills the places from `first` to `last` that are multiples of `step`. */
  fill(first: number, last: number, step: number): void;
}

export function column(body: BodyName, field: FieldName, days: Float64Array): Column {
  const values = new Float64Array(days.length).fill(NaN);
  return {
    values,
    fill(first, last, step) {
      const missing: number[] = [];
      for (let k = Math.ceil(first / step) * step; k <= last; k += step) {
        if (Number.isNaN(values[k]!)) {
          missing.push(k);
        }
      }
      if (missing.length > 0) {
        const found = position([body], Float64Array.from(missing, (k) => days[k]!), [field]);
        missing.forEach((k, place) => {
          values[k] = found[place]!;
        });
      }
    },
  };
}

/** Columns by body and field, for one axis. */
export function columnsFor(days: Float64Array): (body: BodyName, field: FieldName) => Column {
  const columns = new Map<string, Column>();
  return (body, field) => {
    const key = `${body} ${field}`;
    let found = columns.get(key);
    if (found === undefined) {
      found = column(body, field, days);
      columns.set(key, found);
    }
    return found;
  };
}
