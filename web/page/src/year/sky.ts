// The sky of the Year view's moments.

import { position } from "zenithor";
import type { BodyName, FieldName } from "zenithor";
import { retrogradeOf } from "../chart/marks.js";
import type { Mark } from "../chart/marks.js";
import type { Span } from "../chart/retrograde.js";
import { daysOf } from "../chart/values.js";
import type { State } from "../state.js";
import type { YearSpan } from "./span.js";

/** What is computed once for a span, seen from one place. */
export interface YearSky {
  span: YearSpan;
  centre: State["centre"];
  /** Computes several bodies at once, which costs less than one by one. */
  prepare(bodies: readonly BodyName[]): void;
  values(body: BodyName, field: "longitude" | "declination"): Float64Array;
  retrograde(body: BodyName): { marks: Mark[]; spans: Span[] };
}

export function yearSky(span: YearSpan, centre: State["centre"]): YearSky {
  const days = daysOf(span.times);
  const columns = new Map<BodyName, readonly [Float64Array, Float64Array]>();
  const turning = new Map<BodyName, { marks: Mark[]; spans: Span[] }>();

  function compute(bodies: readonly BodyName[]): void {
    const fields: FieldName[] = centre === "geo" ? ["apparent_longitude", "declination"] : ["helio_longitude"];
    const width = bodies.length * fields.length;
    const found = position(bodies, days, fields);
    bodies.forEach((body, b) => {
      const one = (f: number) => days.map((_, k) => (f < fields.length ? found[k * width + b * fields.length + f]! : NaN));
      columns.set(body, [one(0), one(1)]);
    });
  }

  return {
    span,
    centre,
    prepare(bodies) {
      const missing = bodies.filter((body) => !columns.has(body));
      if (missing.length > 0) {
        compute(missing);
      }
    },
    values(body, field) {
      if (!columns.has(body)) {
        compute([body]);
      }
      const both = columns.get(body)!;
      return both[field === "longitude" ? 0 : 1];
    },
    retrograde(body) {
      let found = turning.get(body);
      if (found === undefined) {
        found = centre === "helio" ? { marks: [], spans: [] } : retrogradeOf(body, span.from, span.to);
        turning.set(body, found);
      }
      return found;
    },
  };
}
