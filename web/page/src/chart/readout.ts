// The values of one moment, always in the same place beside the chart.

import { BODY_LOOKS, bodyColour } from "../bodies.js";
import type { Theme } from "../bodies.js";
import { element } from "../view.js";
import type { BodyName } from "zenithor";
import type { MarkList } from "./marks.js";
import type { MarkKind } from "../state.js";
import { placeOf } from "./frame.js";

export interface Value {
  body: BodyName;
  cells: readonly string[];
}

/** Degrees with a sign. */
export function signed(value: number, digits: number): string {
  if (Number.isNaN(value)) {
    return "–";
  }
  const text = Math.abs(value).toFixed(digits);
  return `${Number(text) === 0 ? "" : value < 0 ? "−" : "+"}${text}`;
}

export interface Readout {
  root: HTMLElement;
  show(when: string, values: readonly Value[], what: string, theme: Theme): void;
  /** All of it, to be said. */
  words(): string;
}

export function readout(): Readout {
  const root = element("div", { class: "readout" });
  return {
    root,
    show(when, values, what, theme) {
      const rows = values.map(({ body, cells }) => {
        const glyph = element("span", {}, BODY_LOOKS[body].glyph);
        glyph.style.color = bodyColour(body, theme);
        return element("div", { class: "row" }, element("b", {}, glyph, ` ${BODY_LOOKS[body].name}`),
          ...cells.map((cell) => element("span", {}, cell)));
      });
      root.dataset.cells = String(Math.max(0, ...values.map(({ cells }) => cells.length)));
      root.replaceChildren(
        element("div", { class: "when" }, when), ...rows, element("div", { class: "what", title: what }, what));
    },
    words: () => Array.from(root.children, ({ children, textContent }) =>
      (children.length > 0 ? Array.from(children, (cell) => cell.textContent).join(" ") : textContent)).join(", "),
  };
}

/** What happens from one moment to another, in words. */
export function happenings(lists: ReadonlyMap<MarkKind, MarkList>, from: number, to: number, time: (time: number) => string): string {
  const found: { time: number; text: string }[] = [];
  for (const { marks, times } of lists.values()) {
    for (let k = placeOf(times, from - 1) + 1; k < marks.length && marks[k]!.time < to; ++k) {
      found.push(marks[k]!);
    }
  }
  found.sort((a, b) => a.time - b.time);
  return found.map((mark) => `${time(mark.time)} ${mark.text}`).join("; ");
}
