// The panes of the Prices view beside the prices themselves: longitudes on a scale of their own, and what
// stands below.

import { PriceScaleMode } from "lightweight-charts";
import type { ISeriesApi } from "lightweight-charts";
import type { BodyName } from "zenithor";
import { BODY_LOOKS } from "../bodies.js";
import { declinationRange, declinationTicks, longitudeTicks } from "../chart/curves.js";
import type { Curve, Pane } from "../chart/curves.js";
import type { Area } from "../chart/frame.js";
import { roundTicks } from "../chart/lines.js";
import { aspectMarks, bodiesOf, bodyOf, longitudeField } from "../chart/marks.js";
import type { Mark } from "../chart/marks.js";
import { strokesOf } from "../chart/strokes.js";
import { ASPECTS } from "../sky/places.js";
import type { PaneName, State } from "../state.js";
import { angleStrokes, paneStrokes } from "./data.js";
import type { ChartData } from "./data.js";
import type { PriceScale } from "./overlay.js";

/** What the panes are drawn from, as it is now. */
export interface Source {
  readonly data: ChartData;
  readonly state: Readonly<State>;
}

/** What all panes have in common. */
export type Common = Pick<Pane, "slotOf" | "date" | "isBanded" | "shaded">;

/** How prices lie in their pane. */
export function priceScaleOf(candles: ISeriesApi<"Candlestick">, area: Area): PriceScale | null {
  const [high, low] = [candles.coordinateToPrice(0), candles.coordinateToPrice(area.height)];
  if (high === null || low === null || !(high > low)) {
    return null;
  }
  const isLog = candles.priceScale().options().mode === PriceScaleMode.Logarithmic;
  return {
    low, high,
    y: isLog
      ? (price) => (price > 0 ? candles.priceToCoordinate(price) ?? NaN : NaN)
      : (price) => ((high - price) / (high - low)) * area.height,
  };
}

/** The two bodies of the angle, as they are seen. */
export function angleBodies({ state }: Source): [BodyName, BodyName] {
  const seen = (body: BodyName) => bodyOf(body, state.centre) ?? "earth";
  return [seen(state.first), seen(state.second)];
}

/** The angle of the two at a place along the axis [deg]. */
export function angleAt(source: Source, slot: number): number {
  const field = longitudeField(source.state.centre);
  const [first, second] = angleBodies(source);
  const way = Math.abs(source.data.sky.value(first, field, slot) - source.data.sky.value(second, field, slot));
  return Math.min(way, 360 - way);
}

/** Longitudes on a scale of their own, behind the prices. */
export function ownPane(source: Source, common: Common): Pane {
  return {
    ...common,
    isBehind: true, hasInnerNames: true,
    curves: ({ first, last }) => bodiesOf(source.state.lines, source.state.centre).map((body): Curve => {
      const { x, value } = source.data.sky.points(body, longitudeField(source.state.centre), first, last);
      return { body, strokes: strokesOf(x, value, source.state.modulo), spans: [], stations: [] };
    }),
    range: () => [0, source.state.modulo],
    ticks: () => longitudeTicks(source.state.modulo),
  };
}

function anglePane(source: Source, common: Common): Pane {
  const [first, second] = angleBodies(source);
  const { centre } = source.state;
  const exact = new WeakMap<ChartData, Mark[]>();
  /** The exact aspects, searched once for the bars that are shown. */
  function stations(): Mark[] {
    const { data } = source;
    let found = exact.get(data);
    if (found === undefined) {
      found = first === second ? [] : aspectMarks(first, [second], data.from, data.to, centre);
      exact.set(data, found);
    }
    return found;
  }
  return {
    ...common,
    titles: [
      `Angle ${BODY_LOOKS[first].name} to ${BODY_LOOKS[second].name}; circles: exact aspects`,
      `Angle ${BODY_LOOKS[first].glyph} ${BODY_LOOKS[second].glyph}`,
    ],
    curves: (area) => [{
      body: first, label: `${BODY_LOOKS[second].glyph} angle`, spans: [], stations: stations(),
      strokes: angleStrokes(source.data, first, second, centre, area.first, area.last),
    }],
    range: () => [0, 180],
    ticks: () => ASPECTS.map(({ angle, glyph }) => ({ value: angle, text: `${glyph} ${angle}°` })),
  };
}

/** From the lowest to the highest value that is seen, 0 between. */
function seenRange(curves: readonly Curve[]): [number, number] {
  const all = curves.flatMap(({ strokes }) => strokes.flatMap(({ y }) => y));
  const low = all.reduce((a, b) => Math.min(a, b), 0);
  const high = all.reduce((a, b) => Math.max(a, b), 0);
  return high > low ? [low, high] : [-1, 1];
}

export function furtherPane(which: PaneName, source: Source, common: Common): Pane {
  if (which === "angle") {
    return anglePane(source, common);
  }
  const curves = ({ first, last }: Area): Curve[] => source.state.lines.map((body) =>
    ({ body, strokes: paneStrokes(source.data, which, body, first, last), spans: [], stations: [] }));
  if (which === "declination") {
    return {
      ...common, curves, titles: ["Declination, apparent, geocentric", "Declination"],
      range: declinationRange, ticks: declinationTicks,
    };
  }
  return {
    ...common, curves, titles: ["Daily motion in longitude, apparent, geocentric", "Daily motion"],
    range: seenRange, ticks: ([low, high]) => roundTicks(low, high, 5, "°/d"),
  };
}
