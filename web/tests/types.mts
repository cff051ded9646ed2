// Compiled strictly against the package, not run.
import { Body, events, julianDay, position, rise, stations } from "zenithor";
import type { Aspects, BodyName, EventKindName, RiseStatus } from "zenithor";

const one: number = position("mars", new Date());
const many: Float64Array = position(["mars", Body.moon], new Float64Array(3), ["declination", "elongation"]);
const several: Float64Array = position("mars", ["2026", null, 2451545], "declination", { scale: "tt", out: many });
const day: number = julianDay("2026");
const kinds: EventKindName[] = events("2026", "2027", ["phases", "solar_total"]).kind;
const bodies: BodyName[] = stations("venus", 2451545, new Date(), { field: "declination" }).body;
const status: RiseStatus | undefined = rise("sun", "2026-11-21", [59, 60], 18, { zone: 1 }).status[0];
const angle = (found: Aspects): Float64Array => found.angle;

// @ts-expect-error no such body
position("vulcan", 2451545);
// @ts-expect-error no such field
position("mars", 2451545, "colour");
// @ts-expect-error many moments give an array
const wrong: number = position("mars", [2451545]);
// @ts-expect-error no such kind of event
events("2026", "2027", "party");
// @ts-expect-error a place is needed
rise("sun", "2026-11-21");

export { angle, bodies, day, kinds, one, several, status, wrong };
