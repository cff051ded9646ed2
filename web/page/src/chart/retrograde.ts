// Spans in which a longitude falls.

/** A span of retrograde motion; an end that is no station is the end of what was asked for. */
export interface Span {
  from: number;
  to: number;
  beginsHere: boolean;
  endsHere: boolean;
}

/** The spans between stations in the order of time. `direction` is -1 where a body turns retrograde and
 * 1 where it turns direct; without any station `isRetrograde` says how it moves all the time. */
export function retrogradeSpans(
  times: ArrayLike<number>, direction: ArrayLike<number>, from: number, to: number, isRetrograde: boolean,
): Span[] {
  if (times.length === 0) {
    return isRetrograde ? [{ from, to, beginsHere: false, endsHere: false }] : [];
  }
  const spans: Span[] = [];
  let open: number | null = direction[0]! > 0 ? from : null;
  let beginsHere = false;
  for (let k = 0; k < times.length; ++k) {
    if (direction[k]! < 0) {
      [open, beginsHere] = [times[k]!, true];
    } else if (open !== null) {
      spans.push({ from: open, to: times[k]!, beginsHere, endsHere: true });
      open = null;
    }
  }
  if (open !== null) {
    spans.push({ from: open, to, beginsHere, endsHere: false });
  }
  return spans;
}
