// A chart over time with its panes, its cursor and its keys, on lightweight-charts. The library keeps the
// axis of time, zoom and pan; what stands in the panes is drawn by their layers.

import { CrosshairMode, LineSeries, LineStyle, createChart } from "lightweight-charts";
import type {
  DeepPartial, IChartApi, IPrimitivePaneView, ISeriesApi, ISeriesPrimitive, SeriesType, Time,
  TimeChartOptions, UTCTimestamp,
} from "lightweight-charts";

import type { Theme } from "../bodies.js";
import type { Clock } from "../clock.js";
import { COLOURS, element } from "../view.js";
import { HELP, keysOf } from "./keys.js";

export const FONT = "12px system-ui, sans-serif";

/** Where a layer draws, in CSS pixels. */
export interface Area {
  pen: CanvasRenderingContext2D;
  width: number;
  height: number;
  /** The coordinate of a place along the axis, which counts slots and may lie between two. */
  x(slot: number): number;
  /** The same of a moment. */
  xOf(time: number): number;
  /** The first and the last slot that are seen, whole numbers, at least 0 and in their order. */
  first: number;
  last: number;
  /** The places at the left and right edge of the panes, not beyond the ends. */
  left: number;
  right: number;
  colours: (typeof COLOURS)[Theme];
  theme: Theme;
}

export interface Layer {
  draw(area: Area): void;
  /** Behind prices and lines. */
  isBehind?: boolean;
  /** Draws on the axis to the left or right of the pane. */
  axis?(area: Area): void;
}

export interface Frame {
  root: HTMLElement;
  chart: IChartApi;
  /** The moments along the axis [ms]. */
  readonly times: Float64Array;
  setTimes(times: Float64Array): void;
  setLook(theme: Theme, clock: Clock, isTimeShown: boolean): void;
  /** A series without a line that carries a layer in a pane, with its axis on one side. */
  addLayer(pane: number, side: "left" | "right", layer: Layer): void;
  /** The same on a series that is there. */
  attach(series: ISeriesApi<SeriesType>, layer: Layer): void;
  redraw(): void;
  /** Seconds of the axis of a slot, as the library's data need them. */
  stamp(slot: number): UTCTimestamp;
  /** The place of a moment along the axis; between slots, and beyond the ends in steps of the ends. */
  slotOf(time: number): number;
  showSlots(from: number, to: number): void;
  /** What lies between two moments; whether that is on the chart. */
  showTimes(from: number, to: number): boolean;
  /** Everything, with room for the labels of the axis at its ends. */
  showAll(): void;
  /** The slots that are seen. */
  range(): [number, number];
  setCursor(slot: number | null): void;
  readonly cursor: number | null;
  destroy(): void;
}

export interface FrameOptions {
  label: string;
  /** Class that says how high the chart is. */
  className: string;
  hasPriceCursor: boolean;
  /** The price at which the keyboard's cursor stands. */
  cursorPrice?(slot: number): number;
  /** [px], where the class does not say it. */
  height?: number;
  /** The slot under the cursor changed; by the keyboard where `isKey`. */
  onCursor(slot: number | null, isKey: boolean): void;
  /** The reader zoomed or moved the chart, which is now seen between these moments. */
  onMoved?(from: number, to: number): void;
  chart?: DeepPartial<TimeChartOptions>;
}

const SIDE_WIDTH = { left: 64, right: 84 };
// Half a label of the axis [px].
const AXIS_ROOM = 18;
// So long it has to be at rest [ms], so far it has to be moved [slots].
const REST = 300;
const MOVED = 0.01;

let helps = 0;

/** How far the clock is ahead of UTC decides where the axis has its midnights. */
function stamps(times: Float64Array, clock: Clock): Float64Array {
  const seconds = new Float64Array(times.length);
  let last = -Infinity;
  times.forEach((time, k) => {
    last = Math.max(Math.round(time / 1000 + clock.offset(time) * 3600), last + 1);
    seconds[k] = last;
  });
  return seconds;
}

