// The columns of the Prices view's table: the bar, and the sky at it.

import { BODY_LOOKS } from "../bodies.js";
import { bodiesOf, longitudeField } from "../chart/marks.js";
import type { Clock } from "../clock.js";
import type { Column } from "../table.js";
import { angleAt } from "./panes.js";
import type { Source } from "./panes.js";

export interface BarRow {
  slot: number;
}

export function barColumns(source: Source, clock: Clock): Column<BarRow>[] {
  const { data, state } = source;
  const { bars, slots, sky, digits, isDaily } = data;
  const columns: Column<BarRow>[] = [{
    head: "Date", unit: isDaily ? "" : clock.label, isNumber: false,
    value: ({ slot }) => clock.format(slots.time[slot]!, isDaily ? "day" : "minute"),
  }];
  for (const name of ["open", "high", "low", "close"] as const) {
    columns.push({
      head: name.charAt(0).toUpperCase() + name.slice(1), digits, isNumber: true,
      value: ({ slot }) => bars[name][slots.bar[slot]!] ?? NaN,
    });
  }
  const degrees = { unit: "deg", digits: 4, isNumber: true };
  for (const body of bodiesOf(state.lines, state.centre)) {
    const field = longitudeField(state.centre);
    columns.push({ ...degrees, head: BODY_LOOKS[body].name, value: ({ slot }) => sky.value(body, field, slot) });
  }
  for (const which of state.panes) {
    if (which === "angle") {
      columns.push({ ...degrees, head: "Angle", value: ({ slot }) => angleAt(source, slot) });
      continue;
    }
    const isMotion = which === "motion";
    for (const body of state.lines) {
      columns.push({
        ...degrees, head: `${BODY_LOOKS[body].name} ${isMotion ? "motion" : "decl."}`, unit: isMotion ? "deg/day" : "deg",
        value: ({ slot }) => sky.value(body, isMotion ? "longitude_motion" : "declination", slot),
      });
    }
  }
  return columns;
}
