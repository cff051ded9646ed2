// What the page shows, as one plain record, and as the fragment of a link: `#year?from=2026&modulo=360`.
// A link holds what differs from the fallbacks, and of that what its view shows. What is unknown or
// broken in a link falls back.

import type { BodyName } from "zenithor";
import { GEOCENTRIC } from "./bodies.js";
import { clockOf, dayOf } from "./clock.js";
import type { Zone } from "./clock.js";

const VIEWS = ["sky", "year", "day", "prices"] as const;
export type ViewName = (typeof VIEWS)[number];

/** The years that the library answers for, less one at each end. */
export const FIRST_YEAR = -1999;
export const LAST_YEAR = 3999;

const CURVES = ["both", "longitude", "declination"] as const;
export const MARK_KINDS = ["phases", "eclipses", "seasons", "ingresses", "aspects", "stations"] as const;
export type MarkKind = (typeof MARK_KINDS)[number];
export const PANES = ["declination", "motion", "angle"] as const;
export type PaneName = (typeof PANES)[number];
/** They divide the circle, so that a family of lines goes on unbroken where the longitude passes 360. */
export const SPACINGS = [360, 180, 120, 90, 60, 45, 30, 15] as const;
const TURNING = ["mercury", "venus", "mars", "jupiter", "saturn", "uranus", "neptune", "pluto"] as const;
export const SHADES = ["lines", "none", ...TURNING] as const;
export const RETROGRADES = ["none", ...TURNING] as const;

export interface State {
  view: ViewName;
  zone: Zone;
  theme: "auto" | "light" | "dark";

  /** Sky: Unix time [ms]; `null` is now. */
  at: number | null;
  centre: "geo" | "helio";
  step: "hour" | "day" | "month";

  /** Day: `2026-11-21`; `null` is today. */
  date: string | null;
  /** [deg] north and east positive */
  latitude: number;
  longitude: number;

  /** Year */
  from: number;
  years: number;
  modulo: 360 | 90 | 45 | 30;
  curve: (typeof CURVES)[number];
  bodies: readonly BodyName[];
  marks: readonly MarkKind[];
  /** Where retrograde spans are shaded: along the lines, nowhere, or over the height for one body. */
  shade: (typeof SHADES)[number];
  /** Year and Prices: the moments between which the chart is seen, where it was zoomed or moved. */
  seen: readonly [number, number] | null;

  /** Prices */
  lines: readonly BodyName[];
  /** Whether longitudes have a scale of their own or are prices. */
  scale: "own" | "price";
  /** Price units per degree; 0 is a round number that fits the prices. */
  unit: number;
  /** Degrees between the lines of a family. */
  spacing: (typeof SPACINGS)[number];
  /** Whether prices grow or fall with the longitude. */
  slope: "up" | "down";
  prices: "linear" | "log";
  retro: (typeof RETROGRADES)[number];
  events: readonly MarkKind[];
  panes: readonly PaneName[];
  /** The two bodies of the pane with the angle. */
  first: BodyName;
  second: BodyName;
  /** Bars beyond the last one. */
  ahead: number;
  /** The hour of a daily bar, UTC, for which the sky is computed. */
  hour: number;
}

/** How a value stands in a link: `read` answers `undefined` for what is none. */
interface Key<T> {
  views: readonly ViewName[];
  fallback: T;
  read(text: string): T | undefined;
  write(value: T): string;
  /** Written also when it is the fallback, which changes from one day to another. */
  isAlways?: boolean;
}

type Keys = { [K in Exclude<keyof State, "view">]: Key<State[K]> };

function choice<T extends string | number>(
  views: readonly ViewName[], values: readonly T[], fallback: T,
): Key<T> {
  return {
    views,
    fallback,
    read: (text) => values.find((value) => String(value) === text),
    write: String,
  };
}

function number(
  views: readonly ViewName[], fallback: number, least: number, most: number, isWhole = false,
): Key<number> {
  return {
    views,
    fallback,
    read(text) {
      const value = text.trim() === "" ? NaN : Number(text);
      const isGood = value >= least && value <= most && (!isWhole || Number.isInteger(value));
      return isGood ? value : undefined;
    },
    write: String,
  };
}

/** Names with commas between; "none" for no name. One that is unknown is left out. */
function several<T extends string>(
  views: readonly ViewName[], values: readonly T[], fallback: readonly T[],
): Key<readonly T[]> {
  return {
    views,
    fallback,
    read(text) {
      const names = text.split(",").map((name) => name.trim().toLowerCase());
      const known = values.filter((value) => names.includes(value));
      return known.length > 0 || text === "none" ? known : undefined;
    },
    write: (value) => (value.length === 0 ? "none" : value.join(",")),
  };
}

const UTC = clockOf("utc");
const ISO_MINUTE = /^(-?\d{4})-(\d\d)-(\d\d)T(\d\d):(\d\d)(?::(\d\d))?Z$/;

