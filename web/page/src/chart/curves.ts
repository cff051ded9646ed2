// Panes with lines of bodies: rules and a scale on the left, names at the lines' ends on the right.

import { SIGNS, bodyColour } from "../bodies.js";
import type { Area, Layer } from "./frame.js";
import {
  drawBand, drawCircle, drawEndLabels, drawInnerNames, drawRules, drawShade, drawShadeDates, drawStrokes, drawText, drawTicks, roundTicks, valueAt,
} from "./lines.js";
import type { Taken, Tick } from "./lines.js";
import type { Mark } from "./marks.js";
import type { Span } from "./retrograde.js";
import type { Stroke } from "./strokes.js";
import type { BodyName } from "zenithor";

export interface Curve {
  body: BodyName;
  strokes: readonly Stroke[];
  spans: readonly Span[];
  stations: readonly Mark[];
  /** In place of the body's name. */
  label?: string;
}

export interface Pane {
  /** What is drawn where so much is seen. */
  curves(area: Area): readonly Curve[];
  /** The values at the bottom and at the top. */
  range(curves: readonly Curve[]): readonly [number, number];
  ticks(range: readonly [number, number]): readonly Tick[];
  /** Said in the upper left corner; the shorter one where there is no room. */
  titles?: readonly [string, string];
  /** The place of a moment along the axis. */
  slotOf(time: number): number;
  date(time: number): string;
  isBanded(): boolean;
  /** What is shaded over the whole height, and of which spans the dates are given. */
  shaded(): readonly Span[];
  datedSpans?(): readonly Span[];
  drawn?(): void;
  /** Whether prices stand before the lines, which then have no rules and shades of their own. */
  isBehind?: boolean;
  /** Whether the names stand in the pane and not on the axis to its right. */
  hasInnerNames?: boolean;
}

const MARGIN = 8;
// More dates than that would hide the lines; closer in they are seen.
const MOST_DATES = 45;

export function longitudeTicks(modulo: number): Tick[] {
  const step = modulo === 360 ? 30 : modulo === 90 ? 15 : 5;
  return Array.from({ length: modulo / step + 1 }, (_, k) => {
    const value = k * step;
    const text = modulo === 360 ? `${value}° ${SIGNS[k % 12]!.short}` : `${value}°`;
    return { value, text, isStrong: false };
  });
}

/** Declinations from the southernmost to the northernmost, the equator between. */
export function declinationRange(curves: readonly Curve[]): [number, number] {
  let most = 24;
  for (const { strokes } of curves) {
    for (const { y } of strokes) {
      for (const value of y) {
        most = Math.max(most, Math.abs(value));
      }
    }
  }
  return [-most, most];
}

export const declinationTicks = ([low, high]: readonly [number, number]): Tick[] => roundTicks(low, high, 6, "°");

function scaleOf(area: Area, [low, high]: readonly [number, number]): (value: number) => number {
  const room = area.height - 2 * MARGIN;
  return (value) => MARGIN + (1 - (value - low) / (high - low)) * room;
}

/** The layers of a pane: behind, its rules, shades and lines with the scale on the left; and the names at
 * the lines' ends on the right. */
export function curveLayers(pane: Pane): { left: Layer; right: Layer } {
  function parts(area: Area) {
    const curves = pane.curves(area);
    const range = pane.range(curves);
    return { curves, y: scaleOf(area, range), ticks: pane.ticks(range) };
  }
  return {
    left: {
      isBehind: pane.isBehind,
      draw(area) {
        const { curves, y, ticks } = parts(area);
        const taken: Taken = { boxes: [] };
        const { pen } = area;
        if (!pane.isBehind) {
          drawRules(area, ticks, y);
          drawShade(area, pane.shaded());
        }
        for (const { strokes, spans } of pane.isBanded() ? curves : []) {
          drawBand(area, strokes, spans.map(({ from, to }) => ({ from: pane.slotOf(from), to: pane.slotOf(to) })), y);
        }
        for (const { body, strokes } of curves) {
          drawStrokes(area, body, strokes, y);
        }
        const dated: [number, number, Mark][] = [];
        for (const { body, strokes, stations } of curves) {
          for (const station of stations) {
            const place = pane.slotOf(station.time);
            const [left, top] = [area.x(place), y(valueAt(strokes, place))];
            if (left > -5 && left < area.width + 5 && Number.isFinite(top)) {
              drawCircle(area, left, top, bodyColour(body, area.theme));
              taken.boxes.push([left - 5, top - 5, left + 5, top + 5]);
              dated.push([left, top, station]);
            }
          }
        }
        if (!pane.isBehind) {
          drawShadeDates(area, taken, pane.datedSpans?.() ?? [], pane.date);
        }
        pen.save();
        for (const [left, top, station] of pane.isBanded() && dated.length <= MOST_DATES ? dated : []) {
          const places: [number, number][] = [[left, top - 14], [left, top + 14], [left - 26, top - 12], [left + 26, top + 12]];
          drawText(area, taken, pane.date(station.time), places, area.colours.quiet);
        }
        pen.restore();
        pane.titles?.some((title) => drawText(area, taken, title, [[6, 10]], area.colours.quiet, "left"));
        if (pane.hasInnerNames) {
          const ends = curves.map(({ body, strokes }) => ({ body, y: y(valueAt(strokes, area.right)) }));
          drawInnerNames(area, ends.filter((end) => Number.isFinite(end.y)));
        }
        pane.drawn?.();
      },
      axis(area) {
        const { y, ticks } = parts(area);
        drawTicks(area, ticks, y, "left");
      },
    },
    right: {
      draw() {},
      axis(area) {
        const { curves, y } = parts(area);
        drawEndLabels(area, curves.map(({ body, strokes, label }) => ({ body, y: y(valueAt(strokes, area.right)), text: label })));
      },
    },
  };
}
