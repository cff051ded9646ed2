// Longitudes over the prices: as prices, a family of lines for each body.

import { BODY_LOOKS, bodyColour } from "../bodies.js";
import type { Area, Layer } from "../chart/frame.js";
import { drawInnerNames, setLine, valueAt } from "../chart/lines.js";
import { strokesOf } from "../chart/strokes.js";
import type { Points } from "./sky.js";
import type { BodyName } from "zenithor";
import { MOST_LINES, linesBetween, priceOf } from "./family.js";
import type { Family } from "./family.js";

export interface PriceScale {
  /** The coordinate of a price; NaN where it has none. */
  y(price: number): number;
  /** The prices at the bottom and at the top. */
  low: number;
  high: number;
}

export interface Overlay {
  bodies(): readonly BodyName[];
  family(): Family;
  points(body: BodyName, area: Area): Points;
  /** How prices lie in the pane now; `null` while there are none. */
  scale(area: Area): PriceScale | null;
  drawn(tooMany: readonly BodyName[]): void;
}

export function overlay(options: Overlay): Layer {
  return {
    isBehind: true,
    draw(area) {
      const { pen, x, height } = area;
      const family = options.family();
      const scale = options.scale(area);
      const tooMany: BodyName[] = [];
      const names: { body: BodyName; y: number }[] = [];
      const { first, count } = linesBetween(scale?.low ?? 0, scale?.high ?? 0, family);
      for (const body of scale === null ? [] : options.bodies()) {
        if (count > MOST_LINES) {
          tooMany.push(body);
          continue;
        }
        const { x: slots, value } = options.points(body, area);
        const strokes = strokesOf(slots, value, family.spacing);
        const end = valueAt(strokes, area.right);
        pen.beginPath();
        for (let k = first; k < first + count; ++k) {
          for (const stroke of strokes) {
            let isOpen = false;
            for (let place = 0; place < stroke.x.length; ++place) {
              const y = scale!.y(priceOf(stroke.y[place]!, k, family));
              if (!Number.isFinite(y)) {
                isOpen = false;
              } else if (isOpen) {
                pen.lineTo(x(stroke.x[place]!), y);
              } else {
                pen.moveTo(x(stroke.x[place]!), y);
                isOpen = true;
              }
            }
          }
          const y = scale!.y(priceOf(end, k, family));
          if (y >= 0 && y <= height) {
            names.push({ body, y });
          }
        }
        setLine(pen, BODY_LOOKS[body], bodyColour(body, area.theme));
        pen.stroke();
        pen.setLineDash([]);
      }
      drawInnerNames(area, names);
      options.drawn(tooMany);
    },
  };
}
