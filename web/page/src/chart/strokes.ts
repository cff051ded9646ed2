// Longitudes modulo 360, 90, 45 or 30 as strokes that end where the value starts anew.

/** Points of one unbroken line. */
export interface Stroke {
  x: number[];
  y: number[];
}

/** The shortest way from one longitude to another [deg], -180 to 180. */
export function shortestWay(from: number, to: number): number {
  const way = to - from;
  return way - 360 * Math.round(way / 360);
}

/** A value's place in 0 (inclusive) to `modulo`. */
export function folded(value: number, modulo: number): number {
  const rest = value - modulo * Math.floor(value / modulo);
  return rest >= modulo ? 0 : rest;
}

/** Strokes of longitudes [deg] at the places `x`. Between two places the shorter way is taken, which may
 * pass several multiples of `modulo`; at each the stroke ends on one edge and the next begins on the
 * other, at the place in between. A value that is none ends a stroke. */
export function strokesOf(x: ArrayLike<number>, longitude: ArrayLike<number>, modulo: number): Stroke[] {
  const strokes: Stroke[] = [];
  let stroke: Stroke = { x: [], y: [] };
  const add = (at: number, value: number) => {
    stroke.x.push(at);
    stroke.y.push(value);
  };
  const cut = () => {
    if (stroke.x.length > 1) {
      strokes.push(stroke);
    }
    stroke = { x: [], y: [] };
  };
  let last = NaN;
  for (let k = 0; k < x.length; ++k) {
    const value = longitude[k]!;
    if (Number.isNaN(value)) {
      cut();
      last = NaN;
      continue;
    }
    if (!Number.isNaN(last)) {
      const way = shortestWay(last, value);
      const [from, to] = [last, last + way];
      const width = x[k]! - x[k - 1]!;
      if (way > 0) {
        for (let edge = modulo * (Math.floor(from / modulo) + 1); edge <= to; edge += modulo) {
          const at = x[k - 1]! + ((edge - from) / way) * width;
          add(at, modulo);
          cut();
          add(at, 0);
        }
      } else if (way < 0) {
        for (let edge = modulo * Math.floor(from / modulo); edge > to; edge -= modulo) {
          const at = x[k - 1]! + ((edge - from) / way) * width;
          add(at, 0);
          cut();
          add(at, modulo);
        }
      }
    }
    add(x[k]!, folded(value, modulo));
    last = value;
  }
  cut();
  return strokes;
}

/** Strokes of values that are no angles: a value that is none ends one. */
export function plainStrokes(x: ArrayLike<number>, value: ArrayLike<number>): Stroke[] {
  const strokes: Stroke[] = [];
  let stroke: Stroke = { x: [], y: [] };
  for (let k = 0; k <= x.length; ++k) {
    if (k === x.length || Number.isNaN(value[k]!)) {
      if (stroke.x.length > 1) {
        strokes.push(stroke);
      }
      stroke = { x: [], y: [] };
    } else {
      stroke.x.push(x[k]!);
      stroke.y.push(value[k]!);
    }
  }
  return strokes;
}
