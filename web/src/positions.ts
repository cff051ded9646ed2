// Where bodies stand: values of fields of bodies at moments.

import { BodyLike, FieldLike, OneOrMany, bodiesOf, fieldsOf } from "./codes.js";
import { doubles, integers, library, room } from "./library.js";
import { Moment, Scale, Times, isDoubles, isMany, julianDays } from "./times.js";

// How the room is divided: days, values, and the numbers of bodies and fields [doubles].
const MOST_DAYS = 32768;
const MOST_VALUES = 65536;
const CODES_AT = MOST_DAYS + MOST_VALUES;
const MOST_CELLS = 16384; // of a moment

export interface PositionOptions {
  /** What the times are given in, where it is not clock time for dates and texts and dynamical time
   * for numbers. */
  scale?: Scale;
  /** Takes the values, and is the answer, in place of a new array; as long as the answer. */
  out?: Float64Array;
}

/** The values at each of the days, day by day, into `values`. */
function fillTable(bodies: number[], fields: number[], days: Float64Array, values: Float64Array): void {
  const cells = bodies.length * fields.length;
  if (cells > MOST_CELLS) {
    throw new RangeError(`bodies, fields: ${cells} values a moment are more than ${MOST_CELLS}`);
  }
  const daysAt = room;
  const valuesAt = room + 8 * MOST_DAYS;
  const bodiesAt = room + 8 * CODES_AT;
  const step = Math.min(MOST_DAYS, Math.floor(MOST_VALUES / Math.max(cells, 1)));
  for (let first = 0; first < days.length && cells > 0; first += step) {
    const count = Math.min(step, days.length - first);
    doubles.set(days.subarray(first, first + count));
    if (cells === 1) {
      library.Values(bodies[0]!, fields[0]!, daysAt, count, valuesAt);
    } else {
      integers.set(bodies, 2 * CODES_AT);
      integers.set(fields, 2 * CODES_AT + bodies.length);
      library.Table(bodiesAt, bodies.length, bodiesAt + 4 * bodies.length, fields.length, daysAt, count,
        valuesAt, 0, 0, 0);
    }
    values.set(doubles.subarray(MOST_DAYS, MOST_DAYS + count * cells), first * cells);
  }
}

/** Values of fields of bodies at moments.
 *
 * `bodies` and `fields` are one or several, names or numbers; `unit` gives the units: degrees, hours
 * of right ascension, au; the Moon's distance in km. `times` is one moment or several.
 *
 * The answer is a number where all three are given alone, else every body and field at every moment
 * in one `Float64Array`: the value of field f of body b at moment t is
 * `answer[(t * bodies.length + b) * fields.length + f]`. NaN where a moment is none or infinite, and
 * where a body has not the field. A `RangeError` says which element is no body, field or moment.
 *
 *     position("mars", "2026-11-21T06:30") // 148.0623...
 *     position(["sun", "moon"], days, ["declination", "elongation"])
 */
export function position(
  body: BodyLike, time: Moment, field?: FieldLike, options?: { scale?: Scale },
): number;
export function position(
  bodies: OneOrMany<BodyLike>, times: Times, fields?: OneOrMany<FieldLike>, options?: PositionOptions,
): Float64Array;
export function position(
  bodies: OneOrMany<BodyLike>, times: Times, fields: OneOrMany<FieldLike> = "apparent_longitude",
  options: PositionOptions = {},
): number | Float64Array {
  const bodyCodes = bodiesOf(bodies);
  const fieldCodes = fieldsOf(fields);
  const days = julianDays(times, options.scale, "times");
  const size = days.length * bodyCodes.length * fieldCodes.length;
  const values = options.out ?? new Float64Array(size);
  if (!isDoubles(values) || values.length !== size) {
    throw new RangeError(`out: a Float64Array of ${size} numbers is needed`);
  }
  fillTable(bodyCodes, fieldCodes, days, values);
  const isOne = !Array.isArray(bodies) && !isMany(times) && !Array.isArray(fields);
  return isOne && options.out === undefined ? values[0]! : values;
}
