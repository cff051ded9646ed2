// Where the Sun, the Moon and the planets stand, and when something happens in the sky.

export { Body, EventKind, Field, hasField, kindName, unit } from "./codes.js";
export type {
  BodyLike, BodyName, EventKindName, FieldLike, FieldName, KindLike, KindSetName, OneOrMany, RiseStatus,
} from "./codes.js";
export { rise } from "./daily.js";
export type { RiseTransitSet } from "./daily.js";
export { dataFingerprint, version } from "./library.js";
export { position } from "./positions.js";
export type { PositionOptions } from "./positions.js";
export { aspects, crossings, events, ingresses, stations } from "./searches.js";
export type { Aspects, Crossings, Events, Moments, SearchOptions, Stations } from "./searches.js";
export { julianDay, unixTime } from "./times.js";
export type { Moment, Scale, Times } from "./times.js";
