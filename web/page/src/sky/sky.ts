// Sky: where everything stands at a moment, as a wheel and as a table.

import { BODY_LOOKS, bodyLabel, zodiac } from "../bodies.js";
import { saveButtons } from "../download.js";
import { FIRST_YEAR, LAST_YEAR } from "../state.js";
import type { State } from "../state.js";
import { table } from "../table.js";
import type { Column } from "../table.js";
import { bar, element } from "../view.js";
import type { Context, View } from "../view.js";
import { ORB, aspectsNow, geocentricPlaces, heliocentricPlaces } from "./places.js";
import type { AspectNow, GeocentricPlace, Place } from "./places.js";
import { wheel } from "./wheel.js";

const BODY: Column<Place> = {
  head: "Body", value: ({ body }) => BODY_LOOKS[body].name, show: ({ body }) => bodyLabel(body), isNumber: false,
};
const LONGITUDE: Column<Place> = { head: "Longitude", unit: "deg", value: ({ longitude }) => longitude, digits: 4 };
const ZODIAC: Column<Place> = { head: "Zodiac", value: ({ longitude }) => zodiac(longitude), isSortable: false };
const ZODIAC_TURNING: Column<GeocentricPlace> = {
  ...ZODIAC, value: ({ longitude, motion }) => zodiac(longitude) + (motion < 0 ? " R" : ""),
};
const LATITUDE: Column<Place> = { head: "Latitude", unit: "deg", value: ({ latitude }) => latitude, digits: 4 };
const DISTANCE: Column<Place> = { head: "Distance", unit: "au", value: ({ distance }) => distance, digits: 5 };

const GEOCENTRIC_COLUMNS: readonly Column<GeocentricPlace>[] = [
  BODY as Column<GeocentricPlace>, LONGITUDE as Column<GeocentricPlace>, ZODIAC_TURNING,
  { head: "Motion", unit: "deg/day", value: ({ motion }) => motion, digits: 4 },
  LATITUDE as Column<GeocentricPlace>,
  { head: "Declination", unit: "deg", value: ({ declination }) => declination, digits: 4 },
  { head: "Right asc.", unit: "h", value: ({ rightAscension }) => rightAscension, digits: 4 },
  DISTANCE as Column<GeocentricPlace>,
  { head: "Elongation", unit: "deg", value: ({ elongation }) => elongation, digits: 2 },
];
const HELIOCENTRIC_COLUMNS: readonly Column<Place>[] = [BODY, LONGITUDE, ZODIAC, LATITUDE, DISTANCE];

const ASPECT_COLUMNS: readonly Column<AspectNow>[] = [
  { head: "Bodies", value: ({ first, second }) => `${BODY_LOOKS[first.body].name}, ${BODY_LOOKS[second.body].name}` },
  { head: "Aspect", value: ({ aspect }) => aspect.name, show: ({ aspect }) => `${aspect.glyph} ${aspect.name}` },
  { head: "Angle", unit: "deg", value: ({ angle }) => angle, digits: 2 },
  { head: "From exact", unit: "deg", value: ({ angle, aspect }) => angle - aspect.angle, digits: 2 },
];

const FRAMES = {
  geo: { title: "Geocentric sky", frame: "Apparent, true equinox of date; R: retrograde" },
  helio: { title: "Heliocentric sky", frame: "True equinox of date" },
} as const;

// So often does play go one step on [ms].
const PLAY = { hour: 100, day: 120, month: 250 };
const PLAY_CALMLY = 1000;
// [px]
const NARROWEST = 320;
const WIDEST = 600;
const MINUTE = 60e3;

