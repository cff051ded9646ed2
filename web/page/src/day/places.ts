// Places: those with a name, and coordinates as people write them.

export interface Spot {
  /** [deg] north and east positive */
  latitude: number;
  longitude: number;
}

/** Cities with an exchange, capitals, and some far north and south; to a hundredth of a degree. */
const PLACES: readonly (readonly [string, number, number])[] = [
  ["Amsterdam", 52.37, 4.9], ["Athens", 37.98, 23.73], ["Auckland", -36.85, 174.76], ["Bangkok", 13.76, 100.5],
  ["Beijing", 39.9, 116.4], ["Berlin", 52.52, 13.4], ["Bogota", 4.71, -74.07], ["Brussels", 50.85, 4.35],
  ["Budapest", 47.5, 19.04], ["Buenos Aires", -34.6, -58.38], ["Cairo", 30.04, 31.24], ["Cape Town", -33.92, 18.42],
  ["Chicago", 41.88, -87.63], ["Copenhagen", 55.68, 12.57], ["Dublin", 53.35, -6.26], ["Frankfurt", 50.11, 8.68],
  ["Greenwich", 51.4779, 0], ["Helsinki", 60.17, 24.94], ["Hong Kong", 22.32, 114.17], ["Honolulu", 21.31, -157.86],
  ["Istanbul", 41.01, 28.98], ["Jakarta", -6.21, 106.85], ["Johannesburg", -26.2, 28.05], ["Karachi", 24.86, 67.01],
  ["Kiruna", 67.86, 20.23], ["Kuala Lumpur", 3.14, 101.69], ["Lagos", 6.52, 3.38], ["Lima", -12.05, -77.04],
  ["Lisbon", 38.72, -9.14], ["London", 51.51, -0.13], ["Longyearbyen", 78.22, 15.63], ["Los Angeles", 34.05, -118.24],
  ["Madrid", 40.42, -3.7], ["Manila", 14.6, 120.98], ["McMurdo", -77.85, 166.67], ["Melbourne", -37.81, 144.96],
  ["Mexico City", 19.43, -99.13], ["Milan", 45.46, 9.19], ["Moscow", 55.76, 37.62], ["Mumbai", 19.08, 72.88],
  ["Nairobi", -1.29, 36.82], ["New Delhi", 28.61, 77.21], ["New York", 40.71, -74.01], ["Oslo", 59.91, 10.75],
  ["Paris", 48.86, 2.35], ["Prague", 50.08, 14.44], ["Quito", -0.18, -78.47], ["Reykjavik", 64.15, -21.94],
  ["Riyadh", 24.71, 46.68], ["Rome", 41.9, 12.5], ["San Francisco", 37.77, -122.42], ["Santiago", -33.45, -70.67],
  ["Sao Paulo", -23.55, -46.63], ["Seoul", 37.57, 126.98], ["Shanghai", 31.23, 121.47], ["Shenzhen", 22.54, 114.06],
  ["Singapore", 1.35, 103.82], ["Stockholm", 59.33, 18.07], ["Sydney", -33.87, 151.21], ["Taipei", 25.03, 121.57],
  ["Tel Aviv", 32.09, 34.78], ["Tokyo", 35.68, 139.69], ["Toronto", 43.65, -79.38], ["Tromso", 69.65, 18.96],
  ["Ushuaia", -54.8, -68.3], ["Vancouver", 49.28, -123.12], ["Vienna", 48.21, 16.37], ["Warsaw", 52.23, 21.01],
  ["Washington", 38.91, -77.04], ["Wellington", -41.29, 174.78], ["Zurich", 47.38, 8.54],
];

export const PLACE_NAMES: readonly string[] = PLACES.map(([name]) => name);

/** "51.48 N, 0.13 W" */
export function coordinates({ latitude, longitude }: Spot): string {
  const part = (value: number, plus: string, minus: string) =>
    `${Number(Math.abs(value).toFixed(4))} ${value < 0 ? minus : plus}`;
  return `${part(latitude, "N", "S")}, ${part(longitude, "E", "W")}`;
}

/** The name of a place of the list, else its coordinates. */
export function placeName(spot: Spot): string {
  const known = PLACES.find(([, latitude, longitude]) => latitude === spot.latitude && longitude === spot.longitude);
  return known ? known[0] : coordinates(spot);
}

const plain = (text: string) => text.normalize("NFD").replace(/[\u0300-\u036f]/g, "").trim().toLowerCase();

// 59.33, 59.33°, 59°20', 59 20 N, 59°20'15"N
const ANGLE = /^([+-])?\s*(\d+(?:\.\d+)?)\s*°?\s*(?:(\d+(?:\.\d+)?)\s*['′]?\s*)?(?:(\d+(?:\.\d+)?)\s*(?:"|″|'')?\s*)?([NSEW])?$/i;

function angle(text: string, plus: string, minus: string, most: number): number | null {
  const found = ANGLE.exec(text.trim());
  if (!found) {
    return null;
  }
  const [, sign, degrees, minutes = "0", seconds = "0", side = ""] = found;
  const letter = side.toUpperCase();
  const isWrong = (letter !== "" && !(plus + minus).includes(letter)) || Number(minutes) >= 60 || Number(seconds) >= 60;
  const size = Number(degrees) + Number(minutes) / 60 + Number(seconds) / 3600;
  const isNegative = (sign === "-") !== (letter !== "" && minus.includes(letter));
  return isWrong || size > most ? null : Number((isNegative ? -size : size).toFixed(6));
}

/** What is meant by a text; a sentence that says what to write where that cannot be told. */
export function readPlace(text: string): Spot | string {
  const wanted = plain(text);
  if (wanted === "") {
    return "Type a city of the list, or latitude and longitude: 59.33, 18.07.";
  }
  const exact = PLACES.find(([name]) => plain(name) === wanted);
  const beginning = PLACES.filter(([name]) => plain(name).startsWith(wanted));
  const known = exact ?? (beginning.length === 1 ? beginning[0] : undefined);
  if (known) {
    return { latitude: known[1], longitude: known[2] };
  }
  if (beginning.length > 1) {
    return `"${text.trim()}" begins several names: ${beginning.map(([name]) => name).join(", ")}.`;
  }
  // Two angles with a comma, a semicolon, a letter or a space between.
  const cuts = [/^(.*?)[,;](.*)$/, /^(.*?[NS])\s*(.*)$/i, /^(\S+)\s+(\S+)$/];
  for (const cut of cuts) {
    const found = cut.exec(text.trim());
    const latitude = found && angle(found[1]!, "N", "S", 90);
    const longitude = found && angle(found[2]!, "E", "W", 180);
    if (typeof latitude === "number" && typeof longitude === "number") {
      return { latitude, longitude };
    }
  }
  return /\d/.test(text)
    ? `"${text.trim()}" is not latitude and longitude. Write 59.33, 18.07 or 59°20'N 18°04'E; latitude from -90 to 90, ` +
        "longitude from -180 to 180, south and west negative."
    : `"${text.trim()}" is not in the list of cities. Type its latitude and longitude: 59.33, 18.07.`;
}
