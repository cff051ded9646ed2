// The table of what happens, under the charts.

import type { Clock } from "../clock.js";
import type { MarkKind } from "../state.js";
import { table } from "../table.js";
import { MARK_NAMES } from "./marks.js";
import type { Mark, MarkList } from "./marks.js";

export interface EventTable {
  root: HTMLElement;
  /** In the order of time, or the latest first. */
  show(lists: ReadonlyMap<MarkKind, MarkList>, clock: Clock, caption: string, isLatestFirst?: boolean): void;
}

export function eventTable(file: string): EventTable {
  const made = table<Mark>([], {
    caption: "Events", file, most: 40, empty: "Nothing of the chosen kinds happens in this span.",
  });
  return {
    root: made.root,
    show(lists, clock, caption, isLatestFirst = false) {
      made.setColumns([
        { head: "Time", unit: clock.label, value: ({ time }) => clock.format(time), isNumber: false },
        { head: "Event", value: ({ text }) => text },
        { head: "Kind", value: ({ kind }) => MARK_NAMES[kind] },
      ]);
      const marks = [...lists.values()].flatMap((one) => one.marks).sort((a, b) => a.time - b.time);
      made.show(isLatestFirst ? marks.reverse() : marks, caption);
    },
  };
}
