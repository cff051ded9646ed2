// A chart's keys.

import type { Frame } from "./frame.js";

/** What is said of the keys to those who reach a chart by them. */
export const HELP =
  "Arrow keys move the cursor, with Shift by ten; + and - zoom, Page Up and Page Down move along, Home and End " +
  "go to the ends, 0 shows everything.";

// The fewest slots that are zoomed to.
const FEWEST = 4;
const ZOOM = 0.7;
const PAGE = 0.8;

/** The listener for a chart's keys; `show` moves the chart, `whole` is all of it, `onCursor` hears of the slot
 * that the cursor comes to. */
export function keysOf(
  frame: Frame, show: (from: number, to: number) => void, whole: () => [number, number],
  onCursor: (slot: number) => void,
): (event: KeyboardEvent) => void {
  function zoom(factor: number): void {
    const [from, to] = frame.range();
    const { cursor } = frame;
    const centre = cursor !== null && cursor > from && cursor < to ? cursor : (from + to) / 2;
    if ((to - from) * factor >= FEWEST || factor > 1) {
      show(centre + (from - centre) * factor, centre + (to - centre) * factor);
    }
  }

  function step(slots: number): void {
    const [from, to] = frame.range();
    frame.setCursor((frame.cursor ?? Math.round((from + to) / 2)) + slots);
    const now = frame.cursor!;
    if (now < from || now > to) {
      const shift = now < from ? now - from - 1 : now - to + 1;
      show(from + shift, to + shift);
    }
    onCursor(now);
  }

  function page(sign: number): void {
    const [from, to] = frame.range();
    const shift = sign * PAGE * (to - from);
    show(from + shift, to + shift);
  }

  const keys: Readonly<Record<string, (isFast: boolean) => void>> = {
    ArrowLeft: (isFast) => step(isFast ? -10 : -1),
    ArrowRight: (isFast) => step(isFast ? 10 : 1),
    Home: () => step(-frame.times.length),
    End: () => step(frame.times.length),
    PageUp: () => page(-1),
    PageDown: () => page(1),
    "+": () => zoom(ZOOM),
    "=": () => zoom(ZOOM),
    "-": () => zoom(1 / ZOOM),
    "0": () => show(...whole()),
    Escape: () => frame.setCursor(null),
  };
  return (event) => {
    const act = keys[event.key];
    if (act !== undefined && frame.times.length > 0 && !event.ctrlKey && !event.altKey && !event.metaKey) {
      event.preventDefault();
      act(event.shiftKey);
    }
  };
}
