// Lines of bodies in a pane: strokes in the body's look, shaded where it is retrograde, circles and dates
// at its stations, its name at the end.

import { BODY_LOOKS, bodyColour } from "../bodies.js";
import type { BodyLook } from "../bodies.js";
import type { BodyName } from "zenithor";
import type { Area } from "./frame.js";
import { movedApart } from "./labels.js";
import type { Span } from "./retrograde.js";
import type { Stroke } from "./strokes.js";

/** Draws a stroke; `x` and `y` give coordinates of its points. */
export function trace(pen: CanvasRenderingContext2D, stroke: Stroke, x: (slot: number) => number, y: (value: number) => number): void {
  stroke.x.forEach((slot, k) => (k === 0 ? pen.moveTo(x(slot), y(stroke.y[k]!)) : pen.lineTo(x(slot), y(stroke.y[k]!))));
}

/** The part of strokes between two places. */
export function cutOut(strokes: readonly Stroke[], from: number, to: number): Stroke[] {
  const parts: Stroke[] = [];
  for (const { x, y } of strokes) {
    const part: Stroke = { x: [], y: [] };
    for (let k = 0; k < x.length; ++k) {
      const inside = x[k]! >= from && x[k]! <= to;
      for (const edge of [from, to]) {
        // The points on the edges, between two of the stroke.
        if (k > 0 && x[k - 1]! < edge && x[k]! > edge) {
          part.x.push(edge);
          part.y.push(y[k - 1]! + ((edge - x[k - 1]!) / (x[k]! - x[k - 1]!)) * (y[k]! - y[k - 1]!));
        }
      }
      if (inside) {
        part.x.push(x[k]!);
        part.y.push(y[k]!);
      }
    }
    if (part.x.length > 1) {
      parts.push(part);
    }
  }
  return parts;
}

/** The value of strokes at a place; NaN where none is there. Of two that meet there the later one. */
export function valueAt(strokes: readonly Stroke[], place: number): number {
  let value = NaN;
  for (const { x, y } of strokes) {
    if (place < x[0]! || place > x[x.length - 1]!) {
      continue;
    }
    let k = 1;
    while (k < x.length - 1 && x[k]! < place) {
      ++k;
    }
    const width = x[k]! - x[k - 1]!;
    value = width > 0 ? y[k - 1]! + ((place - x[k - 1]!) / width) * (y[k]! - y[k - 1]!) : y[k]!;
  }
  return value;
}

export function setLine(pen: CanvasRenderingContext2D, look: BodyLook, colour: string): void {
  pen.strokeStyle = colour;
  pen.lineWidth = look.width;
  pen.lineJoin = "round";
  pen.setLineDash(look.dash as number[]);
}

export function drawStrokes(
  area: Area, body: BodyName, strokes: readonly Stroke[], y: (value: number) => number,
): void {
  const { pen, x } = area;
  pen.beginPath();
  for (const stroke of strokes) {
    trace(pen, stroke, x, y);
  }
  setLine(pen, BODY_LOOKS[body], bodyColour(body, area.theme));
  pen.stroke();
  pen.setLineDash([]);
}

/** A broad band along the line where it is retrograde. */
export function drawBand(area: Area, strokes: readonly Stroke[], spans: readonly { from: number; to: number }[], y: (value: number) => number): void {
  const { pen, x } = area;
  pen.strokeStyle = area.colours.retrograde;
  pen.lineWidth = 14;
  pen.lineCap = "butt";
  pen.lineJoin = "round";
  pen.setLineDash([]);
  for (const { from, to } of spans) {
    pen.beginPath();
    for (const part of cutOut(strokes, from, to)) {
      trace(pen, part, x, y);
    }
    pen.stroke();
  }
}

/** Places that texts have taken, so that no text is written over another. */
export interface Taken {
  boxes: [number, number, number, number][];
}

export function isFree(taken: Taken, left: number, top: number, right: number, bottom: number): boolean {
  return !taken.boxes.some(([l, t, r, b]) => left < r && right > l && top < b && bottom > t);
}

