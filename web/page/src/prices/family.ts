// Longitudes as prices: a price for each degree, and lines a fixed number of degrees apart, so that some
// of them cross the prices that are there.

/** The most lines of one body that are drawn; more would be a grey area. */
export const MOST_LINES = 40;

export interface Family {
  /** Price units per degree. */
  unit: number;
  /** Degrees from line to line; they divide the circle. */
  spacing: number;
  /** Whether prices fall as the longitude grows. */
  isMirrored: boolean;
}

/** The price of a longitude [deg] on the line `k` of a family: `unit * (longitude + k * spacing)`, the
 * longitude's sign turned where the family is mirrored. */
export function priceOf(longitude: number, k: number, family: Family): number {
  return family.unit * ((family.isMirrored ? -longitude : longitude) + k * family.spacing);
}

/** The lines of a family that can meet prices from `low` to `high`: their first number and how many
 * they are. Each line covers one spacing, the longitude taken modulo the spacing. */
export function linesBetween(low: number, high: number, family: Family): { first: number; count: number } {
  const width = family.unit * family.spacing;
  const shift = family.isMirrored ? 1 : 0;
  const first = Math.floor(low / width) + shift;
  const last = Math.floor(high / width) + shift;
  return { first, count: Number.isFinite(first + last) ? last - first + 1 : 0 };
}

/** The line of a family that is nearest to a price, and its price there. */
export function nearestLine(longitude: number, price: number, family: Family): { k: number; price: number } {
  const k = Math.round((price - priceOf(longitude, 0, family)) / (family.unit * family.spacing));
  return { k, price: priceOf(longitude, k, family) };
}

/** A round number of price units per degree with which about three lines cross the prices. */
export function suggestedUnit(low: number, high: number, spacing: number): number {
  const ideal = (high - low) / (3 * spacing);
  if (!(ideal > 0) || !Number.isFinite(ideal)) {
    return 1;
  }
  const power = 10 ** Math.floor(Math.log10(ideal));
  const step = [1, 2, 5, 10].reduce((a, b) =>
    Math.abs(Math.log(b * power / ideal)) < Math.abs(Math.log(a * power / ideal)) ? b : a);
  return Number((step * power).toPrecision(3));
}
