// Day: when every body rises, crosses the meridian and sets at a place, and the year's daylight there.

import type { RiseStatus } from "zenithor";
import { BODY_LOOKS, GEOCENTRIC, bodyLabel } from "../bodies.js";
import { dayOf } from "../clock.js";
import { saveButtons } from "../download.js";
import { FIRST_YEAR, LAST_YEAR } from "../state.js";
import { table } from "../table.js";
import type { Column } from "../table.js";
import { element } from "../view.js";
import type { Context, View } from "../view.js";
import { band } from "./band.js";
import type { Band } from "./band.js";
import { PLACE_NAMES, coordinates, placeName, readPlace } from "./places.js";
import { polarSpans, risingOf, sunYear } from "./rising.js";
import type { Rising, SunDay } from "./rising.js";

const WORDS: Record<RiseStatus, string> = {
  happens: "", always_up: "always up", never_up: "never up", none: "not this day", unsettled: "not known",
};
const HALF_MINUTE = 30e3;
const HEIGHT = 420;
const LOWEST = 300;

/** Hours as a time of day, to the nearest minute: 24:00 is the end of the day. */
function clockTime(hours: number): string {
  const minutes = Math.round(hours * 60);
  return `${String(Math.floor(minutes / 60)).padStart(2, "0")}:${String(minutes % 60).padStart(2, "0")}`;
}

