// The wheel: the zodiac as a ring, 0 degrees at the left, counted against the clock. Seen from the
// Earth every body stands on one circle, and lines join those at an aspect; seen from the Sun each has
// an orbit of its own, evenly spaced and not to scale.

import { BODY_LOOKS, SIGNS, bodyColour, zodiac } from "../bodies.js";
import type { Theme } from "../bodies.js";
import { COLOURS, svg } from "../view.js";
import { aspectsNow } from "./places.js";
import type { GeocentricPlace, Place } from "./places.js";
import { spread } from "./spread.js";

const TOP = 48;
// Between the signs of two aspects' lines; a line whose sign would come nearer has none.
const LEAST_ROOM = 12;

/** Centre and radii of a wheel [px], all from its width. */
interface Frame {
  x: number;
  y: number;
  outer: number;
  inner: number;
  glyphs: number;
  degrees: number;
  lines: number;
}

function frameOf(width: number): Frame {
  const outer = width / 2 - 8;
  const inner = outer - 32;
  return {
    x: width / 2, y: TOP + width / 2, outer, inner, glyphs: inner - 38, degrees: inner - 66, lines: inner - 92,
  };
}

const FONT = "system-ui, sans-serif";

export interface WheelTitle {
  /** What is drawn, and when. */
  first: string;
  second: string;
}

function point(frame: Frame, longitude: number, radius: number): { x: number; y: number } {
  const angle = (longitude * Math.PI) / 180;
  return { x: frame.x - radius * Math.cos(angle), y: frame.y + radius * Math.sin(angle) };
}

const rounded = (value: number) => value.toFixed(2);

function line(
  frame: Frame, longitude: number, from: number, to: number, colour: string, width = 1, end = longitude,
): SVGLineElement {
  const [a, b] = [point(frame, longitude, from), point(frame, end, to)];
  return svg("line", {
    x1: rounded(a.x), y1: rounded(a.y), x2: rounded(b.x), y2: rounded(b.y), stroke: colour, "stroke-width": width,
  });
}

function label(
  frame: Frame, text: string, longitude: number, radius: number, size: number, colour: string, weight = 400,
): SVGTextElement {
  const { x, y } = point(frame, longitude, radius);
  return svg("text", {
    x: rounded(x), y: rounded(y), "text-anchor": "middle", "dominant-baseline": "central",
    "font-family": FONT, "font-size": size, "font-weight": weight, fill: colour,
  }, text);
}

function ring(frame: Frame, theme: Theme): SVGGElement {
  const colours = COLOURS[theme];
  const circle = (radius: number, fill = "none") =>
    svg("circle", { cx: frame.x, cy: frame.y, r: radius, fill, stroke: colours.quiet });
  const group = svg("g", {}, circle(frame.outer, colours.panel), circle(frame.inner, colours.background));
  for (let degree = 0; degree < 360; degree += 5) {
    const isSign = degree % 30 === 0;
    const length = isSign ? frame.outer - frame.inner : degree % 10 === 0 ? 8 : 4;
    group.append(line(frame, degree, frame.inner, frame.inner + length, colours.quiet, isSign ? 1 : 0.5));
  }
  SIGNS.forEach(({ short }, k) => group.append(label(frame, short, 30 * k + 15, (frame.outer + frame.inner) / 2 + 2, 14, colours.text)));
  return group;
}

function words(place: Place): string {
  const isRetrograde = "motion" in place && (place as GeocentricPlace).motion < 0;
  return `${BODY_LOOKS[place.body].name}: ${zodiac(place.longitude)}, ${place.longitude.toFixed(2)} degrees` +
    (isRetrograde ? ", retrograde" : "");
}

/** Where on a line its sign lies: the nearest to the middle that is free of the others, else the freest. */
function freeSpot(a: { x: number; y: number }, b: { x: number; y: number }, taken: readonly { x: number; y: number }[]) {
  const spots = [0.5, 0.42, 0.58, 0.34, 0.66, 0.26, 0.74].map((part) => {
    const [x, y] = [a.x + part * (b.x - a.x), a.y + part * (b.y - a.y)];
    return { x, y, room: Math.min(20, ...taken.map((other) => Math.hypot(other.x - x, other.y - y))) };
  });
  return spots.reduce((best, spot) => (spot.room > best.room ? spot : best));
}