/** The place of the last element that is not above a value; -1 where all are. */
export function placeOf(sorted: Float64Array, value: number): number {
  let [low, high] = [0, sorted.length];
  while (low < high) {
    const middle = (low + high) >> 1;
    if (sorted[middle]! <= value) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low - 1;
}

/** The place of a moment among moments, between two of them in proportion. */
export function slotAmong(times: Float64Array, time: number): number {
  const size = times.length;
  if (size < 2) {
    return 0;
  }
  const k = Math.min(Math.max(placeOf(times, time), 0), size - 2);
  return k + (time - times[k]!) / (times[k + 1]! - times[k]!);
}

/** The moment at a place: the inverse. */
function timeAmong(times: Float64Array, slot: number): number {
  const k = Math.min(Math.max(Math.floor(slot), 0), times.length - 2);
  return times[k]! + (slot - k) * (times[k + 1]! - times[k]!);
}

/** A chart inside `parent`, which has to be part of the page, so that its size is known. */
export function createFrame(parent: HTMLElement, options: FrameOptions): Frame {
  const help = element("p", { class: "unseen", id: `chart-help-${++helps}` }, HELP);
  const host = element("div", {
    class: `chart ${options.className}`, tabindex: 0, role: "application", "aria-roledescription": "chart",
    "aria-label": options.label, "aria-describedby": help.id,
  });
  const root = element("div", { class: "chart-block" }, host, help);
  if (options.height !== undefined) {
    host.style.height = `${options.height}px`;
  }
  parent.replaceChildren(root);
  const chart = createChart(host, {
    autoSize: true,
    layout: { attributionLogo: false, fontSize: 12, fontFamily: "system-ui, sans-serif", panes: { enableResize: false } },
    localization: { locale: "en-GB", timeFormatter: (time: Time) => label(Number(time)) },
    leftPriceScale: { visible: true, borderVisible: false, minimumWidth: SIDE_WIDTH.left },
    rightPriceScale: { visible: true, borderVisible: false, entireTextOnly: true, minimumWidth: SIDE_WIDTH.right },
    timeScale: { borderVisible: true, rightOffset: 0, minBarSpacing: 0.01, fixLeftEdge: false },
    crosshair: {
      mode: CrosshairMode.Normal,
      vertLine: { style: LineStyle.Solid, width: 1 },
      horzLine: { visible: options.hasPriceCursor, labelVisible: options.hasPriceCursor, style: LineStyle.Dotted, width: 1 },
    },
    grid: { horzLines: { visible: false } },
    handleScale: { axisPressedMouseMove: { time: true, price: options.hasPriceCursor } },
    kineticScroll: { mouse: false, touch: !matchMedia("(prefers-reduced-motion: reduce)").matches },
    ...options.chart,
  });

  let times = new Float64Array(0);
  let seconds = new Float64Array(0);
  let clock: Clock | null = null;
  let theme: Theme = "light";
  let isTimeShown = false;
  let cursor: number | null = null;
  let moving = 0;
  let before: [number, number] = [0, 0];
  let base: ISeriesApi<"Line"> | null = null;
  const updates: (() => void)[] = [];

  function label(second: number): string {
    const k = placeOf(seconds, second);
    return k < 0 || clock === null ? "" : clock.format(times[k]!, isTimeShown ? "minute" : "day");
  }

  function area(pen: CanvasRenderingContext2D, width: number, height: number): Area | null {
    const scale = chart.timeScale();
    const [zero, one] = [scale.logicalToCoordinate(0 as never), scale.logicalToCoordinate(1 as never)];
    if (zero === null || one === null || times.length === 0) {
      return null;
    }
    const spacing = one - zero;
    const x = (slot: number) => zero + slot * spacing;
    const inside = (slot: number) => Math.min(Math.max(slot, 0), times.length - 1);
    const [left, right] = [-zero / spacing, (scale.width() - zero) / spacing];
    return {
      pen, width, height, x, theme, colours: COLOURS[theme],
      xOf: (time) => x(slotAmong(times, time)),
      left: inside(left),
      right: inside(right),
      first: inside(Math.floor(left)),
      last: inside(Math.ceil(right)),
    };
  }

  /** A layer in the library's terms. */
  function primitive(layer: Layer): ISeriesPrimitive {
    const view = (draw: (area: Area) => void, order: "bottom" | "top"): IPrimitivePaneView => ({
      zOrder: () => order,
      renderer: () => ({
        draw(target) {
          target.useMediaCoordinateSpace(({ context: pen, mediaSize: { width, height } }) => {
            const where = area(pen, width, height);
            if (where !== null) {
              pen.save();
              pen.font = FONT;
              pen.textBaseline = "middle";
              draw(where);
              pen.restore();
            }
          });
        },
      }),
    });
    const panes = [view((where) => layer.draw(where), layer.isBehind ? "bottom" : "top")];
    const axes = layer.axis === undefined ? [] : [view((where) => layer.axis!(where), "top")];
    return {
      attached: ({ requestUpdate }) => void updates.push(requestUpdate),
      paneViews: () => panes,
      priceAxisPaneViews: () => axes,
    };
  }

  const silent = {
    lineVisible: false, pointMarkersVisible: false, lastValueVisible: false, priceLineVisible: false,
    crosshairMarkerVisible: false, priceFormat: { type: "custom", formatter: () => "", minMove: 1 },
    autoscaleInfoProvider: () => ({ priceRange: { minValue: 0, maxValue: 1 } }),
  } as const;

  const show = (from: number, to: number) => chart.timeScale().setVisibleLogicalRange({ from, to });

  /** Everything, and a margin. */
  function whole(): [number, number] {
    const panes = Math.max(host.clientWidth - SIDE_WIDTH.left - SIDE_WIDTH.right, 100);
    const margin = 0.5 + (times.length * AXIS_ROOM) / panes;
    return [-margin, times.length - 1 + margin];
  }

  const frame: Frame = {
    root,
    chart,
    get times() {
      return times;
    },
    get cursor() {
      return cursor;
    },
    stamp: (slot) => seconds[slot]! as UTCTimestamp,
    setTimes(given) {
      times = given;
      seconds = clock === null ? times.map((time) => time / 1000) : stamps(times, clock);
      cursor = cursor === null ? null : Math.min(cursor, times.length - 1);
      // The cursor needs a series that has values everywhere.
      base ??= chart.addSeries(LineSeries, { ...silent, priceScaleId: "right", autoscaleInfoProvider: () => null }, 0);
      base.setData(Array.from(seconds, (time) => ({ time: time as UTCTimestamp, value: 0.5 })));
    },
    setLook(newTheme, newClock, newTimeShown) {
      const isMoved = clock !== null && clock.zone !== newClock.zone;
      [theme, clock, isTimeShown] = [newTheme, newClock, newTimeShown];
      const colours = COLOURS[theme];
      chart.applyOptions({
        layout: {
          background: { color: colours.background }, textColor: colours.quiet,
          panes: { separatorColor: colours.rule, separatorHoverColor: colours.rule },
        },
        grid: { vertLines: { color: colours.rule } },
        timeScale: { borderColor: colours.rule, timeVisible: isTimeShown, secondsVisible: false },
        crosshair: {
          vertLine: { color: colours.quiet, labelBackgroundColor: colours.quiet },
          horzLine: { color: colours.quiet, labelBackgroundColor: colours.quiet },
        },
      });
      if (isMoved) {
        frame.setTimes(times);
      }
      frame.redraw();
    },
    addLayer(pane, side, layer) {
      const series = chart.addSeries(LineSeries, { ...silent, priceScaleId: side }, pane);
      if (seconds.length > 0) {
        series.setData([{ time: seconds[0]! as UTCTimestamp, value: 0.5 }]);
      }
      series.attachPrimitive(primitive(layer));
    },
    attach(series, layer) {
      series.attachPrimitive(primitive(layer));
    },
    redraw: () => updates.forEach((update) => update()),
    slotOf: (time) => slotAmong(times, time),
    showSlots(from, to) {
      // Not the reader's doing.
      clearTimeout(moving);
      moving = 0;
      show(from, to);
    },
    showTimes(from, to) {
      const [first, last] = [slotAmong(times, from), slotAmong(times, to)];
      const isThere = last > 0 && first < times.length - 1;
      if (isThere) {
        frame.showSlots(first, last);
      }
      return isThere;
    },
    showAll: () => frame.showSlots(...whole()),
    range() {
      const seen = chart.timeScale().getVisibleLogicalRange();
      return seen === null ? [0, Math.max(times.length - 1, 1)] : [seen.from, seen.to];
    },
    setCursor(slot) {
      cursor = slot === null || times.length === 0 ? null : Math.min(Math.max(Math.round(slot), 0), times.length - 1);
      if (cursor === null || base === null) {
        chart.clearCrosshairPosition();
      } else {
        chart.setCrosshairPosition(options.cursorPrice?.(cursor) ?? 0.5, frame.stamp(cursor), base);
      }
    },
    destroy() {
      clearTimeout(moving);
      chart.remove();
    },
  };

  chart.subscribeCrosshairMove(({ time, logical }) => {
    if (time === undefined || logical === undefined) {
      return;
    }
    const slot = placeOf(seconds, Number(time));
    if (slot >= 0 && slot !== cursor) {
      cursor = slot;
      options.onCursor(slot, false);
    }
  });

  const onKey = keysOf(frame, show, whole, (slot) => options.onCursor(slot, true));
  host.addEventListener("keydown", onKey);

  // What moves a chart goes on for a while; it is told when it has come to rest.
  function onMove(): void {
    if (moving === 0) {
      before = frame.range();
    }
    clearTimeout(moving);
    moving = window.setTimeout(() => {
      moving = 0;
      const now = frame.range();
      if (times.length > 1 && now.some((end, k) => Math.abs(end - before[k]!) > MOVED)) {
        options.onMoved?.(timeAmong(times, now[0]), timeAmong(times, now[1]));
      }
    }, REST);
  }
  const moves = ["wheel", "pointerdown", "pointermove", "pointerup", "touchmove", "touchend", "keydown"] as const;
  moves.forEach((name) => host.addEventListener(name, onMove, { capture: true, passive: true }));
  return frame;
}
