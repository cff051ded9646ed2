// Numbers as people and programs write them: 1234.5, 1,234.5, 1.234,5, 1 234,5, 1'234.5.

export type DecimalMark = "." | ",";

const SPACES_AND_SIGNS = /[\s'’$€£¥]/g;
const WITH_POINT = /^[+-]?(?:\d{1,3}(?:,\d{3})+|\d+|(?=\.\d))(?:\.\d*)?(?:[eE][+-]?\d+)?$/;
const WITH_COMMA = /^[+-]?(?:\d{1,3}(?:\.\d{3})+|\d+|(?=,\d))(?:,\d*)?(?:[eE][+-]?\d+)?$/;
const PLAIN = /^-?\d+(?:\.\d+)?$/;

/** A cell's number; NaN where it is none. Spaces, apostrophes and signs of currencies do not count. */
export function numberOf(cell: string, mark: DecimalMark): number {
  if (mark === "." && PLAIN.test(cell)) {
    return Number(cell);
  }
  const text = cell.replace(SPACES_AND_SIGNS, "");
  if (mark === ".") {
    return WITH_POINT.test(text) ? Number(text.replace(/,/g, "")) : NaN;
  }
  return WITH_COMMA.test(text) ? Number(text.replace(/\./g, "").replace(",", ".")) : NaN;
}

/** What one cell says about the decimal mark: which it is, or which it seems to be (exactly three
 * digits follow: 1,234), or nothing. */
function evidenceOf(cell: string): { mark: DecimalMark; isSure: boolean } | null {
  const text = cell.replace(SPACES_AND_SIGNS, "");
  const point = text.lastIndexOf(".");
  const comma = text.lastIndexOf(",");
  if (point < 0 && comma < 0) {
    return null;
  }
  if (point >= 0 && comma >= 0) {
    return { mark: point > comma ? "." : ",", isSure: true };
  }
  const written: DecimalMark = point >= 0 ? "." : ",";
  const other: DecimalMark = point >= 0 ? "," : ".";
  const at = Math.max(point, comma);
  if (text.indexOf(written) !== at) {
    return { mark: other, isSure: true };
  }
  const before = text.slice(0, at).replace(/^[+-]/, "");
  const after = text.slice(at + 1);
  const isSure = !/^\d{3}$/.test(after) || before.length > 3 || before === "" || before === "0";
  // 1,234 is a thousand and more, 1.234 is one and a bit, until another number says otherwise.
  return isSure ? { mark: written, isSure } : { mark: ".", isSure };
}

/** The decimal mark of many cells, and a cell that can be read both ways where none settles it. */
export function decimalMarkOf(cells: Iterable<string>): { mark: DecimalMark; unsettled: string | null } {
  const votes = { ".": 0, ",": 0 };
  let unsettled: string | null = null;
  for (const cell of cells) {
    const evidence = evidenceOf(cell);
    if (evidence?.isSure) {
      ++votes[evidence.mark];
    } else if (evidence !== null) {
      unsettled ??= cell.trim();
    }
  }
  if (votes["."] === 0 && votes[","] === 0) {
    return { mark: ".", unsettled };
  }
  return { mark: votes[","] > votes["."] ? "," : ".", unsettled: null };
}
