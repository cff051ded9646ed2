// What happens in the sky in a span, as marks for a strip and rows for a table.

import { aspects, events, ingresses, kindName, position, stations } from "zenithor";
import type { BodyName, EventKindName, FieldName } from "zenithor";
import { BODY_LOOKS, SIGNS } from "../bodies.js";
import { ASPECTS } from "../sky/places.js";
import { retrogradeSpans } from "./retrograde.js";
import type { Span } from "./retrograde.js";
import type { MarkKind } from "../state.js";

export const MARK_NAMES: Readonly<Record<MarkKind, string>> = {
  phases: "Moon phases", eclipses: "Eclipses", seasons: "Seasons", ingresses: "Ingresses", aspects: "Aspects", stations: "Stations",
};

export interface Mark {
  /** Unix time [ms] */
  time: number;
  kind: MarkKind;
  /** In words. */
  text: string;
  /** Short, with glyphs; of an eclipse its kind's letter. */
  sign: string;
  event?: EventKindName;
  body?: BodyName;
}

export type Centre = "geo" | "helio";

export const longitudeField = (centre: Centre): FieldName => (centre === "geo" ? "apparent_longitude" : "helio_longitude");

/** The body that stands in for one: seen from the Sun the Earth is where the Sun was, and there is no
 * Moon of its own. */
export function bodyOf(body: BodyName, centre: Centre): BodyName | null {
  if (centre === "geo") {
    return body === "earth" ? "sun" : body;
  }
  return body === "sun" ? "earth" : body === "moon" ? null : body;
}

export function bodiesOf(bodies: readonly BodyName[], centre: Centre): BodyName[] {
  return bodies.map((body) => bodyOf(body, centre)).filter((body): body is BodyName => body !== null);
}

const LETTERS: Readonly<Record<string, string>> = {
  solar_total: "T", solar_annular: "A", solar_annular_total: "H", solar_total_noncentral: "T",
  solar_annular_noncentral: "A", solar_partial: "P", lunar_total: "T", lunar_partial: "P", lunar_penumbral: "N",
};

const SEASONS: Readonly<Record<string, string>> = {
  march_equinox: "Mar equinox", june_solstice: "Jun solstice", september_equinox: "Sep equinox", december_solstice: "Dec solstice",
};

const capital = (text: string) => text.charAt(0).toUpperCase() + text.slice(1);

/** Phases, eclipses and seasons. */
export function moonAndSunMarks(from: number, to: number): Mark[] {
  const found = events(new Date(from), new Date(to));
  return found.kind.map((kind, k) => {
    const of: MarkKind = kind in SEASONS ? "seasons" : kind in LETTERS ? "eclipses" : "phases";
    const text = capital(kindName(kind));
    return { time: found.time[k]!, kind: of, text, sign: SEASONS[kind] ?? LETTERS[kind] ?? "", event: kind };
  });
}

/** A body's stations, and the spans in which it is retrograde. */
export function retrogradeOf(body: BodyName, from: number, to: number): { marks: Mark[]; spans: Span[] } {
  if (body === "sun" || body === "moon" || body === "earth") {
    return { marks: [], spans: [] };
  }
  const found = stations(body, new Date(from), new Date(to));
  const isRetrograde = found.time.length === 0 && position(body, new Date(from), "direction") < 0;
  const { name, glyph } = BODY_LOOKS[body];
  const marks = Array.from(found.time, (time, k): Mark => {
    const isTurned = found.direction[k]! < 0;
    return {
      time, kind: "stations", body, text: `${name} turns ${isTurned ? "retrograde" : "direct"}`,
      sign: `${glyph} ${isTurned ? "R" : "D"}`,
    };
  });
  return { marks, spans: retrogradeSpans(found.time, found.direction, from, to, isRetrograde) };
}

export function ingressMarks(body: BodyName, from: number, to: number, centre: Centre): Mark[] {
  const found = ingresses(body, new Date(from), new Date(to), { field: longitudeField(centre) });
  const { name, glyph } = BODY_LOOKS[body];
  return Array.from(found.time, (time, k): Mark => {
    const boundary = Math.round(found.target[k]! / 30) % 12;
    const isBack = found.direction[k]! < 0;
    const sign = SIGNS[isBack ? (boundary + 11) % 12 : boundary]!;
    return {
      time, kind: "ingresses", body, text: `${name} enters ${sign.name}${isBack ? ", retrograde" : ""}`,
      sign: `${glyph}${sign.glyph}`,
    };
  });
}

/** A body's aspects with others. */
export function aspectMarks(body: BodyName, others: readonly BodyName[], from: number, to: number, centre: Centre): Mark[] {
  if (others.length === 0) {
    return [];
  }
  const found = aspects(
    body, others, ASPECTS.map(({ angle }) => angle), new Date(from), new Date(to), { field: longitudeField(centre) });
  return Array.from(found.time, (time, k): Mark => {
    const aspect = ASPECTS.find(({ angle }) => angle === found.angle[k])!;
    const other = BODY_LOOKS[found.other[k]!];
    return {
      time, kind: "aspects", body, text: `${BODY_LOOKS[body].name} ${aspect.name} ${other.name}`,
      sign: `${BODY_LOOKS[body].glyph}${aspect.glyph}${other.glyph}`,
    };
  });
}

// The Moon enters a sign every other day and meets every body each week.
const MOST_DAYS_OF_THE_MOON = 100;

export function isMoonTooFast(from: number, to: number): boolean {
  return to - from > MOST_DAYS_OF_THE_MOON * 86400e3;
}

/** Marks of one kind in the order of time, with their times alone. */
export interface MarkList {
  marks: readonly Mark[];
  times: Float64Array;
}

export function byKind(marks: readonly Mark[]): Map<MarkKind, MarkList> {
  const lists = new Map<MarkKind, MarkList>();
  for (const kind of new Set(marks.map((mark) => mark.kind))) {
    const some = marks.filter((mark) => mark.kind === kind);
    lists.set(kind, { marks: some, times: Float64Array.from(some, ({ time }) => time) });
  }
  return lists;
}

/** The searches of a span, one short step each, so that the page stays at hand in between. */
export function* searchSteps(
  bodies: readonly BodyName[], kinds: readonly MarkKind[], from: number, to: number, centre: Centre,
): Generator<Mark[]> {
  const has = (kind: MarkKind) => kinds.includes(kind);
  if (has("phases") || has("eclipses") || has("seasons")) {
    yield moonAndSunMarks(from, to).filter(({ kind }) => has(kind));
  }
  const slow = isMoonTooFast(from, to) ? bodies.filter((body) => body !== "moon") : bodies;
  for (const body of slow) {
    if (has("ingresses")) {
      yield ingressMarks(body, from, to, centre);
    }
  }
  for (const [k, body] of slow.entries()) {
    if (has("aspects")) {
      yield aspectMarks(body, slow.slice(k + 1), from, to, centre);
    }
  }
}

/** Works steps off while the page has nothing else to do; `done` gets all marks in the order of time.
 * The answer stops it. */
export function searchLater(steps: Iterator<Mark[]>, done: (marks: Mark[]) => void): () => void {
  const marks: Mark[] = [];
  let timer = 0;
  const work = () => {
    const until = performance.now() + 12;
    for (;;) {
      const step = steps.next();
      if (step.done) {
        done(marks.sort((a, b) => a.time - b.time));
        return;
      }
      marks.push(...step.value);
      if (performance.now() > until) {
        timer = window.setTimeout(work, 0);
        return;
      }
    }
  };
  timer = window.setTimeout(work, 0);
  return () => window.clearTimeout(timer);
}
