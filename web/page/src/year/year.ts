// Year: the graphic ephemeris. Longitudes and declinations of a year or several as lines, what happens as
// marks on a strip, all of it in two tables.

import { BODY_LOOKS, zodiac } from "../bodies.js";
import { bodyChecks, checks, folded, list } from "../chart/controls.js";
import { curveLayers, declinationRange, declinationTicks, longitudeTicks } from "../chart/curves.js";
import type { Curve, Pane } from "../chart/curves.js";
import { eventTable } from "../chart/event_table.js";
import { createFrame } from "../chart/frame.js";
import type { Frame } from "../chart/frame.js";
import { MARK_NAMES, bodiesOf, byKind, isMoonTooFast, searchLater, searchSteps } from "../chart/marks.js";
import type { MarkList } from "../chart/marks.js";
import { picture } from "../chart/picture.js";
import { happenings, readout, signed } from "../chart/readout.js";
import type { Span } from "../chart/retrograde.js";
import { strip, stripHeight } from "../chart/strip.js";
import { plainStrokes, strokesOf } from "../chart/strokes.js";
import { saveCanvas } from "../download.js";
import { FIRST_YEAR, LAST_YEAR, MARK_KINDS, SHADES } from "../state.js";
import type { MarkKind, State } from "../state.js";
import { table } from "../table.js";
import { bar, element } from "../view.js";
import type { Context, View } from "../view.js";
import type { BodyName } from "zenithor";
import { yearSky } from "./sky.js";
import type { YearSky } from "./sky.js";
import { yearSpan } from "./span.js";
import { positionColumns } from "./tables.js";
import type { PositionRow } from "./tables.js";

const MONTHS = ["Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"];
const SHADE_NAMES: Readonly<Record<string, string>> = { lines: "Along the lines", none: "Nowhere" };

