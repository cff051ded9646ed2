// Where every body stands at a moment: the rows of Sky's table.

import { position } from "zenithor";
import type { BodyName, FieldName } from "zenithor";
import { GEOCENTRIC, HELIOCENTRIC } from "../bodies.js";

const KM_PER_AU = 149597870.7;

export interface Place {
  body: BodyName;
  /** [deg] */
  longitude: number;
  latitude: number;
  /** [au] */
  distance: number;
}

export interface GeocentricPlace extends Place {
  /** [deg/day] */
  motion: number;
  /** [h] */
  rightAscension: number;
  /** [deg] */
  declination: number;
  elongation: number;
}

function rows<F extends FieldName>(bodies: readonly BodyName[], time: number, fields: readonly F[]) {
  const values = position(bodies, [new Date(time)], fields) as Float64Array;
  return bodies.map((body, b) => ({
    body,
    value: (field: F) => values[b * fields.length + fields.indexOf(field)]!,
  }));
}

/** `time` is Unix time [ms]. */
export function geocentricPlaces(time: number): GeocentricPlace[] {
  const fields = [
    "apparent_longitude", "apparent_latitude", "geo_distance", "longitude_motion", "right_ascension", "declination",
    "elongation",
  ] as const;
  return rows(GEOCENTRIC, time, fields).map(({ body, value }) => ({
    body,
    longitude: value("apparent_longitude"),
    latitude: value("apparent_latitude"),
    distance: value("geo_distance") / (body === "moon" ? KM_PER_AU : 1),
    motion: value("longitude_motion"),
    rightAscension: value("right_ascension"),
    declination: value("declination"),
    elongation: value("elongation"),
  }));
}

export function heliocentricPlaces(time: number): Place[] {
  const fields = ["helio_longitude", "helio_latitude", "helio_distance"] as const;
  return rows(HELIOCENTRIC, time, fields).map(({ body, value }) => ({
    body,
    longitude: value("helio_longitude"),
    latitude: value("helio_latitude"),
    distance: value("helio_distance"),
  }));
}

/** The angles that are looked for between bodies, and how far from exact they still count. */
export const ASPECTS: readonly { angle: number; name: string; glyph: string; dash: string | null }[] = [
  { angle: 0, name: "conjunction", glyph: "☌\uFE0E", dash: null },
  { angle: 60, name: "sextile", glyph: "✶\uFE0E", dash: "2 3" },
  { angle: 90, name: "square", glyph: "□\uFE0E", dash: "8 3" },
  { angle: 120, name: "trine", glyph: "△\uFE0E", dash: "4 3" },
  { angle: 180, name: "opposition", glyph: "☍\uFE0E", dash: null },
];
export const ORB = 3;

export interface AspectNow {
  first: Place;
  second: Place;
  aspect: (typeof ASPECTS)[number];
  /** [deg] 0 to 180 */
  angle: number;
}

/** The aspects within the orb, nearest to exact first. */
export function aspectsNow(places: readonly Place[]): AspectNow[] {
  const found: AspectNow[] = [];
  places.forEach((first, k) => {
    for (const second of places.slice(k + 1)) {
      const apart = Math.abs(first.longitude - second.longitude) % 360;
      const angle = Math.min(apart, 360 - apart);
      const aspect = ASPECTS.find((one) => Math.abs(one.angle - angle) <= ORB);
      if (aspect) {
        found.push({ first, second, aspect, angle });
      }
    }
  });
  return found.sort((a, b) => Math.abs(a.angle - a.aspect.angle) - Math.abs(b.angle - b.aspect.angle));
}
