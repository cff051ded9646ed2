// Prices: bars of a file with the sky over them. Longitudes as lines on a scale of their own or as prices,
// retrograde spans, events, further panes; lines run on beyond the last bar.

import { CandlestickSeries, PriceScaleMode } from "lightweight-charts";
import type { ISeriesApi } from "lightweight-charts";
import { BODY_LOOKS, GEOCENTRIC, bodyLabel } from "../bodies.js";
import { bodyChecks, checks, folded, list, numberField } from "../chart/controls.js";
import { curveLayers } from "../chart/curves.js";
import { eventTable } from "../chart/event_table.js";
import { createFrame } from "../chart/frame.js";
import type { Area, Frame } from "../chart/frame.js";
import { drawShade, drawShadeDates } from "../chart/lines.js";
import { MARK_NAMES, bodiesOf, byKind, longitudeField, searchLater, searchSteps } from "../chart/marks.js";
import type { Mark, MarkList } from "../chart/marks.js";
import { picture } from "../chart/picture.js";
import { happenings, readout } from "../chart/readout.js";
import type { Span } from "../chart/retrograde.js";
import { strip, stripHeight } from "../chart/strip.js";
import { saveCanvas } from "../download.js";
import { MARK_KINDS, PANES, RETROGRADES, SPACINGS } from "../state.js";
import type { MarkKind, PaneName } from "../state.js";
import { table } from "../table.js";
import { COLOURS, bar, element } from "../view.js";
import type { Context, View } from "../view.js";
import type { BodyName } from "zenithor";
import { MOST_YEARS, axisClock, chartData, priceRange } from "./data.js";
import type { ChartData } from "./data.js";
import { suggestedUnit } from "./family.js";
import type { Family } from "./family.js";
import { fileBox, shownPrices } from "./file_box.js";
import { overlay } from "./overlay.js";
import { furtherPane, ownPane, priceScaleOf } from "./panes.js";
import type { Common, Source } from "./panes.js";
import { SAMPLE_NOTE } from "./sample.js";
import { barWords, bodyValues } from "./values.js";
import { barColumns } from "./tables.js";
import type { BarRow } from "./tables.js";

const PANE_NAMES: Readonly<Record<PaneName, string>> = { declination: "Declination", motion: "Daily motion", angle: "Angle" };
const MAIN_HEIGHT = { wide: 460, narrow: 380 };
const PANE_HEIGHT = 130;
const AXIS_HEIGHT = 28;
const BARS_SHOWN = 250;
const MONTHS = ["Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"];

