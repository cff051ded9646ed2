// As types.mts, in a CommonJS module.
import zenithor = require("zenithor");

const longitude: number = zenithor.position("mars", 2451545);
const version: string = zenithor.version;

export = { longitude, version };
