// Moments as people read them: Unix time [ms] in UTC or in the browser's zone.

export type Zone = "utc" | "local";
export type Precision = "day" | "minute" | "second";

export interface Clock {
  zone: Zone;
  /** What stands beside every time: "UTC" or "Europe/Stockholm". */
  label: string;
  /** `2026-11-21`, `2026-11-21 06:30`, `2026-11-21 06:30:05`, cut and not rounded. */
  format(time: number, precision?: Precision): string;
  /** `06:30` */
  hourMinute(time: number): string;
  /** How far the clock is ahead of UTC [h]. */
  offset(time: number): number;
  /** The moment at which this clock shows a date and a time of day, months and days beyond the end
   * counted on; January is 0. */
  at(year: number, month: number, day: number, hour?: number, minute?: number): number;
  /** Year, month (January is 0), day, hour, minute, second. */
  parts(time: number): [number, number, number, number, number, number];
}

/** The name of the browser's zone, "UTC" where it cannot tell. */
export function localZoneName(): string {
  return Intl.DateTimeFormat().resolvedOptions().timeZone || "UTC";
}

const pad = (value: number) => String(value).padStart(2, "0");

function yearText(year: number): string {
  const digits = String(Math.abs(year)).padStart(4, "0");
  return year < 0 ? `-${digits}` : digits;
}

export function clockOf(zone: Zone): Clock {
  const isUtc = zone === "utc";

  const parts: Clock["parts"] = (time) => {
    const date = new Date(time);
    return isUtc
      ? [date.getUTCFullYear(), date.getUTCMonth(), date.getUTCDate(),
         date.getUTCHours(), date.getUTCMinutes(), date.getUTCSeconds()]
      : [date.getFullYear(), date.getMonth(), date.getDate(),
         date.getHours(), date.getMinutes(), date.getSeconds()];
  };

  const at: Clock["at"] = (year, month, day, hour = 0, minute = 0) => {
    const date = new Date(0);
    if (isUtc) {
      date.setUTCFullYear(year, month, day);
      date.setUTCHours(hour, minute, 0, 0);
    } else {
      date.setHours(12, 0, 0, 0);
      date.setFullYear(year, month, day);
      date.setHours(hour, minute, 0, 0);
    }
    return date.getTime();
  };

  return {
    zone,
    label: isUtc ? "UTC" : localZoneName(),
    parts,
    at,
    format(time, precision = "minute") {
      if (!Number.isFinite(time)) {
        return "";
      }
      const [year, month, day, hour, minute, second] = parts(time);
      const date = `${yearText(year)}-${pad(month + 1)}-${pad(day)}`;
      if (precision === "day") {
        return date;
      }
      return `${date} ${pad(hour)}:${pad(minute)}${precision === "second" ? `:${pad(second)}` : ""}`;
    },
    hourMinute(time) {
      const [, , , hour, minute] = parts(time);
      return Number.isFinite(time) ? `${pad(hour)}:${pad(minute)}` : "";
    },
    offset: (time) => (isUtc ? 0 : -new Date(time).getTimezoneOffset() / 60),
  };
}

/** Year, month (January is 0) and day of `2026-11-21`; `null` where that is no day. */
export function dayOf(text: string): [number, number, number] | null {
  const found = /^(-?\d{4})-(\d\d)-(\d\d)$/.exec(text);
  if (found === null) {
    return null;
  }
  const [year, month, day] = [Number(found[1]), Number(found[2]) - 1, Number(found[3])];
  const date = new Date(0);
  date.setUTCFullYear(year, month, day);
  return date.getUTCMonth() === month && date.getUTCDate() === day ? [year, month, day] : null;
}