export function mount(root: HTMLElement, context: Context): View {
  let sky: YearSky | null = null;
  let skyKey = "";
  let frame: Frame | null = null;
  let frameKey = "";
  let marksKey = "";
  let tablesKey = "";
  let stopSearch = () => {};
  let tablesTimer = 0;
  let lists: ReadonlyMap<MarkKind, MarkList> = new Map();
  let longitudes: Curve[] = [];
  let declinations: Curve[] = [];
  let curvesKey = "";
  let started = 0;
  let shownSeen = "";

  const kinds = (): readonly MarkKind[] => context.state.marks.filter((kind) => context.state.centre === "geo" || kind !== "stations");
  const bodies = (): BodyName[] => bodiesOf(context.state.bodies, context.state.centre);
  const curve = (): State["curve"] => (context.state.centre === "helio" ? "longitude" : context.state.curve);

  const yearInput = element("input", {
    type: "number", min: FIRST_YEAR, max: LAST_YEAR, step: 1, name: "from",
    change: () => {
      const year = Number(yearInput.value);
      if (yearInput.value !== "" && Number.isInteger(year) && year >= FIRST_YEAR && year <= LAST_YEAR) {
        context.setState({ from: year, seen: null });
      } else {
        yearInput.setAttribute("aria-invalid", "true");
        context.announce(`The years ${FIRST_YEAR} to ${LAST_YEAR} can be shown.`);
      }
    },
  });
  const turn = (sign: number) => {
    const from = context.state.from + sign * context.state.years;
    context.setState({ from: Math.min(Math.max(from, FIRST_YEAR), LAST_YEAR), seen: null });
    context.announce(`Year ${context.state.from}`);
  };
  const controls = [
    list(context, "years", "Span", [1, 2, 3, 5, 10].map((years) => [years, years === 1 ? "1 year" : `${years} years`])),
    bar(context, "centre", "Seen from", { geo: "Earth", helio: "Sun" }),
    bar(context, "modulo", "Modulo", { 30: "30°", 45: "45°", 90: "90°", 360: "360°" }),
    bar(context, "curve", "Lines", { both: "Both", longitude: "Longitude", declination: "Declination" }),
    list(context, "shade", "Shade retrograde", SHADES.map((one) => [one, SHADE_NAMES[one] ?? BODY_LOOKS[one as BodyName].name])),
    bodyChecks(context, "bodies"),
    checks(context, "marks", "Events on the strip", MARK_KINDS.map((kind) => [kind, MARK_NAMES[kind]])),
  ] as const;
  const [years, centre, modulo, curves, shade, bodySet, markSet] = controls;

  const title = element("h2");
  const words = element("p");
  const values = readout();
  const place = element("div");
  const empty = element("p", { class: "notice" }, "No body is chosen. Choose at least one above to draw its line.");
  const positions = table<PositionRow>([], { caption: "Positions", file: "zenithor-year-positions", most: 40 });
  const happened = eventTable("zenithor-year-events");
  root.append(
    element("div", { class: "controls" },
      element("label", {}, element("span", {}, "Year"), yearInput),
      element("div", { class: "buttons" },
        element("button", { type: "button", "aria-label": "Earlier", click: () => turn(-1) }, "‹ Earlier"),
        element("button", { type: "button", "aria-label": "Later", click: () => turn(1) }, "Later ›")),
      years.root, centre.root, modulo.root, curves.root, shade.root),
    folded("Bodies, events", bodySet.root, markSet.root),
    element("div", { class: "view-title" }, title, words),
    values.root, empty, place,
    element("p", { class: "buttons" },
      element("button", { type: "button", click: () => { frame?.showAll(); context.setState({ seen: null }); } }, "Show all"),
      element("button", { type: "button", click: () => void savePicture() }, "Chart as PNG")),
    happened.root, positions.root);

  async function savePicture(): Promise<void> {
    if (frame !== null && sky !== null) {
      try {
        await saveCanvas(picture(frame.chart, title.textContent!, words.textContent!, context.theme), `zenithor-year-${context.state.from}.png`);
      } catch (error) {
        context.announce(`The picture could not be made: ${error instanceof Error ? error.message : error}`);
      }
    }
  }

  function date(time: number): string {
    const [year, month, day] = context.clock.parts(time);
    return context.state.years > 2 ? `${MONTHS[month]} ${year}` : `${day} ${MONTHS[month]}`;
  }

  function shaded(): readonly Span[] {
    const body = context.state.shade;
    return body === "lines" || body === "none" || sky === null ? [] : sky.retrograde(body).spans;
  }

  function paneOf(which: "longitude" | "declination", isFirst: boolean): Pane {
    const curvesOf = () => (which === "longitude" ? longitudes : declinations);
    const range = (): readonly [number, number] =>
      which === "longitude" ? [0, context.state.modulo] : declinationRange(declinations);
    return {
      curves: curvesOf,
      range,
      ticks: (values) => (which === "longitude" ? longitudeTicks(context.state.modulo) : declinationTicks(values)),
      slotOf: (time) => frame!.slotOf(time),
      date,
      isBanded: () => context.state.shade === "lines",
      shaded,
      datedSpans: () => (isFirst ? shaded() : []),
      drawn: isFirst ? measured : undefined,
    };
  }

  /** How long a change took until its lines were drawn, for those who look into the browser's timeline. */
  function measured(): void {
    if (started > 0) {
      performance.clearMeasures("year redrawn");
      performance.measure("year redrawn", { start: started, end: performance.now() });
      started = 0;
    }
  }

  function build(): void {
    const shown = curve();
    const key = `${shown} ${kinds().join()}`;
    if (frame !== null && key === frameKey) {
      return;
    }
    const slots = frame?.range() ?? null;
    frame?.destroy();
    frameKey = key;
    frame = createFrame(place, {
      label: "Lines of the bodies over time. The tables below hold the same values.",
      className: shown === "both" ? "year-both" : "year-one", hasPriceCursor: false,
      onCursor: (_, isKey) => showValues(isKey),
      onMoved: (from, to) => {
        shownSeen = [from, to].join();
        context.setState({ seen: [from, to] });
      },
    });
    const panes = (shown === "both" ? ["longitude", "declination"] : [shown]) as ("longitude" | "declination")[];
    const all = frame.root.clientHeight - 28;
    const low = kinds().length > 0 ? stripHeight(kinds()) : 0;
    panes.forEach((which, k) => {
      const layers = curveLayers(paneOf(which, k === 0));
      frame!.addLayer(k, "left", layers.left);
      frame!.addLayer(k, "right", layers.right);
    });
    if (low > 0) {
      frame.addLayer(panes.length, "left", strip(kinds, () => lists, () => sky!.span.times));
    }
    frame.setLook(context.theme, context.clock, false);
    frame.setTimes(sky!.span.times);
    const share = panes.length === 2 ? [0.66, 0.34] : [1];
    frame.chart.panes().forEach((pane, k) => pane.setStretchFactor(k < panes.length ? share[k]! * (all - low) : low));
    if (slots !== null) {
      frame.showSlots(...slots);
    }
  }

  function showValues(isKey: boolean): void {
    if (frame === null || sky === null) {
      return;
    }
    const { times, step } = sky.span;
    const now = frame.slotOf(Date.now());
    const slot = frame.cursor ?? Math.round(now >= 0 && now <= times.length - 1 ? now : 0);
    const shown = curve();
    const rows = bodies().map((body) => {
      const longitude = sky!.values(body, "longitude")[slot]!;
      const isBack = sky!.retrograde(body).spans.some(({ from, to }) => from <= times[slot]! && times[slot]! < to);
      const declination = shown === "longitude" ? null : `${signed(sky!.values(body, "declination")[slot]!, 2)}°`;
      const cells = shown === "declination" ? [] : [`${longitude.toFixed(2)}°`, `${zodiac(longitude)}${isBack ? " R" : ""}`];
      return { body, cells: declination === null ? cells : [...cells, declination] };
    });
    const { clock } = context;
    const what = happenings(lists, times[slot]!, times[slot]! + step * 86400e3, (time) => clock.format(time).slice(step > 1 ? 5 : -5));
    values.show(`${clock.format(times[slot]!)} ${clock.label}`, rows, what === "" ? "No event until the next moment." : what, context.theme);
    if (isKey) {
      context.announce(values.words());
    }
  }

  function showTables(): void {
    const { clock, state } = context;
    const { span } = sky!;
    positions.setColumns(positionColumns(sky!, bodies(), curve(), clock));
    positions.show(Array.from(span.times, (_, slot) => ({ slot })),
      `Positions, ${span.words}, every ${span.step === 1 ? "day" : `${span.step} days`}. ${frameWords(state)}.`);
    const left = bodies().includes("moon") && isMoonTooFast(span.from, span.to) ? " The Moon's ingresses and aspects are left out." : "";
    happened.show(lists, clock, `Events, ${span.words}.${left}`);
  }

  /** Tables follow when the lines are drawn. */
  function tablesLater(): void {
    clearTimeout(tablesTimer);
    tablesTimer = window.setTimeout(() => {
      const { state, clock } = context;
      const key = [skyKey, curve(), state.bodies, marksKey, clock.zone, lists.size].join();
      if (key !== tablesKey && sky !== null) {
        tablesKey = key;
        showTables();
      }
    }, 30);
  }

  function frameWords(state: Readonly<State>): string {
    return state.centre === "geo" ? "Apparent geocentric, true equinox of date" : "Heliocentric, true equinox of date";
  }

  function search(): void {
    const { span } = sky!;
    const key = [skyKey, kinds(), bodies()].join();
    if (key === marksKey) {
      return;
    }
    marksKey = key;
    stopSearch();
    const centreNow = context.state.centre;
    const stations = kinds().includes("stations") ? bodies().flatMap((body) => sky!.retrograde(body).marks) : [];
    lists = byKind(stations.sort((a, b) => a.time - b.time));
    stopSearch = searchLater(searchSteps(bodies(), kinds(), span.from, span.to, centreNow), (marks) => {
      lists = byKind([...marks, ...stations].sort((a, b) => a.time - b.time));
      frame?.redraw();
      showValues(false);
      tablesKey = "";
      tablesLater();
    });
  }

  function update(): void {
    started = performance.now();
    const { state, clock, theme } = context;
    [years, centre, modulo, curves, shade, bodySet, markSet].forEach((control) => control.update());
    curves.root.hidden = shade.root.hidden = state.centre === "helio";
    yearInput.value = String(state.from);
    yearInput.removeAttribute("aria-invalid");

    const key = [state.from, state.years, state.centre, clock.zone].join();
    const isNew = key !== skyKey;
    if (isNew) {
      skyKey = key;
      sky = yearSky(yearSpan(state, clock), state.centre);
    }
    const { span } = sky!;
    sky!.prepare(bodies());
    const newCurves = [skyKey, state.modulo, bodies(), curve()].join();
    if (newCurves !== curvesKey) {
      curvesKey = newCurves;
      const places = span.times.map((_, k) => k);
      const curveOf = (body: BodyName, strokes: Curve["strokes"]): Curve => {
        const { marks, spans } = sky!.retrograde(body);
        return { body, strokes, spans, stations: marks };
      };
      longitudes = curve() === "declination" ? [] : bodies().map((body) =>
        curveOf(body, strokesOf(places, sky!.values(body, "longitude"), state.modulo)));
      declinations = curve() === "longitude" ? [] : bodies().map((body) =>
        ({ ...curveOf(body, plainStrokes(places, sky!.values(body, "declination"))), spans: [], stations: [] }));
    }
    const shown = curve();
    const what = shown === "both" ? "Longitudes and declinations" : shown === "longitude" ? "Longitudes" : "Declinations";
    title.textContent = `${what}, ${span.words}`;
    const folding = shown === "declination" || state.modulo === 360 ? "" : `, longitudes modulo ${state.modulo}°`;
    const shades = state.centre === "geo" && state.shade !== "none"
      ? ` Shaded: ${state.shade === "lines" ? "" : `${BODY_LOOKS[state.shade].name} `}retrograde; circles: stations.` : "";
    words.textContent = `${frameWords(state)}${folding}. Times in ${clock.label}.${shades}`;
    empty.hidden = bodies().length > 0;

    search();
    const isBuilt = frame !== null;
    build();
    if (isBuilt && isNew) {
      frame!.setTimes(span.times);
    }
    const seen = String(state.seen);
    if (!isBuilt || isNew || seen !== shownSeen) {
      shownSeen = seen;
      if (state.seen === null || !frame!.showTimes(...state.seen)) {
        frame!.showAll();
      }
    }
    frame!.setLook(theme, clock, false);
    showValues(false);
    tablesLater();
  }

  update();
  return {
    update,
    destroy() {
      stopSearch();
      clearTimeout(tablesTimer);
      frame?.destroy();
    },
  };
}