export function mountDay(root: HTMLElement, context: Context): View {
  const today = (): [number, number, number] => {
    const [year, month, day] = context.clock.parts(Date.now());
    return [year, month, day];
  };
  const chosen = (): [number, number, number] => (context.state.date === null ? null : dayOf(context.state.date)) ?? today();

  let drawn: Band;
  let yearKey = "";
  let days: SunDay[] = [];
  let monthStarts: number[] = [];

  function moveTo(year: number, month: number, day: number): void {
    const noon = context.clock.at(year, month, day, 12);
    const [moved] = context.clock.parts(noon);
    if (moved < FIRST_YEAR || moved > LAST_YEAR) {
      context.announce(`The years ${FIRST_YEAR} to ${LAST_YEAR} can be shown.`);
      return;
    }
    context.setState({ date: context.clock.format(noon, "day") });
    context.announce(readout.textContent ?? "");
  }

  function step(count: number): void {
    const [year, month, day] = chosen();
    moveTo(year, month, day + count);
  }

  const names = element("datalist", { id: "places" }, ...PLACE_NAMES.map((name) => element("option", { value: name })));
  const problem = element("p", { class: "problem", id: "place-problem", role: "alert" });
  const placeInput = element("input", {
    type: "text", list: "places", autocomplete: "off", "aria-describedby": "place-problem", size: 24,
    change: () => {
      const found = readPlace(placeInput.value);
      refuse(typeof found === "string" ? found : "");
      if (typeof found !== "string") {
        context.setState(found);
      }
    },
  });

  function refuse(sentence: string): void {
    problem.textContent = sentence;
    placeInput.setAttribute("aria-invalid", String(sentence !== ""));
  }

  function here(): void {
    if (!("geolocation" in navigator)) {
      refuse("This browser tells no place. Type latitude and longitude.");
      return;
    }
    refuse("Waiting for the browser to tell the place.");
    placeInput.setAttribute("aria-invalid", "false");
    navigator.geolocation.getCurrentPosition(
      ({ coords }) => {
        refuse("");
        context.setState({ latitude: Number(coords.latitude.toFixed(2)), longitude: Number(coords.longitude.toFixed(2)) });
      },
      ({ code }) => refuse(
        `${code === 1 ? "The browser was not allowed to tell the place" : "The browser could not find the place"}. ` +
          "Type a city or latitude and longitude."),
      { timeout: 15000, maximumAge: 600000 });
  }

  const dateInput = element("input", {
    type: "date", min: "0001-01-01", max: `${LAST_YEAR}-12-31`,
    change: () => {
      const day = dayOf(dateInput.value);
      if (day) {
        moveTo(...day);
      }
    },
  });
  const dateLabel = element("span");
  const controls = element("div", { class: "controls" },
    element("label", {}, element("span", {}, "Place: a city, or latitude, longitude"), placeInput),
    element("button", { type: "button", click: here, title: "The browser asks you first. It finds the place itself; this page only receives it." },
      "Use my place"),
    element("label", {}, dateLabel, dateInput),
    element("div", { class: "buttons" },
      element("button", { type: "button", click: () => context.setState({ date: null }) }, "Today"),
      element("button", { type: "button", click: () => step(-1) }, "‹ Back"),
      element("button", { type: "button", click: () => step(1) }, "Forward ›")));

  // Rise, transit and set, each the time or why there is none.
  const timeColumn = (head: string, which: 0 | 1 | 2): Column<Rising> => {
    const time = (row: Rising) => [row.rise, row.transit, row.set][which]!;
    return {
      head,
      isNumber: true,
      value: (row) => (Number.isFinite(time(row)) ? nearest(time(row)) : WORDS[row.status[which]]),
    };
  };
  function nearest(time: number): string {
    const [, , day] = context.clock.parts(time);
    const rounded = time + HALF_MINUTE;
    return context.clock.parts(rounded)[2] === day ? context.clock.hourMinute(rounded) : "24:00";
  }
  const bodies = table<Rising>(
    [
      { head: "Body", value: ({ body }) => BODY_LOOKS[body].name, show: ({ body }) => bodyLabel(body) },
      timeColumn("Rise", 0), timeColumn("Transit", 1), timeColumn("Set", 2),
    ],
    { caption: "Rise, transit and set", file: "zenithor-day" });

  const sunColumn = (head: string, key: "rise" | "transit" | "set", which: 0 | 1 | 2): Column<SunDay> => ({
    head,
    isNumber: true,
    value: (row) => (Number.isFinite(row[key]) ? clockTime(row[key]) : WORDS[row.status[which]]),
  });
  const year = table<SunDay>(
    [
      { head: "Date", value: ({ noon }) => context.clock.format(noon, "day") },
      sunColumn("Sunrise", "rise", 0), sunColumn("Transit", "transit", 1), sunColumn("Sunset", "set", 2),
      { head: "Daylight", unit: "h", value: ({ daylight }) => daylight, digits: 2 },
    ],
    { caption: "The year's daylight", file: "zenithor-daylight" });

  const figure = element("figure", {
    tabindex: 0, role: "group", "aria-label": "The year's daylight. Arrow keys go one day, page up and down a month.",
    keydown: (event) => {
      const { key } = event as KeyboardEvent;
      const steps: Record<string, () => void> = {
        ArrowLeft: () => step(-1), ArrowRight: () => step(1),
        PageUp: () => step(-30), PageDown: () => step(30),
      };
      if (steps[key]) {
        event.preventDefault();
        steps[key]!();
      }
    },
    click: (event) => {
      const box = drawn.picture.getBoundingClientRect();
      const px = (((event as MouseEvent).clientX - box.left) / box.width) * drawn.picture.viewBox.baseVal.width;
      moveTo(chosen()[0], 0, 1 + drawn.dayAt(px));
    },
  });
  const readout = element("p", { class: "day-readout" });
  const polar = element("p", { class: "quiet" });
  const fileName = () => `zenithor-daylight-${chosen()[0]}`;

  root.append(
    element("h2", { class: "unseen" }, "Day"), names, controls, problem,
    element("div", { class: "day" },
      bodies.root,
      element("div", { class: "day-year" }, figure, readout, polar,
        saveButtons(() => drawn.picture, fileName, context))),
    year.root);

  const widthNow = () => Math.round(Math.max(320, figure.clientWidth));
  const watcher = new ResizeObserver(() => {
    if (drawn.picture.viewBox.baseVal.width !== widthNow()) {
      drawBand();
    }
  });

  function indexOf([, month, day]: readonly [number, number, number]): number {
    return days.length === 0 ? -1 : monthStarts[month]! + day - 1;
  }

  function drawBand(): void {
    const { clock, state, theme } = context;
    const name = placeName(state);
    const width = widthNow();
    drawn = band(days, monthStarts, indexOf(chosen()),
      { first: `Daylight at ${name}, ${chosen()[0]}`, second: `Hours of the day in ${clock.label}` },
      theme, width, width < 560 ? LOWEST : HEIGHT);
    figure.replaceChildren(drawn.picture);
  }

  function update(): void {
    const { clock, state } = context;
    const day = chosen();
    const name = placeName(state);
    const where = name === coordinates(state) ? name : `${name} (${coordinates(state)})`;
    const date = clock.format(clock.at(...day, 12), "day");
    dateLabel.textContent = `Day, ${clock.label}`;
    dateInput.value = day[0] >= 1 ? date : "";
    if (document.activeElement !== placeInput || placeInput.getAttribute("aria-invalid") !== "true") {
      placeInput.value = name;
      refuse("");
    }

    bodies.show(GEOCENTRIC.map((body) => risingOf(body, day, state, clock)),
      `Rise, transit and set at ${where}, ${date}, in ${clock.label}`);

    const key = [day[0], state.latitude, state.longitude, clock.zone].join();
    if (key !== yearKey) {
      yearKey = key;
      days = sunYear(day[0], state, clock);
      monthStarts = days.flatMap(({ noon }, k) => (clock.parts(noon)[2] === 1 ? [k] : []));
      year.show(days, `The Sun at ${where}, ${day[0]}, in ${clock.label}`);
      const spans = polarSpans(days).map(({ status, first, last }) =>
        `${status === "always_up" ? "up all day" : "below the horizon all day"} from ` +
          `${clock.format(days[first]!.noon, "day")} to ${clock.format(days[last]!.noon, "day")}`);
      polar.textContent = spans.length > 0 ? `The Sun is ${spans.join("; ")}.` : "";
      polar.hidden = spans.length === 0;
    }
    drawBand();

    const sun = days[indexOf(day)]!;
    const part = (label: string, hour: number, status: RiseStatus) =>
      `${label} ${Number.isFinite(hour) ? clockTime(hour) : WORDS[status]}`;
    const minutes = Math.round(sun.daylight * 60);
    const isPolar = sun.status[0] === "always_up" || sun.status[0] === "never_up";
    readout.textContent = isPolar
      ? `${date}: the Sun is ${sun.status[0] === "always_up" ? "up" : "below the horizon"} all day`
      : `${date}: ${part("sunrise", sun.rise, sun.status[0])}, ${part("transit", sun.transit, sun.status[1])}, ` +
        `${part("sunset", sun.set, sun.status[2])} ${clock.label}; daylight ${Math.floor(minutes / 60)} h ${minutes % 60} min`;
  }

  update();
  watcher.observe(figure);
  return {
    update,
    destroy: () => watcher.disconnect(),
  };
}