export function mount(root: HTMLElement, context: Context): View {
  let data: ChartData = chartData(shownPrices().bars, context.state.ahead, context.state.hour);
  let dataKey = "";
  let frame: Frame | null = null;
  let candles: ISeriesApi<"Candlestick"> | null = null;
  let frameKey = "";
  let marksKey = "";
  let tableKey = "";
  let tableTimer = 0;
  let stopSearch = () => {};
  let lists: ReadonlyMap<MarkKind, MarkList> = new Map();
  let family: Family = { unit: 1, spacing: 90, isMirrored: false };
  const warnings = { dense: "", fast: "" };
  let started = 0;
  let shownSeen = "";
  let prices = shownPrices();

  const bodies = (): BodyName[] => bodiesOf(context.state.lines, context.state.centre);
  const kinds = (): readonly MarkKind[] => context.state.events;
  const source: Source = {
    get data() {
      return data;
    },
    get state() {
      return context.state;
    },
  };
  const common: Common = { slotOf: (time) => frame!.slotOf(time), date, isBanded: () => false, shaded };

  const controls = {
    centre: bar(context, "centre", "Seen from", { geo: "Earth", helio: "Sun" }),
    scale: bar(context, "scale", "Longitudes", { price: "As prices", own: "Own scale" }),
    unit: numberField(context, "unit", "Price per degree", 0, 1e9, "any", () => String(family.unit)),
    spacing: list(context, "spacing", "Lines apart", SPACINGS.map((degrees) => [degrees, `${degrees}°`])),
    slope: list(context, "slope", "Prices", [["up", "rise with longitude"], ["down", "fall with longitude"]]),
    modulo: bar(context, "modulo", "Modulo", { 30: "30°", 45: "45°", 90: "90°", 360: "360°" }),
    prices: bar(context, "prices", "Price axis", { linear: "Linear", log: "Log" }),
    lines: bodyChecks(context, "lines"),
    panes: checks(context, "panes", "Further panes", PANES.map((pane) => [pane, PANE_NAMES[pane]])),
    first: list(context, "first", "Angle between", GEOCENTRIC.map((body) => [body, BODY_LOOKS[body].name])),
    second: list(context, "second", "and", GEOCENTRIC.map((body) => [body, BODY_LOOKS[body].name])),
    events: checks(context, "events", "Events on the strip", MARK_KINDS.map((kind) => [kind, MARK_NAMES[kind]])),
    retro: list(context, "retro", "Shade retrograde", RETROGRADES.map((one) => [one, one === "none" ? "None" : BODY_LOOKS[one].name])),
    ahead: numberField(context, "ahead", "Bars ahead", 0, 2000, 1),
    hour: numberField(context, "hour", "Sky at hour, UTC", 0, 23, "any"),
  };

  const box = fileBox(root, context, () => context.setState({ seen: null }));
  const title = element("h2");
  const words = element("p");
  const warning = element("p", { class: "warning", role: "status" });
  const values = readout();
  const place = element("div");
  const barTable = table<BarRow>([], { caption: "Bars", file: "zenithor-prices", most: 40 });
  const happened = eventTable("zenithor-prices-events");
  const auto = element("button", { type: "button", click: () => context.setState({ unit: 0 }) }, "Fit to the prices");
  root.append(
    box.root,
    element("div", { class: "controls" },
      controls.scale.root, controls.unit.root, auto, controls.spacing.root, controls.modulo.root, controls.centre.root,
      controls.retro.root),
    folded("Bodies, panes, events, future",
      controls.lines.root, controls.panes.root, controls.first.root, controls.second.root, controls.events.root,
      controls.slope.root, controls.prices.root, controls.ahead.root, controls.hour.root),
    element("div", { class: "view-title" }, title, words, warning),
    values.root, place,
    element("p", { class: "buttons" },
      element("button", { type: "button", click: () => showWhole() }, "Show all"),
      element("button", { type: "button", click: () => { showLatest(); context.setState({ seen: null }); } }, "Latest bars"),
      element("button", { type: "button", click: () => void savePicture() }, "Chart as PNG")),
    barTable.root, happened.root);

  async function savePicture(): Promise<void> {
    if (frame === null) {
      return;
    }
    try {
      await saveCanvas(picture(frame.chart, title.textContent!, words.textContent!, context.theme), "zenithor-prices.png");
    } catch (error) {
      context.announce(`The picture could not be made: ${error instanceof Error ? error.message : error}`);
    }
  }

  function showLatest(): void {
    const last = data.slots.time.length - 0.5;
    const seen = Math.min(last + 0.5, (frame!.root.clientWidth < 600 ? 0.5 : 1) * BARS_SHOWN + context.state.ahead * 0.6);
    const end = Math.min(last, data.slots.last + context.state.ahead * 0.6);
    frame!.showSlots(Math.max(-0.5, end - seen), end);
  }

  function showWhole(): void {
    frame!.showAll();
    const seen = [data.sky.times[0]!, data.sky.times[data.sky.times.length - 1]!] as const;
    shownSeen = String(seen);
    context.setState({ seen });
  }

  function date(time: number): string {
    const [year, month, day] = context.clock.parts(time);
    return `${day} ${MONTHS[month]} ${String(year).slice(-2)}`;
  }

  function shaded(): readonly Span[] {
    const body = context.state.retro;
    return body === "none" ? [] : data.retrograde(body).spans;
  }

  function build(): void {
    const { state } = context;
    const key = [state.scale, state.panes, kinds(), state.first, state.second, state.centre].join();
    if (frame !== null && key === frameKey) {
      return;
    }
    const range = frame?.range() ?? null;
    const cursor = frame?.cursor ?? null;
    frame?.destroy();
    frameKey = key;
    const low = kinds().length > 0 ? stripHeight(kinds()) : 0;
    const main = innerWidth < 600 ? MAIN_HEIGHT.narrow : MAIN_HEIGHT.wide;
    const heights = [main, ...state.panes.map(() => PANE_HEIGHT), ...(low > 0 ? [low] : [])];
    frame = createFrame(place, {
      label: "Prices with lines of the sky. The table below holds the same values.",
      className: "prices-chart", hasPriceCursor: true,
      height: heights.reduce((sum, height) => sum + height, AXIS_HEIGHT),
      onCursor: (_, isKey) => showValues(isKey),
      onMoved: (from, to) => {
        shownSeen = [from, to].join();
        context.setState({ seen: [from, to] });
      },
      cursorPrice: (slot) => data.bars.close[data.slots.bar[slot]!] ?? data.bars.close[data.bars.close.length - 1]!,
    });
    candles = frame.chart.addSeries(CandlestickSeries, { priceScaleId: "right", lastValueVisible: true, priceLineVisible: false, borderVisible: false }, 0);
    frame.attach(candles, { isBehind: true, draw: (area) => drawShade(area, shaded()) });
    if (state.scale === "own") {
      frame.addLayer(0, "left", curveLayers({ ...ownPane(source, common), drawn: measured }).left);
    } else {
      frame.attach(candles, overlay({
        bodies, family: () => family, scale: (area) => priceScaleOf(candles!, area),
        points: (body, area) => data.sky.points(body, longitudeField(context.state.centre), area.first, area.last),
        drawn(tooMany) {
          measured();
          warn("dense", tooMany.length === 0 ? "" :
            "The lines lie too close together to be drawn. Choose a larger price per degree or lines further apart.");
        },
      }));
    }
    frame.attach(candles, { draw: warnOfFastBodies });
    frame.attach(candles, { draw: (area) => drawShadeDates(area, { boxes: [] }, shaded(), date) });
    state.panes.forEach((which, k) => {
      const layers = curveLayers(furtherPane(which, source, common));
      frame!.addLayer(k + 1, "left", layers.left);
      frame!.addLayer(k + 1, "right", layers.right);
    });
    if (low > 0) {
      frame.addLayer(heights.length - 1, "left", strip(kinds, () => lists, () => data.sky.times));
    }
    fill();
    frame.chart.panes().forEach((pane, k) => pane.setStretchFactor(heights[k] ?? 1));
    if (range !== null) {
      frame.showSlots(...range);
      frame.setCursor(cursor);
    }
  }

  /** Hands the bars to the chart. */
  function fill(): void {
    const { bars, slots } = data;
    frame!.setLook(context.theme, axisClock(data, context.clock), !data.isDaily);
    frame!.setTimes(data.sky.times);
    candles!.applyOptions({ priceFormat: { type: "price", precision: data.digits, minMove: 1 / 10 ** data.digits } });
    candles!.setData(Array.from(slots.time, (_, slot) => {
      const k = slots.bar[slot]!;
      const time = frame!.stamp(slot);
      return k < 0 ? { time } : { time, open: bars.open[k]!, high: bars.high[k]!, low: bars.low[k]!, close: bars.close[k]! };
    }));
  }

  /** Says what cannot be drawn, once. */
  function warn(what: keyof typeof warnings, text: string): void {
    if (warnings[what] !== text) {
      warnings[what] = text;
      warning.textContent = `${warnings.dense} ${warnings.fast}`.trim();
    }
  }

  function warnOfFastBodies({ first, last }: Area): void {
    const fast = bodies().filter((body) => data.sky.isTooFast(body, first, last)).map((body) => BODY_LOOKS[body].name);
    warn("fast", fast.length === 0 ? "" :
      `${fast.join(" and ")}: too fast to be drawn over so long a time or such long bars. Zoom in, or choose slower bodies.`);
  }

  function measured(): void {
    if (started > 0) {
      performance.clearMeasures("prices redrawn");
      performance.measure("prices redrawn", { start: started, end: performance.now() });
      started = 0;
    }
  }

  function showValues(isKey: boolean): void {
    if (frame === null) {
      return;
    }
    const { clock, theme } = context;
    const { sky, slots } = data;
    const slot = Math.min(frame.cursor ?? slots.last, slots.time.length - 1);
    const next = sky.times[slot + 1] ?? sky.times[slot]! + 86400e3;
    const events = happenings(lists, sky.times[slot]!, next, (time) => clock.format(time).slice(5));
    values.show(
      barWords(source, axisClock(data, clock), slot), bodyValues(source, family, slot),
      events === "" ? "No event until the next bar." : events, theme);
    if (isKey) {
      context.announce(values.words());
    }
  }

  function search(): void {
    const { state } = context;
    const key = [dataKey, kinds(), bodies(), state.centre, state.retro].join();
    if (key === marksKey) {
      return;
    }
    marksKey = key;
    stopSearch();
    lists = new Map();
    const { from, to } = data;
    const turning = new Set<BodyName>([...(state.centre === "geo" ? bodies() : []), ...(state.retro === "none" ? [] : [state.retro])]);
    function* steps(): Generator<Mark[]> {
      if (kinds().includes("stations")) {
        for (const body of turning) {
          yield data.retrograde(body).marks.slice();
        }
      }
      yield* searchSteps(bodies(), kinds(), from, to, state.centre);
    }
    stopSearch = searchLater(steps(), (marks) => {
      lists = byKind(marks);
      frame?.redraw();
      showValues(false);
      tableKey = "";
      tablesLater();
    });
  }

  function showTables(): void {
    const { clock } = context;
    const { slots, sky } = data;
    barTable.setColumns(barColumns(source, axisClock(data, clock)));
    // The last bar first, as price lists have it; what lies ahead comes before it.
    const rows = Array.from(slots.time, (_, k) => ({ slot: slots.time.length - 1 - k }));
    const start = rows.findIndex(({ slot }) => slot === slots.last);
    barTable.show([...rows.slice(start), ...rows.slice(0, start).reverse()],
      `${prices.name}: bars from the last one back, then the ${rows.length - 1 - slots.last} places ahead. ${skyWords()}`);
    const isCut = data.from > sky.times[0]!;
    happened.show(lists, clock, `Events, the latest first${isCut ? `, of the last ${MOST_YEARS} years` : ""}.`, true);
  }

  function tablesLater(): void {
    clearTimeout(tableTimer);
    tableTimer = window.setTimeout(() => {
      const { state, clock } = context;
      const key = [dataKey, bodies(), state.panes, state.first, state.second, state.centre, clock.zone, marksKey, lists.size].join();
      if (key !== tableKey) {
        tableKey = key;
        showTables();
      }
    }, 30);
  }

  function skyWords(): string {
    const frameOf = context.state.centre === "geo" ? "apparent, geocentric" : "heliocentric";
    const when = data.isDaily ? ` at ${axisClock(data, context.clock).hourMinute(data.sky.times[0]!)} UTC of each date` : " at each bar's time, UTC where the file names no zone";
    return `Longitudes ${frameOf}, true equinox of date,${when}.`;
  }

  function showWords(): void {
    const { state } = context;
    title.textContent = `${prices.name} and the sky`;
    const sample = prices.isSample ? `${SAMPLE_NOTE} ` : "";
    const lines = state.scale === "price"
      ? `Lines: ${family.unit} a degree, ${family.spacing}° apart${family.isMirrored ? ", falling" : ""}; with each body the line next to the close.`
      : `Lines: scale on the left, modulo ${state.modulo}°.`;
    const shade = state.retro === "none" ? "" : ` Shaded: ${bodyLabel(state.retro)} retrograde.`;
    words.textContent = `${sample}${skyWords()} ${lines}${shade}`;
  }

  function update(): void {
    started = performance.now();
    const { state, clock, theme } = context;
    const isOther = prices !== shownPrices();
    prices = shownPrices();
    const key = [prices.name, prices.bars.time.length, prices.bars.time[0], state.ahead, state.hour].join();
    const isNew = isOther || key !== dataKey;
    if (isNew) {
      data = chartData(prices.bars, state.ahead, state.hour);
      dataKey = key;
      marksKey = tableKey = "";
    }
    const size = prices.bars.time.length;
    const [low, high] = priceRange(prices.bars, size - BARS_SHOWN, size - 1);
    family = {
      unit: state.unit > 0 ? state.unit : suggestedUnit(low, high, state.spacing),
      spacing: state.spacing, isMirrored: state.slope === "down",
    };
    Object.values(controls).forEach((control) => control.update());
    const isPrice = state.scale === "price";
    [controls.unit.root, auto, controls.spacing.root, controls.slope.root].forEach((part) => { part.hidden = !isPrice; });
    controls.modulo.root.hidden = isPrice;
    auto.disabled = state.unit === 0;
    controls.first.root.hidden = controls.second.root.hidden = !state.panes.includes("angle");
    controls.hour.root.hidden = !data.isDaily;
    controls.prices.root.hidden = !data.isPositive;
    if (!isPrice) {
      warn("dense", "");
    }
    search();
    const isBuilt = frame !== null;
    build();
    if (isBuilt && isNew) {
      fill();
      if (isOther) {
        frame!.setCursor(null);
      }
    }
    const seen = String(state.seen);
    if (!isBuilt || isOther || seen !== shownSeen) {
      shownSeen = seen;
      if (state.seen === null || !frame!.showTimes(...state.seen)) {
        showLatest();
      }
    }
    const colours = COLOURS[theme];
    candles!.applyOptions({ upColor: colours.up, downColor: colours.down, wickUpColor: colours.up, wickDownColor: colours.down });
    const mode = state.prices === "log" && data.isPositive ? PriceScaleMode.Logarithmic : PriceScaleMode.Normal;
    candles!.priceScale().applyOptions({ mode });
    frame!.setLook(theme, axisClock(data, clock), !data.isDaily);
    showWords();
    showValues(false);
    tablesLater();
  }

  update();
  return {
    update,
    destroy() {
      stopSearch();
      clearTimeout(tableTimer);
      box.destroy();
      frame?.destroy();
    },
  };
}