/** A text with a rim in the background's colour, at the first of several places that is free; none where
 * all are taken. */
export function drawText(
  area: Area, taken: Taken, text: string, places: readonly [number, number][], colour: string, align: CanvasTextAlign = "center",
): boolean {
  const { pen } = area;
  const width = pen.measureText(text).width;
  for (const [x, y] of places) {
    const left = align === "center" ? x - width / 2 : align === "left" ? x : x - width;
    const box = [left - 2, y - 8, left + width + 2, y + 8] as const;
    if (left < 0 || left + width > area.width || box[1] < 0 || box[3] > area.height || !isFree(taken, ...box)) {
      continue;
    }
    taken.boxes.push([...box]);
    pen.textAlign = "left";
    pen.lineWidth = 3;
    pen.lineJoin = "round";
    pen.strokeStyle = area.colours.background;
    pen.strokeText(text, left, y);
    pen.fillStyle = colour;
    pen.fillText(text, left, y);
    return true;
  }
  return false;
}

export function drawCircle(area: Area, x: number, y: number, colour: string): void {
  const { pen } = area;
  pen.beginPath();
  pen.arc(x, y, 3.5, 0, 2 * Math.PI);
  pen.fillStyle = area.colours.background;
  pen.fill();
  pen.strokeStyle = colour;
  pen.lineWidth = 1.5;
  pen.stroke();
}

// Narrower spans would be a hatching, and the dates of narrow ones could not be told apart [px].
const NARROWEST = 2;
const NARROWEST_DATED = 5;

/** Shades spans over the whole height. */
export function drawShade(area: Area, spans: readonly Span[]): void {
  const { pen, xOf, height, colours } = area;
  for (const { from, to, beginsHere, endsHere } of spans) {
    const [left, right] = [xOf(from), xOf(to)];
    if (right < 0 || left > area.width || right - left < NARROWEST) {
      continue;
    }
    pen.fillStyle = colours.retrograde;
    pen.fillRect(left, 0, right - left, height);
    pen.strokeStyle = colours.rule;
    pen.lineWidth = 1;
    pen.beginPath();
    for (const at of [beginsHere ? left : NaN, endsHere ? right : NaN]) {
      if (!Number.isNaN(at)) {
        pen.moveTo(Math.round(at) + 0.5, 0);
        pen.lineTo(Math.round(at) + 0.5, height);
      }
    }
    pen.stroke();
  }
}

/** The dates of the spans' ends, at the top, each beside its end. */
export function drawShadeDates(area: Area, taken: Taken, spans: readonly Span[], date: (time: number) => string): void {
  for (const { from, to, beginsHere, endsHere } of spans) {
    const [left, right] = [area.xOf(from), area.xOf(to)];
    if (right - left < NARROWEST_DATED) {
      continue;
    }
    // Outside where the span is too narrow for both.
    const isNarrow = right - left < 2 * area.pen.measureText("28 Nov 26").width;
    if (beginsHere) {
      drawText(area, taken, date(from), isNarrow ? [[left - 3, 10], [left - 3, 26]] : [[left + 3, 10], [left + 3, 26]], area.colours.quiet, isNarrow ? "right" : "left");
    }
    if (endsHere) {
      drawText(area, taken, date(to), isNarrow ? [[right + 3, 10], [right + 3, 26]] : [[right - 3, 10], [right - 3, 26]], area.colours.quiet, isNarrow ? "left" : "right");
    }
  }
}

export interface EndLabel {
  body: BodyName;
  /** Where the line ends; NaN where it does not. */
  y: number;
  text?: string;
}

