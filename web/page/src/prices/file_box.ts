// Where a file of prices is dropped or chosen, and what is said of it.

import { element } from "../view.js";
import type { Context } from "../view.js";
import { table } from "../table.js";
import type { Bars, LeftLine, Reading, ReadingOptions } from "./bars.js";
import { readBarsFile } from "./bars.js";
import { SAMPLE_NOTE, sampleBars } from "./sample.js";

/** The prices that are shown. They outlive the view, not the window. */
export interface Shown {
  name: string;
  bars: Bars;
  isSample: boolean;
}

const SAMPLE: Shown = { name: "Sample prices", bars: sampleBars(), isSample: true };

interface Chosen {
  name: string;
  bytes: Uint8Array;
  options: ReadingOptions;
  reading: Reading;
}

let shown: Shown = SAMPLE;
let chosen: Chosen | null = null;

export function shownPrices(): Shown {
  return shown;
}

export interface FileBox {
  root: HTMLElement;
  destroy(): void;
}

/** `onChange` is called when other prices are shown; `target` takes files that are dropped. */
export function fileBox(target: HTMLElement, context: Context, onChange: () => void): FileBox {
  const input = element("input", {
    type: "file", accept: ".csv,.txt,.tsv,text/csv,text/plain", id: "prices-file", class: "unseen",
    change: () => {
      const file = input.files?.[0];
      if (file) {
        void take(file);
      }
      input.value = "";
    },
  });
  const sampleButton = element("button", { type: "button", click: () => {
    [shown, chosen] = [SAMPLE, null];
    say();
    onChange();
  } }, "Show the sample");
  const status = element("div", { class: "file-status", role: "status" });
  const left = table<LeftLine>([
    { head: "Line", value: ({ line }) => line, digits: 0 },
    { head: "Why it is no bar of the chart", value: ({ why }) => why },
  ], { caption: "Lines left out", file: "zenithor-lines-left-out", most: 20 });
  const details = element("details", {}, element("summary", {}, "Lines left out"), left.root);
  const order = choice("Dates", [["", "as found"], ["day", "day first"], ["month", "month first"]], (value) => ({
    ...chosen!.options, order: (value || undefined) as ReadingOptions["order"] }));
  const mark = choice("Decimals", [["", "as found"], [".", "point"], [",", "comma"]], (value) => ({
    ...chosen!.options, mark: (value || undefined) as ReadingOptions["mark"] }));
  const again = element("div", { class: "controls" }, order.root, mark.root);
  const root = element("section", { class: "file-box", "aria-label": "Prices" },
    element("div", { class: "buttons" },
      input, element("label", { class: "button", for: "prices-file" }, "Choose a file of prices"), sampleButton,
      element("span", { class: "quiet" }, "or drop one anywhere here: date, open, high, low, close. It stays in this window.")),
    status, again, details);

  function choice(title: string, options: readonly [string, string][], change: (value: string) => ReadingOptions) {
    const select: HTMLSelectElement = element("select", {
      change: () => chosen && read(chosen.name, chosen.bytes, change(select.value)),
    }, ...options.map(([value, text]) => element("option", { value }, text)));
    return { select, root: element("label", {}, element("span", {}, title), select) };
  }

  function say(): void {
    const reading = chosen?.reading;
    sampleButton.hidden = shown.isSample && chosen === null;
    again.hidden = reading === undefined || (!reading.isGood && reading.left.length === 0);
    order.select.value = chosen?.options.order ?? "";
    mark.select.value = chosen?.options.mark ?? "";
    const lines = reading === undefined ? [] : reading.isGood ? reading.file.left : reading.left;
    details.hidden = lines.length === 0;
    details.firstElementChild!.textContent = `Lines left out (${lines.length})`;
    left.show(lines);
    if (chosen === null || reading === undefined) {
      status.replaceChildren(element("p", {}, SAMPLE_NOTE));
    } else if (reading.isGood) {
      status.replaceChildren(
        element("p", {}, element("b", {}, chosen.name), ": ", reading.file.notes[0]!),
        reading.file.notes.length > 1
          ? element("ul", {}, ...reading.file.notes.slice(1).map((note) => element("li", {}, note))) : "");
    } else {
      status.replaceChildren(element("p", { class: "notice refused", role: "alert" },
        element("b", {}, `${chosen.name} is not shown. `), reading.refusal));
    }
  }

  function read(name: string, bytes: Uint8Array, options: ReadingOptions): void {
    const reading = readBarsFile(bytes, options);
    chosen = { name, bytes, options, reading };
    if (reading.isGood) {
      shown = { name, bars: reading.file.bars, isSample: false };
    }
    say();
    context.announce(reading.isGood ? `${name}: ${reading.file.notes[0]}` : `${name} is not shown. ${reading.refusal}`);
    if (reading.isGood) {
      onChange();
    }
  }

  async function take(file: File): Promise<void> {
    status.replaceChildren(element("p", {}, `Reading ${file.name} …`));
    try {
      const bytes = new Uint8Array(await file.arrayBuffer());
      // The words above are painted first.
      await new Promise((done) => setTimeout(done, 0));
      read(file.name, bytes, {});
    } catch (error) {
      const why = error instanceof Error ? error.message : String(error);
      status.replaceChildren(element("p", { class: "notice refused", role: "alert" }, `${file.name} cannot be read: ${why}`));
    }
  }

  function onDrag(event: DragEvent): void {
    event.preventDefault();
    target.classList.add("dropping");
  }

  function onLeave(event: DragEvent): void {
    if (event.relatedTarget === null || !target.contains(event.relatedTarget as Node)) {
      target.classList.remove("dropping");
    }
  }

  function onDrop(event: DragEvent): void {
    event.preventDefault();
    target.classList.remove("dropping");
    const file = event.dataTransfer?.files[0];
    if (file) {
      void take(file);
    }
  }

  target.addEventListener("dragover", onDrag);
  target.addEventListener("dragleave", onLeave);
  target.addEventListener("drop", onDrop);
  say();
  return {
    root,
    destroy() {
      target.removeEventListener("dragover", onDrag);
      target.removeEventListener("dragleave", onLeave);
      target.removeEventListener("drop", onDrop);
      target.classList.remove("dropping");
    },
  };
}
