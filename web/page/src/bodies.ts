// How a body is named and drawn, the same in every view.

import type { BodyName } from "zenithor";

export type Theme = "light" | "dark";

export interface BodyLook {
  name: string;
  /** With the variation selector that asks for text and not for a picture. */
  glyph: string;
  light: string;
  dark: string;
  /** [px] */
  width: number;
  /** Strokes and gaps [px]; none is a solid line. */
  dash: readonly number[];
}

const text = (glyph: string) => glyph + "\uFE0E";
const LONG = [8, 3];
const SHORT = [4, 3];
const DOTS = [2, 3];

export const BODY_LOOKS: Readonly<Record<BodyName, BodyLook>> = {
  sun: { name: "Sun", glyph: text("☉"), light: "#b07d00", dark: "#f0c040", width: 2, dash: [] },
  moon: { name: "Moon", glyph: text("☽"), light: "#6b7280", dark: "#c3cad3", width: 1, dash: [] },
  mercury: { name: "Mercury", glyph: text("☿"), light: "#0072b2", dark: "#56b4e9", width: 1.5, dash: [] },
  venus: { name: "Venus", glyph: text("♀"), light: "#008f68", dark: "#35c79a", width: 1.5, dash: [] },
  earth: { name: "Earth", glyph: text("⊕"), light: "#3b6fb6", dark: "#8ab4f8", width: 1.5, dash: [] },
  mars: { name: "Mars", glyph: text("♂"), light: "#c2410c", dark: "#ff8a5c", width: 1.5, dash: [] },
  jupiter: { name: "Jupiter", glyph: text("♃"), light: "#8a5a00", dark: "#d9a441", width: 1.5, dash: LONG },
  saturn: { name: "Saturn", glyph: text("♄"), light: "#4b5563", dark: "#aab4c0", width: 1.5, dash: LONG },
  uranus: { name: "Uranus", glyph: text("♅"), light: "#0e7490", dark: "#4fd1e5", width: 1.5, dash: SHORT },
  neptune: { name: "Neptune", glyph: text("♆"), light: "#4338ca", dark: "#9d97ff", width: 1.5, dash: SHORT },
  pluto: { name: "Pluto", glyph: text("♇"), light: "#9d2b6b", dark: "#f08cc0", width: 1.5, dash: DOTS },
};

/** From the Earth and from the Sun, in the order in which tables have them. */
export const GEOCENTRIC: readonly BodyName[] = [
  "sun", "moon", "mercury", "venus", "mars", "jupiter", "saturn", "uranus", "neptune", "pluto",
];
export const HELIOCENTRIC: readonly BodyName[] = [
  "mercury", "venus", "earth", "mars", "jupiter", "saturn", "uranus", "neptune", "pluto",
];

export function bodyColour(body: BodyName, theme: Theme): string {
  return BODY_LOOKS[body][theme];
}

/** "☉︎ Sun" */
export function bodyLabel(body: BodyName): string {
  return `${BODY_LOOKS[body].glyph} ${BODY_LOOKS[body].name}`;
}

export const SIGNS: readonly { name: string; short: string; glyph: string }[] = [
  { name: "Aries", short: "Ari", glyph: text("♈") },
  { name: "Taurus", short: "Tau", glyph: text("♉") },
  { name: "Gemini", short: "Gem", glyph: text("♊") },
  { name: "Cancer", short: "Cnc", glyph: text("♋") },
  { name: "Leo", short: "Leo", glyph: text("♌") },
  { name: "Virgo", short: "Vir", glyph: text("♍") },
  { name: "Libra", short: "Lib", glyph: text("♎") },
  { name: "Scorpio", short: "Sco", glyph: text("♏") },
  { name: "Sagittarius", short: "Sgr", glyph: text("♐") },
  { name: "Capricorn", short: "Cap", glyph: text("♑") },
  { name: "Aquarius", short: "Aqr", glyph: text("♒") },
  { name: "Pisces", short: "Psc", glyph: text("♓") },
];

/** A longitude [deg] in the zodiac, cut to whole minutes: `22 Psc 33'`. */
export function zodiac(longitude: number): string {
  const wrapped = ((longitude % 360) + 360) % 360;
  const minutes = Math.floor(wrapped * 60 + 1e-6) % 21600;
  const pad = (value: number) => String(value).padStart(2, "0");
  return `${pad(Math.floor((minutes % 1800) / 60))} ${SIGNS[Math.floor(minutes / 1800)]!.short} ${pad(minutes % 60)}'`;
}