export function mountSky(root: HTMLElement, context: Context): View {
  // The time of day to the minute, as a link holds it.
  let now = Math.floor(Date.now() / MINUTE) * MINUTE;
  let playing: ReturnType<typeof setTimeout> | null = null;
  let picture: SVGSVGElement;

  const moment = (): number => context.state.at ?? now;

  function moveTo(time: number | null): void {
    const years = time === null ? null : new Date(time).getUTCFullYear();
    if (years !== null && !(years >= FIRST_YEAR && years <= LAST_YEAR)) {
      stop();
      context.announce(`The years ${FIRST_YEAR} to ${LAST_YEAR} can be shown.`);
      context.setState({});
      return;
    }
    context.setState({ at: time });
    if (playing === null) {
      context.announce(`${context.clock.format(moment())} ${context.clock.label}`);
    }
  }

  function step(sign: 1 | -1): void {
    const { clock, state } = context;
    const time = moment();
    if (state.step === "month") {
      const [year, month, day, hour, minute] = clock.parts(time);
      // The 31st is followed by a month's last day.
      const last = clock.parts(clock.at(year, month + sign + 1, 0, 12))[2];
      moveTo(clock.at(year, month + sign, Math.min(day, last), hour, minute));
    } else if (state.step === "day") {
      const [year, month, day, hour, minute] = clock.parts(time);
      moveTo(clock.at(year, month, day + sign, hour, minute));
    } else {
      moveTo(time + sign * 60 * MINUTE);
    }
  }

  function stop(): void {
    if (playing !== null) {
      clearTimeout(playing);
      playing = null;
    }
    play.textContent = "Play";
    play.setAttribute("aria-pressed", "false");
  }

  function goOn(): void {
    const isCalm = matchMedia("(prefers-reduced-motion: reduce)").matches;
    playing = setTimeout(() => {
      step(1);
      if (playing !== null) {
        goOn();
      }
    }, isCalm ? PLAY_CALMLY : PLAY[context.state.step]);
  }

  const input = element("input", {
    type: "datetime-local", min: "0001-01-01T00:00", max: `${LAST_YEAR}-12-31T23:59`,
    change: () => {
      const found = /^(\d{4,})-(\d\d)-(\d\d)T(\d\d):(\d\d)/.exec(input.value);
      if (found) {
        const [year, month, day, hour, minute] = found.slice(1).map(Number) as [number, number, number, number, number];
        moveTo(context.clock.at(year, month - 1, day, hour, minute));
      } else {
        context.setState({});
      }
    },
  });
  const zone = element("span");
  const play = element("button", {
    type: "button", "aria-pressed": "false",
    click: () => {
      if (playing !== null) {
        stop();
      } else {
        play.textContent = "Pause";
        play.setAttribute("aria-pressed", "true");
        goOn();
      }
    },
  }, "Play");
  const centre = bar(context, "centre", "Seen from", { geo: "Earth", helio: "Sun" });
  const steps = bar(context, "step", "Step", { hour: "Hour", day: "Day", month: "Month" });
  const controls = element("div", { class: "controls" },
    element("label", {}, zone, input),
    element("div", { class: "buttons" },
      element("button", { type: "button", click: () => { stop(); moveTo(null); } }, "Now"),
      element("button", { type: "button", click: () => step(-1) }, "‹ Back"),
      play,
      element("button", { type: "button", click: () => step(1) }, "Forward ›")),
    steps.root, centre.root);

  const figure = element("figure", {
    tabindex: 0, role: "group", "aria-label": "Wheel. Arrow left and right go one step.",
    keydown: (event) => {
      const { key } = event as KeyboardEvent;
      if (key === "ArrowLeft" || key === "ArrowRight") {
        event.preventDefault();
        step(key === "ArrowRight" ? 1 : -1);
      }
    },
  });
  const name = () => `zenithor-sky-${context.clock.format(moment(), "day")}`;
  const places = table<GeocentricPlace>(GEOCENTRIC_COLUMNS, { caption: "Places", file: "zenithor-sky" });
  const aspects = table<AspectNow>(ASPECT_COLUMNS, {
    caption: "Aspects", file: "zenithor-aspects-now", empty: `No two bodies are within ${ORB} degrees of an aspect.`,
  });

  root.append(
    element("h2", { class: "unseen" }, "Sky"), controls,
    element("div", { class: "sky" },
      element("div", { class: "sky-wheel" }, figure, saveButtons(() => picture, name, context)),
      element("div", { class: "sky-tables" }, places.root, aspects.root)));

  // Drawn for the width there is, so that its letters keep their size.
  const widthNow = () => Math.round(Math.min(WIDEST, Math.max(NARROWEST, figure.clientWidth)));
  const watcher = new ResizeObserver(() => {
    if (picture.viewBox.baseVal.width !== widthNow()) {
      update();
    }
  });
  let columns: State["centre"] = "geo";

  function update(): void {
    const { clock, state, theme } = context;
    const time = moment();
    const { title, frame } = FRAMES[state.centre];
    const when = `${clock.format(time)} ${clock.label}`;
    const [year] = clock.parts(time);
    zone.textContent = `Date and time, ${clock.label}`;
    input.value = year >= 1 ? clock.format(time).replace(" ", "T") : "";
    steps.update();
    centre.update();

    const isGeocentric = state.centre === "geo";
    const rows = isGeocentric ? geocentricPlaces(time) : heliocentricPlaces(time);
    picture = wheel(rows, state.centre, { first: `${title}, ${when}`, second: frame }, theme, widthNow());
    figure.replaceChildren(picture);
    if (columns !== state.centre) {
      columns = state.centre;
      places.setColumns(isGeocentric ? GEOCENTRIC_COLUMNS : (HELIOCENTRIC_COLUMNS as readonly Column<GeocentricPlace>[]));
    }
    places.show(rows as GeocentricPlace[], `${title}, ${when}. ${frame}.`);
    aspects.root.hidden = !isGeocentric;
    if (isGeocentric) {
      aspects.show(aspectsNow(rows), `Aspects within ${ORB} degrees, ${when}`);
    }
  }

  update();
  watcher.observe(figure);
  const follow = setInterval(() => {
    const minute = Math.floor(Date.now() / MINUTE) * MINUTE;
    if (context.state.at === null && minute !== now) {
      now = minute;
      update();
    }
  }, 1000);
  return {
    update,
    destroy() {
      stop();
      watcher.disconnect();
      clearInterval(follow);
    },
  };
}
