// The year's daylight: a column for each day, from midnight at the top to midnight at the foot.

import type { Theme } from "../bodies.js";
import { bodyColour } from "../bodies.js";
import { COLOURS, svg } from "../view.js";
import { polarSpans } from "./rising.js";
import type { SunDay } from "./rising.js";

const FONT = "system-ui, sans-serif";
const MONTHS = ["Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"];
const LEFT = 44;
const TOP = 52;
const BOTTOM = 24;
const DAYLIGHT = { light: "#f6e3ae", dark: "#5c4c17" };
// Lines of neighbouring days that lie further apart [h] are not joined: the time runs over midnight.
const LEAP = 6;

export interface Band {
  picture: SVGSVGElement;
  /** The day [0 for January 1] at a place of the picture [px]. */
  dayAt(x: number): number;
}

/** `chosen` is the day that is marked; sizes in px. */
export function band(
  days: readonly SunDay[], monthStarts: readonly number[], chosen: number, title: { first: string; second: string },
  theme: Theme, width: number, height: number,
): Band {
  const colours = COLOURS[theme];
  const right = width < 560 ? 12 : 64;
  const plot = { width: width - LEFT - right, height: height - TOP - BOTTOM };
  const x = (day: number) => LEFT + (day / days.length) * plot.width;
  const y = (hour: number) => TOP + (hour / 24) * plot.height;
  const text = (content: string, tx: number, ty: number, size: number, colour: string, more: Record<string, string | number> = {}) =>
    svg("text", { x: tx.toFixed(1), y: ty.toFixed(1), "font-family": FONT, "font-size": size, fill: colour, ...more }, content);
  const stroke = (x1: number, y1: number, x2: number, y2: number, colour: string, thick = 1) =>
    svg("line", {
      x1: x1.toFixed(1), y1: y1.toFixed(1), x2: x2.toFixed(1), y2: y2.toFixed(1), stroke: colour, "stroke-width": thick,
    });

  const picture = svg("svg", {
    viewBox: `0 0 ${width} ${height}`, width, height, role: "img",
    "aria-label": `${title.first}. ${title.second}. The table has the numbers.`,
  });
  picture.append(
    text(title.first, 0, 18, 16, colours.text, { "font-weight": 600 }),
    text(title.second, 0, 38, 14, colours.quiet),
    svg("rect", { x: LEFT, y: TOP, width: plot.width, height: plot.height, fill: colours.panel }));

  const columns = days.map(({ up }, k) =>
    up.map(([from, to]) => `M${x(k).toFixed(2)} ${y(from).toFixed(2)}H${x(k + 1).toFixed(2)}V${y(to).toFixed(2)}H${x(k).toFixed(2)}Z`).join(""));
  picture.append(svg("path", { d: columns.join(""), fill: DAYLIGHT[theme], "shape-rendering": "crispEdges" }));

  for (let hour = 0; hour <= 24; hour += 3) {
    if (hour % 6 === 0 || plot.height > 280) {
      picture.append(
        stroke(LEFT, y(hour), LEFT + plot.width, y(hour), colours.rule),
        text(`${String(hour).padStart(2, "0")}:00`, LEFT - 6, y(hour) + 4, 12, colours.quiet, { "text-anchor": "end" }));
    }
  }
  const isNarrow = plot.width < 420;
  monthStarts.forEach((day, month) => {
    const next = monthStarts[month + 1] ?? days.length;
    picture.append(
      stroke(x(day), TOP, x(day), TOP + plot.height + 4, colours.rule),
      text(isNarrow ? MONTHS[month]!.slice(0, 1) : MONTHS[month]!, x((day + next) / 2), TOP + plot.height + 16, 12, colours.quiet,
        { "text-anchor": "middle" }));
  });

  const sun = bodyColour("sun", theme);
  const curve = (of: (day: SunDay) => number, attributes: Record<string, string | number>) => {
    let path = "";
    let last = NaN;
    days.forEach((day, k) => {
      const hour = of(day);
      if (Number.isFinite(hour)) {
        path += `${Math.abs(hour - last) < LEAP ? "L" : "M"}${x(k + 0.5).toFixed(1)} ${y(hour).toFixed(1)}`;
      }
      last = hour;
    });
    return svg("path", { d: path, fill: "none", stroke: sun, "stroke-linejoin": "round", ...attributes });
  };
  picture.append(
    curve(({ transit }) => transit, { "stroke-width": 1, "stroke-dasharray": "4 3" }),
    curve(({ rise }) => rise, { "stroke-width": 2 }), curve(({ set }) => set, { "stroke-width": 2 }));

  // Names at the ends of the lines, moved apart.
  if (right > 12) {
    const ends = ([["rise", "rise"], ["transit", "transit"], ["set", "set"]] as const)
      .map(([key, name]) => ({ name, hour: days.at(-1)![key] }))
      .filter(({ hour }) => Number.isFinite(hour))
      .map(({ name, hour }) => ({ name, y: y(hour) }))
      .sort((a, b) => a.y - b.y);
    ends.forEach((end, k) => {
      end.y = Math.max(end.y, (ends[k - 1]?.y ?? -Infinity) + 14);
      picture.append(text(end.name, LEFT + plot.width + 6, end.y + 4, 12, colours.text));
    });
  }

  for (const { status, first, last } of polarSpans(days)) {
    const words = status === "always_up" ? "Sun up all day" : "Sun below all day";
    if (x(last + 1) - x(first) > 6.6 * words.length) {
      picture.append(text(words, (x(first) + x(last + 1)) / 2, y(4.5), 12, colours.text, { "text-anchor": "middle" }));
    }
  }

  if (chosen >= 0) {
    picture.append(stroke(x(chosen + 0.5), TOP, x(chosen + 0.5), TOP + plot.height, colours.accent, 1.5));
  }
  picture.append(svg("rect", {
    x: LEFT, y: TOP, width: plot.width, height: plot.height, fill: "none", stroke: colours.quiet,
  }));
  return {
    picture,
    dayAt: (px) => Math.min(days.length - 1, Math.max(0, Math.floor(((px - LEFT) / plot.width) * days.length))),
  };
}
