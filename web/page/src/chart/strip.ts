// Events on a strip of their own: phases as drawn discs, eclipses with their kind's letter, seasons as
// rules, the rest as glyphs. Marks that find no room keep a tick; closer in they are seen.

import { bodyColour } from "../bodies.js";
import { placeOf } from "./frame.js";
import type { Area, Layer } from "./frame.js";
import { drawText } from "./lines.js";
import type { Taken } from "./lines.js";
import type { Mark, MarkList } from "./marks.js";
import type { MarkKind } from "../state.js";

const ROW = 20;
// So far apart phases have to lie for any to be drawn [px].
const FEWEST = 2.8;
const MANY_ECLIPSES = 50;

const ROW_NAMES: Readonly<Record<MarkKind, string>> = {
  phases: "Phases", eclipses: "Eclipses", seasons: "Seasons", ingresses: "Signs", aspects: "Aspects", stations: "Stations",
};

/** The disc of a phase; the lit part is drawn in the background's colour on a dark page's text colour. */
function drawPhase(area: Area, kind: string, x: number, y: number): void {
  const { pen, colours, theme } = area;
  const [lit, shadow] = theme === "light" ? [colours.background, colours.quiet] : [colours.text, colours.background];
  const radius = 5;
  pen.beginPath();
  pen.arc(x, y, radius, 0, 2 * Math.PI);
  pen.fillStyle = kind === "full_moon" ? lit : shadow;
  pen.fill();
  if (kind === "first_quarter" || kind === "last_quarter") {
    // Seen from the northern half of the Earth the right half is lit first.
    pen.beginPath();
    pen.arc(x, y, radius, -Math.PI / 2, Math.PI / 2, kind === "last_quarter");
    pen.fillStyle = lit;
    pen.fill();
  }
  pen.beginPath();
  pen.arc(x, y, radius, 0, 2 * Math.PI);
  pen.strokeStyle = colours.quiet;
  pen.lineWidth = 1;
  pen.stroke();
}

/** An eclipse: of the Sun a full disc, of the Moon a ring, each with the letter of its kind beside it. */
function drawEclipse(area: Area, mark: Mark, x: number, y: number): void {
  const { pen, colours } = area;
  const isSolar = mark.event!.startsWith("solar");
  const colour = bodyColour(isSolar ? "sun" : "moon", area.theme);
  pen.beginPath();
  pen.arc(x - 4, y, 3.5, 0, 2 * Math.PI);
  pen.lineWidth = 2;
  pen.strokeStyle = colour;
  pen.fillStyle = colour;
  if (isSolar) {
    pen.fill();
  }
  pen.stroke();
  pen.textAlign = "left";
  pen.fillStyle = colours.text;
  pen.fillText(mark.sign, x + 2, y);
}

/** Marks of one row that are seen, with their coordinates. */
function* seen(area: Area, list: MarkList | undefined, times: Float64Array): Generator<[Mark, number]> {
  if (list === undefined) {
    return;
  }
  const { marks } = list;
  for (let k = Math.max(0, placeOf(list.times, times[area.first]!)); k < marks.length; ++k) {
    const x = area.xOf(marks[k]!.time);
    if (x > area.width + 20) {
      return;
    }
    if (x >= -20) {
      yield [marks[k]!, x];
    }
  }
}

/** The height of a strip [px]. */
export function stripHeight(kinds: readonly MarkKind[]): number {
  return Math.max(kinds.length, 1) * ROW + 8;
}

export function strip(
  kinds: () => readonly MarkKind[], lists: () => ReadonlyMap<MarkKind, MarkList>, times: () => Float64Array,
): Layer {
  return {
    draw(area) {
      const { pen, colours } = area;
      kinds().forEach((kind, row) => {
        const y = 4 + (row + 0.5) * ROW;
        const all = [...seen(area, lists().get(kind), times())];
        const taken: Taken = { boxes: [] };
        if (kind === "phases") {
          // Discs that would touch: quarters go first, then all but the new Moons.
          const spacing = all.length > 1 ? (all[all.length - 1]![1] - all[0]![1]) / (all.length - 1) : 100;
          if (spacing < FEWEST) {
            drawText(area, taken, "closer in", [[area.width / 2, y]], colours.quiet);
          }
          for (const [mark, x] of all) {
            const isHalf = mark.event!.endsWith("quarter");
            if (spacing >= 11 || (!isHalf && spacing >= 5.5) || (mark.event === "new_moon" && spacing >= FEWEST)) {
              drawPhase(area, mark.event!, x, y);
            }
          }
          return;
        }
        if (kind === "seasons") {
          taken.boxes.push(...all.map(([, x]): [number, number, number, number] => [x, y - 1, x + 1, y + 1]));
        }
        for (const [mark, x] of all) {
          if (kind === "eclipses") {
            // Where many are left out, those that stay stand apart.
            const apart = all.length > MANY_ECLIPSES ? 10 : 0;
            if (drawTextRoom(taken, x - 9, x + 10 + apart)) {
              drawEclipse(area, mark, x, y);
            }
            continue;
          }
          const colour = mark.body === undefined ? colours.text : bodyColour(mark.body, area.theme);
          pen.strokeStyle = mark.kind === "seasons" ? colours.quiet : colour;
          pen.lineWidth = mark.kind === "seasons" ? 1.5 : 1;
          pen.beginPath();
          const top = mark.kind === "seasons" ? y - ROW / 2 + 1 : y + 5;
          pen.moveTo(Math.round(x) + 0.5, top);
          pen.lineTo(Math.round(x) + 0.5, y + ROW / 2 - 1);
          pen.stroke();
          if (mark.kind === "seasons") {
            drawText(area, taken, mark.sign, [[x + 5, y]], colours.text, "left");
          } else {
            drawText(area, taken, mark.sign, [[x, y - 2]], colours.text);
          }
        }
      });
    },
    axis({ pen, width, colours }) {
      pen.fillStyle = colours.quiet;
      pen.textAlign = "right";
      kinds().forEach((kind, row) => pen.fillText(ROW_NAMES[kind], width - 6, 4 + (row + 0.5) * ROW));
    },
  };
}

function drawTextRoom(taken: Taken, left: number, right: number): boolean {
  const isRoom = !taken.boxes.some(([l, , r]) => left < r && right > l);
  if (isRoom) {
    taken.boxes.push([left, 0, right, 0]);
  }
  return isRoom;
}