/** Names at the ends of lines, moved apart, on the axis to the right of a pane. */
export function drawEndLabels(area: Area, labels: readonly EndLabel[], left = 0): void {
  const { pen, colours, height } = area;
  const shown = labels.filter(({ y }) => Number.isFinite(y) && y >= -1 && y <= height + 1);
  const places = movedApart(shown.map(({ y }) => y), 15, height);
  shown.forEach(({ body, y, text }, k) => {
    const look = BODY_LOOKS[body];
    const colour = bodyColour(body, area.theme);
    pen.beginPath();
    pen.moveTo(left, y);
    pen.lineTo(left + 8, places[k]!);
    pen.strokeStyle = colour;
    pen.lineWidth = 1;
    pen.stroke();
    pen.textAlign = "left";
    pen.fillStyle = colour;
    pen.fillText(look.glyph, left + 11, places[k]!);
    pen.fillStyle = colours.text;
    pen.fillText(text ?? look.name, left + 26, places[k]!);
  });
}

// Above the names stand the dates of the shades; more names than these would hide the lines.
const DATES_HEIGHT = 36;
const MOST_NAMES = 20;

/** Names at the ends of lines inside a pane whose axis is that of the prices: one for each line while they
 * are few, else one for each body, at the line nearest to the middle. */
export function drawInnerNames(area: Area, names: readonly { body: BodyName; y: number }[]): void {
  const { pen, width, height, colours, theme } = area;
  const row = 15;
  const room = height - DATES_HEIGHT;
  const off = ({ y }: { y: number }) => Math.abs(y - height / 2);
  const few = names.length <= Math.min(MOST_NAMES, room / row)
    ? names : names.filter((name) => !names.some((other) => other.body === name.body && off(other) < off(name)));
  const places = movedApart(few.map(({ y }) => y - 9 - DATES_HEIGHT), row, room);
  few.forEach(({ body }, k) => {
    const { name, glyph } = BODY_LOOKS[body];
    const y = Math.min(places[k]! + DATES_HEIGHT, height - 8);
    const nameWidth = pen.measureText(name).width;
    drawText(area, { boxes: [] }, name, [[width - 4, y]], colours.text, "right");
    drawText(area, { boxes: [] }, glyph, [[width - 8 - nameWidth, y]], bodyColour(body, theme), "right");
  });
}

export interface Tick {
  value: number;
  text: string;
  isStrong?: boolean;
}

/** Rules across a pane. */
export function drawRules(area: Area, ticks: readonly Tick[], y: (value: number) => number): void {
  const { pen, width, colours } = area;
  pen.lineWidth = 1;
  for (const { value, isStrong } of ticks) {
    pen.strokeStyle = isStrong ? colours.quiet : colours.rule;
    pen.beginPath();
    pen.moveTo(0, Math.round(y(value)) + 0.5);
    pen.lineTo(width, Math.round(y(value)) + 0.5);
    pen.stroke();
  }
}

/** What stands at the rules, on an axis. */
export function drawTicks(area: Area, ticks: readonly Tick[], y: (value: number) => number, side: "left" | "right"): void {
  const { pen, width, height, colours } = area;
  pen.fillStyle = colours.quiet;
  pen.textAlign = side === "left" ? "right" : "left";
  for (const { value, text } of ticks) {
    pen.fillText(text, side === "left" ? width - 6 : 6, Math.min(Math.max(y(value), 7), height - 7));
  }
}

/** Round values between two, about so many. */
export function roundTicks(low: number, high: number, about: number, unit: string): Tick[] {
  const ideal = (high - low) / Math.max(about, 1);
  if (!(ideal > 0) || !Number.isFinite(ideal)) {
    return [];
  }
  const power = 10 ** Math.floor(Math.log10(ideal));
  const step = power * [1, 2, 5, 10].find((one) => one * power >= ideal * 0.999)!;
  const digits = Math.max(0, -Math.floor(Math.log10(step) + 1e-9));
  const ticks: Tick[] = [];
  for (let k = Math.ceil(low / step - 1e-9); k * step <= high + step * 1e-9; ++k) {
    const value = k * step;
    ticks.push({ value, text: `${value > 0 && low < 0 ? "+" : ""}${(Math.abs(value) < step / 2 ? 0 : value).toFixed(digits)}${unit}`.replace("-", "−"), isStrong: k === 0 && low < 0 });
  }
  return ticks;
}