const moment: Key<number | null> = {
  views: ["sky"],
  fallback: null,
  read(text) {
    const found = ISO_MINUTE.exec(text);
    const day = found && dayOf(text.slice(0, text.indexOf("T")));
    if (!found || !day || day[0] < FIRST_YEAR || day[0] > LAST_YEAR) {
      return undefined;
    }
    const [hour, minute, second] = [Number(found[4]), Number(found[5]), Number(found[6] ?? 0)];
    return hour < 24 && minute < 60 && second < 60 ? UTC.at(...day, hour, minute) + 1000 * second : undefined;
  },
  write(time) {
    const precision = (time ?? 0) % 60e3 === 0 ? "minute" : "second";
    return `${UTC.format(time ?? 0, precision).replace(" ", "T")}Z`;
  },
};

const seen: Key<readonly [number, number] | null> = {
  views: ["year", "prices"],
  fallback: null,
  read(text) {
    const ends = text.split(",").map((end) => moment.read(end));
    const [from, to] = ends as (number | undefined)[];
    return ends.length === 2 && from !== undefined && to !== undefined && from < to ? [from, to] : undefined;
  },
  write: (value) => (value === null ? "" : value.map((end) => moment.write(end)).join(",")),
};

const date: Key<string | null> = {
  views: ["day"],
  fallback: null,
  read(text) {
    const day = dayOf(text);
    return day && day[0] >= FIRST_YEAR && day[0] <= LAST_YEAR ? text : undefined;
  },
  write: (value) => value ?? "",
};

const ALL = VIEWS;

/** Every value of the state but the view, under its name in links. */
const KEYS: Keys = {
  at: moment,
  centre: choice(["sky", "year", "prices"], ["geo", "helio"], "geo"),
  step: choice(["sky"], ["hour", "day", "month"], "day"),

  date,
  latitude: number(["day"], 51.4779, -90, 90),
  longitude: number(["day"], 0, -180, 180),

  from: { ...number(["year"], new Date().getUTCFullYear(), FIRST_YEAR, LAST_YEAR, true), isAlways: true },
  years: number(["year"], 1, 1, 10, true),
  modulo: choice(["year", "prices"], [360, 90, 45, 30], 360),
  curve: choice(["year"], CURVES, "both"),
  bodies: several(["year"], GEOCENTRIC, GEOCENTRIC.filter((body) => body !== "moon")),
  marks: several(["year"], MARK_KINDS, ["phases", "eclipses", "seasons", "ingresses", "aspects"]),
  shade: choice(["year"], SHADES, "lines"),

  seen,

  lines: several(["prices"], GEOCENTRIC, ["sun", "mars", "jupiter"]),
  scale: choice(["prices"], ["own", "price"], "price"),
  unit: number(["prices"], 0, 0, 1e9),
  spacing: choice(["prices"], SPACINGS, 90),
  slope: choice(["prices"], ["up", "down"], "up"),
  prices: choice(["prices"], ["linear", "log"], "linear"),
  retro: choice(["prices"], RETROGRADES, "mercury"),
  events: several(["prices"], MARK_KINDS, ["phases", "eclipses", "stations"]),
  panes: several(["prices"], PANES, []),
  first: choice(["prices"], GEOCENTRIC, "sun"),
  second: choice(["prices"], GEOCENTRIC, "jupiter"),
  ahead: number(["prices"], 90, 0, 2000, true),
  hour: number(["prices"], 0, 0, 24),

  zone: choice(ALL, ["utc", "local"], "utc"),
  theme: choice(ALL, ["auto", "light", "dark"], "auto"),
};

type AnyKey = Key<unknown>;
const NAMES = Object.keys(KEYS) as (keyof Keys)[];

/** The state that a link without a fragment shows. */
export function initialState(): State {
  const state: Record<string, unknown> = { view: "sky" };
  for (const name of NAMES) {
    state[name] = KEYS[name].fallback;
  }
  return state as unknown as State;
}

/** The state of a fragment, with or without its `#`. */
export function decode(fragment: string): State {
  const state = initialState() as unknown as Record<string, unknown>;
  const [view = "", query = ""] = fragment.replace(/^#/, "").split("?", 2);
  if ((VIEWS as readonly string[]).includes(view)) {
    state.view = view;
  }
  const given = new URLSearchParams(query);
  for (const name of NAMES) {
    const key = KEYS[name] as AnyKey;
    const text = key.views.includes(state.view as ViewName) ? given.get(name) : null;
    const value = text === null ? undefined : key.read(text);
    if (value !== undefined) {
      state[name] = value;
    }
  }
  return state as unknown as State;
}

/** The fragment of a state, with its `#`. */
export function encode(state: State): string {
  const parts: string[] = [];
  for (const name of NAMES) {
    const key = KEYS[name] as AnyKey;
    const value = key.write(state[name]);
    if (key.views.includes(state.view) && (key.isAlways || value !== key.write(key.fallback))) {
      // Commas and colons stay readable.
      const safe = encodeURIComponent(value).replace(/%2C/g, ",").replace(/%3A/g, ":").replace(/%20/g, "+");
      parts.push(`${name}=${safe}`);
    }
  }
  return `#${state.view}${parts.length > 0 ? "?" : ""}${parts.join("&")}`;
}

/** Changes a link does to a state: what its view shows is taken from it, the rest stays. */
export function follow(state: State, fragment: string): State {
  const linked = decode(fragment);
  const next: Record<string, unknown> = { ...state, view: linked.view };
  for (const name of NAMES) {
    if ((KEYS[name] as AnyKey).views.includes(linked.view)) {
      next[name] = linked[name];
    }
  }
  return next as unknown as State;
}
