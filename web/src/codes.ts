// Bodies, fields, kinds of events: names with the numbers of values.h.

import { library, text } from "./library.js";

/** Bodies. Wherever one is taken, its name in any case or its number does. */
export const Body = Object.freeze({
  sun: 0,
  mercury: 1,
  venus: 2,
  earth: 3,
  mars: 4,
  jupiter: 5,
  saturn: 6,
  uranus: 7,
  neptune: 8,
  pluto: 9,
  moon: 10,
} as const);

/** Values of a body at a moment. `unit` and `hasField` say what one is measured in and whether a
 * body has it. `geo_longitude` and `geo_latitude` are geometric for the Sun and the planets;
 * almanacs print `apparent_longitude` and `apparent_latitude`: light time, aberration and nutation
 * are in. */
export const Field = Object.freeze({
  /** [deg] 0 to 360 */
  helio_longitude: 1,
  /** [deg] */
  helio_latitude: 2,
  /** [au] */
  helio_distance: 3,
  /** [deg] 0 to 360 */
  geo_longitude: 4,
  /** [deg] */
  geo_latitude: 5,
  /** [au], the Moon [km] */
  geo_distance: 6,
  /** [h] apparent, 0 to 24 */
  right_ascension: 7,
  /** [deg] apparent */
  declination: 8,
  /** [rad] 0 to pi */
  moon_phase_angle: 9,
  /** [rad] position angle of the axis */
  moon_axis_angle: 10,
  /** illuminated fraction of the disc, 0 to 1 */
  moon_illumination: 15,
  /** [rad] mean obliquity of the ecliptic of date */
  obliquity: 16,
  /** [Julian centuries] from J2000.0 */
  centuries: 17,
  /** of the moment's date in dynamical time; year 0 is 1 BC */
  year: 18,
  month: 19,
  day: 20,
  hour: 21,
  minute: 22,
  second: 23,
  /** [deg] 0 to 360 */
  apparent_longitude: 101,
  /** [deg] */
  apparent_latitude: 102,
  /** [deg/day] of the apparent longitude */
  longitude_motion: 103,
  /** [deg/day] */
  declination_motion: 104,
  /** [deg] from the Sun, 0 to 180 */
  elongation: 105,
  /** 1 direct, -1 retrograde */
  direction: 106,
} as const);

/** Kinds of events. */
export const EventKind = Object.freeze({
  march_equinox: 0,
  june_solstice: 1,
  september_equinox: 2,
  december_solstice: 3,
  new_moon: 4,
  first_quarter: 5,
  full_moon: 6,
  last_quarter: 7,
  solar_total: 8,
  solar_annular: 9,
  solar_annular_total: 10,
  solar_total_noncentral: 11,
  solar_annular_noncentral: 12,
  solar_partial: 13,
  solar_any: 14,
  lunar_total: 15,
  lunar_partial: 16,
  lunar_penumbral: 17,
  lunar_any: 18,
} as const);

/** Kinds that are asked for together: bit k stands for kind k. */
const KIND_SETS = {
  seasons: 0x0000f,
  phases: 0x000f0,
  solar_eclipses: 0x03f00,
  lunar_eclipses: 0x38000,
  eclipses: 0x3bf00,
  all: 0x3bfff,
} as const;

/** What there is to say of a rise, transit or set on a day: its time is given; the body stays above
 * the horizon; it stays below, the transit too; not on this day, but on the days before and after;
 * no time can be told, because an argument is not a number. */
export const RISE_STATUSES = ["happens", "always_up", "never_up", "none", "unsettled"] as const;

export type BodyName = keyof typeof Body;
export type FieldName = keyof typeof Field;
export type EventKindName = keyof typeof EventKind;
export type KindSetName = keyof typeof KIND_SETS;
export type RiseStatus = (typeof RISE_STATUSES)[number];
export type BodyLike = BodyName | number;
export type FieldLike = FieldName | number;
export type KindLike = EventKindName | KindSetName | number;
export type OneOrMany<T> = T | readonly T[];

type Codes = Readonly<Record<string, number>>;

/** A value as a message shows it. */
export function shown(value: unknown): string {
  return typeof value === "string" ? JSON.stringify(value) : String(value);
}

function plain(name: string): string {
  return name.trim().toLowerCase().replace(/[\s_-]+/g, "_");
}

/** The number that is meant. `where` names the argument or element in the message. */
function codeOf(
  codes: Codes, what: string, value: unknown, where: string, further: readonly string[] = [],
): number {
  if (typeof value === "string" && Object.prototype.hasOwnProperty.call(codes, plain(value))) {
    return codes[plain(value)]!;
  }
  if (typeof value === "number" && Object.values(codes).includes(value)) {
    return value;
  }
  const known = [...further, ...Object.keys(codes)].join(", ");
  throw new RangeError(`${where}: there is no ${what} ${shown(value)}; there are ${known}`);
}

function codesOf(codes: Codes, what: string, values: unknown, argument: string): number[] {
  return Array.isArray(values)
    ? values.map((value, k) => codeOf(codes, what, value, `${argument}[${k}]`))
    : [codeOf(codes, what, values, argument)];
}

/** The name of a number. */
function nameOf<Name extends string>(codes: Readonly<Record<Name, number>>, code: number): Name {
  return (Object.keys(codes) as Name[]).find((name) => codes[name] === code)!;
}

export const bodyOf = (value: unknown, where = "body"): number => codeOf(Body, "body", value, where);
export const bodiesOf = (values: unknown, argument = "bodies"): number[] =>
  codesOf(Body, "body", values, argument);
export const fieldOf = (value: unknown): number => codeOf(Field, "field", value, "field");
export const fieldsOf = (values: unknown): number[] => codesOf(Field, "field", values, "fields");
export const bodyName = (code: number): BodyName => nameOf(Body, code);
export const fieldName = (code: number): FieldName => nameOf(Field, code);
export const eventKindName = (code: number): EventKindName => nameOf(EventKind, code);

/** The bits of the kinds that are meant. */
export function kindSetOf(kinds: OneOrMany<KindLike>): number {
  const many = Array.isArray(kinds);
  let bits = 0;
  (many ? kinds : [kinds]).forEach((kind: unknown, k: number) => {
    const sets: Codes = KIND_SETS;
    const name = typeof kind === "string" ? plain(kind) : "";
    const where = many ? `kinds[${k}]` : "kinds";
    bits |= Object.prototype.hasOwnProperty.call(sets, name)
      ? sets[name]!
      : 1 << codeOf(EventKind, "kind of event", kind, where, Object.keys(sets));
  });
  if (bits === 0) {
    throw new RangeError("kinds: at least one kind of event is needed");
  }
  return bits;
}

/** The unit of a field of a body: "deg", "rad", "h", "au", "km", "deg/day", "century", "" for a
 * plain number; `null` when the body has not the field. */
export function unit(body: BodyLike, field: FieldLike): string | null {
  return text(library.FieldUnit(bodyOf(body), fieldOf(field)));
}

/** Whether a body has a field; where it has not, the values are NaN. */
export function hasField(body: BodyLike, field: FieldLike): boolean {
  return library.HasField(bodyOf(body), fieldOf(field)) !== 0;
}

/** A kind of event in words: "total solar eclipse". */
export function kindName(kind: EventKindName | number): string {
  return text(library.KindName(codeOf(EventKind, "kind of event", kind, "kind")))!;
}