function geocentric(frame: Frame, places: readonly GeocentricPlace[], theme: Theme): SVGGElement {
  const colours = COLOURS[theme];
  const group = svg("g");
  const signs = svg("g");
  const taken: { x: number; y: number }[] = [];
  for (const { first, second, aspect } of aspectsNow(places)) {
    if (aspect.angle !== 0) {
      const stroke = line(frame, first.longitude, frame.lines, frame.lines, colours.quiet, 1, second.longitude);
      if (aspect.dash) {
        stroke.setAttribute("stroke-dasharray", aspect.dash);
      }
      const [a, b] = [point(frame, first.longitude, frame.lines), point(frame, second.longitude, frame.lines)];
      group.append(stroke);
      const { x, y, room } = freeSpot(a, b, taken);
      if (room < LEAST_ROOM) {
        continue;
      }
      taken.push({ x, y });
      signs.append(
        svg("circle", { cx: rounded(x), cy: rounded(y), r: 9, fill: colours.background }),
        svg("text", {
          x: rounded(x), y: rounded(y), "text-anchor": "middle", "dominant-baseline": "central", "font-family": FONT,
          "font-size": 14, fill: colours.text,
        }, aspect.glyph));
    }
  }
  group.append(signs, label(frame, BODY_LOOKS.earth.glyph, 0, 0, 20, bodyColour("earth", theme)));
  const at = spread(places.map(({ longitude }) => longitude), (34 / frame.glyphs) * (180 / Math.PI));
  places.forEach((place, k) => {
    const colour = bodyColour(place.body, theme);
    const spot = svg("g", { "data-body": place.body },
      svg("title", {}, words(place)),
      line(frame, place.longitude, frame.inner, frame.inner - 10, colour, 2),
      line(frame, place.longitude, frame.inner - 10, frame.glyphs + 15, colour, 1, at[k]!),
      line(frame, place.longitude, frame.lines, frame.lines - 6, colour, 2),
      label(frame, BODY_LOOKS[place.body].glyph, at[k]!, frame.glyphs, 24, colour, 600),
      label(frame, zodiac(place.longitude).slice(0, 2) + "°" + (place.motion < 0 ? " R" : ""), at[k]!, frame.degrees, 12, colours.text));
    group.append(spot);
  });
  const inner = svg("circle", { cx: frame.x, cy: frame.y, r: frame.lines, fill: "none", stroke: colours.rule });
  group.prepend(inner);
  return group;
}

function heliocentric(frame: Frame, places: readonly Place[], theme: Theme): SVGGElement {
  const colours = COLOURS[theme];
  const group = svg("g", {}, label(frame, BODY_LOOKS.sun.glyph, 0, 0, 24, bodyColour("sun", theme), 600));
  const first = 28;
  const step = (frame.inner - 24 - first) / (places.length - 1);
  places.forEach((place, k) => {
    const radius = first + k * step;
    const colour = bodyColour(place.body, theme);
    const { x, y } = point(frame, place.longitude, radius);
    group.append(
      svg("circle", { cx: frame.x, cy: frame.y, r: rounded(radius), fill: "none", stroke: colours.rule }),
      svg("g", { "data-body": place.body },
        svg("title", {}, words(place)),
        line(frame, place.longitude, frame.inner, radius, colours.rule),
        line(frame, place.longitude, frame.inner, frame.inner - 10, colour, 2),
        svg("circle", { cx: rounded(x), cy: rounded(y), r: 12, fill: colours.background }),
        label(frame, BODY_LOOKS[place.body].glyph, place.longitude, radius, 20, colour, 600)));
  });
  return group;
}

/** The picture of the places, for screen and file; `width` [px]. */
export function wheel(
  places: readonly Place[], centre: "geo" | "helio", title: WheelTitle, theme: Theme, width: number,
): SVGSVGElement {
  const frame = frameOf(width);
  const colours = COLOURS[theme];
  const head = (text: string, y: number, size: number, colour: string, weight: number) =>
    svg("text", { x: 0, y, "font-family": FONT, "font-size": size, "font-weight": weight, fill: colour }, text);
  return svg("svg",
    {
      viewBox: `0 0 ${width} ${width + TOP}`, width, height: width + TOP, role: "img",
      "aria-label": `${title.first}, ${title.second}. The table has the numbers.`,
    },
    head(title.first, 18, 16, colours.text, 600),
    head(title.second, 40, 14, colours.quiet, 400),
    ring(frame, theme),
    centre === "geo" ? geocentric(frame, places as GeocentricPlace[], theme) : heliocentric(frame, places, theme));
}
