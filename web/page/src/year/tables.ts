// The columns of the Year view's table of positions.

import type { BodyName } from "zenithor";
import { BODY_LOOKS } from "../bodies.js";
import type { Clock } from "../clock.js";
import type { State } from "../state.js";
import type { Column } from "../table.js";
import type { YearSky } from "./sky.js";

export interface PositionRow {
  slot: number;
}

/** A date, then the longitudes and the declinations of the bodies, as many as are drawn. */
export function positionColumns(
  sky: YearSky, bodies: readonly BodyName[], curve: State["curve"], clock: Clock,
): Column<PositionRow>[] {
  const columns: Column<PositionRow>[] = [{
    head: "Date", unit: clock.label, isNumber: false, value: ({ slot }) => clock.format(sky.span.times[slot]!),
  }];
  for (const field of ["longitude", "declination"] as const) {
    for (const body of curve === "both" || curve === field ? bodies : []) {
      const head = `${BODY_LOOKS[body].name}${field === "declination" ? " decl." : ""}`;
      columns.push({ head, unit: "deg", digits: 4, isNumber: true, value: ({ slot }) => sky.values(body, field)[slot]! });
    }
  }
  return columns;
}
