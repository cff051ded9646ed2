// What the fixed place beside the chart says of a bar and of the sky at it.

import { zodiac } from "../bodies.js";
import { bodyOf, longitudeField } from "../chart/marks.js";
import { signed } from "../chart/readout.js";
import type { Value } from "../chart/readout.js";
import type { Clock } from "../clock.js";
import { nearestLine } from "./family.js";
import type { Family } from "./family.js";
import { angleAt } from "./panes.js";
import type { Source } from "./panes.js";

/** The bar's date and prices, and the angle where a pane has it. */
export function barWords(source: Source, clock: Clock, slot: number): string {
  const { bars, slots, sky, digits, isDaily } = source.data;
  const k = slots.bar[slot]!;
  const when = clock.format(slots.time[slot]!, isDaily ? "day" : "minute");
  const zone = isDaily ? `sky at ${clock.hourMinute(sky.times[slot]!)} UTC` : clock.label;
  const names = ["open", "high", "low", "close"] as const;
  const prices = k >= 0
    ? names.map((name) => `${name} ${bars[name][k]!.toFixed(digits)}`).join("  ")
    : slot > slots.last ? "beyond the last bar" : "no bar";
  const angle = source.state.panes.includes("angle") ? `  angle ${angleAt(source, slot).toFixed(2)}°` : "";
  return `${when}, ${zone}:  ${prices}${angle}`;
}

/** The values of the bodies: longitude, the line of its family that is next to the close, and what the further
 * panes have. */
export function bodyValues(source: Source, family: Family, slot: number): Value[] {
  const { state, data } = source;
  const { bars, slots, sky, digits } = data;
  const close = bars.close[slots.bar[slot]!] ?? bars.close[bars.close.length - 1]!;
  return state.lines.flatMap((listed) => {
    const body = bodyOf(listed, state.centre);
    if (body === null) {
      return [];
    }
    const longitude = sky.value(body, longitudeField(state.centre), slot);
    const cells = [`${longitude.toFixed(2)}°`, zodiac(longitude)];
    if (state.scale === "price") {
      cells.push(`line ${nearestLine(longitude, close, family).price.toFixed(Math.max(digits, 2))}`);
    }
    if (state.panes.includes("declination")) {
      cells.push(`${signed(sky.value(listed, "declination", slot), 2)}°`);
    }
    if (state.panes.includes("motion")) {
      cells.push(`${signed(sky.value(listed, "longitude_motion", slot), 3)}°/d`);
    }
    return [{ body, cells }];
  });
}
