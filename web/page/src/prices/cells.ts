// The lines and cells of a file with separators, and its bytes as text.

/** Lines that hold something, with the number each begins at, and their cells. */
export interface Line {
  number: number;
  cells: string[];
}

/** Bytes as text: UTF-8, UTF-16 where a mark or every other byte says so, else Western European. */
export function textOf(bytes: Uint8Array): string {
  const encoding = ((): string => {
    if (bytes[0] === 0xff && bytes[1] === 0xfe) {
      return "utf-16le";
    }
    if (bytes[0] === 0xfe && bytes[1] === 0xff) {
      return "utf-16be";
    }
    return bytes.length > 3 && bytes[0] !== 0 && bytes[1] === 0 && bytes[3] === 0 ? "utf-16le" : "utf-8";
  })();
  try {
    return new TextDecoder(encoding, { fatal: true }).decode(bytes);
  } catch {
    return new TextDecoder("windows-1252").decode(bytes);
  }
}

/** Cells of a text with quotes, in which separators and ends of lines may stand. */
function quotedLines(text: string, separator: string): Line[] {
  const lines: Line[] = [];
  let cells: string[] = [];
  let [cell, number, first] = ["", 1, 1];
  let isQuoted = false;
  const end = () => {
    cells.push(cell);
    if (cells.some((one) => one.trim() !== "")) {
      lines.push({ number: first, cells });
    }
    [cells, cell] = [[], ""];
  };
  for (let k = 0; k < text.length; ++k) {
    const letter = text[k]!;
    if (letter === "\n") {
      ++number;
    }
    if (isQuoted) {
      if (letter !== '"') {
        cell += letter;
      } else if (text[k + 1] === '"') {
        cell += '"';
        ++k;
      } else {
        isQuoted = false;
      }
    } else if (letter === '"' && cell.trim() === "") {
      [isQuoted, cell] = [true, ""];
    } else if (letter === separator) {
      cells.push(cell);
      cell = "";
    } else if (letter === "\n") {
      end();
      first = number;
    } else {
      cell += letter;
    }
  }
  end();
  return lines;
}

const SPACES = " ";

function plainLines(text: string, separator: string): Line[] {
  const lines: Line[] = [];
  text.split("\n").forEach((line, k) => {
    if (line.trim() !== "") {
      const cells = separator === SPACES ? line.trim().split(/\s+/) : line.split(separator);
      lines.push({ number: k + 1, cells });
    }
  });
  return lines;
}

/** The lines of a text. Lines that hold nothing but separators and spaces are none. */
export function linesOf(text: string): { lines: Line[]; separator: string } {
  const whole = text.replace(/^\uFEFF/, "").replace(/\r\n?/g, "\n");
  // An opening quote that nothing closes would swallow the rest of the file.
  const hasQuotes = whole.includes('"') && (whole.split('"').length - 1) % 2 === 0;
  const cut = hasQuotes ? quotedLines : plainLines;
  const sample = whole.slice(0, 20000);
  const separator = ((): string => {
    let best = { separator: SPACES, score: 0 };
    for (const one of ["\t", ";", "|", ","]) {
      const counts = cut(sample, one).slice(-40, -1).concat(cut(sample, one).slice(0, 40)).map(({ cells }) => cells.length);
      const several = counts.filter((count) => count >= 2).length;
      if (several * 2 > counts.length && several > best.score) {
        best = { separator: one, score: several };
      }
    }
    return best.separator;
  })();
  const lines = cut(whole, separator);
  for (const line of lines) {
    line.cells = line.cells.map((cell) => cell.trim().replace(/^"(.*)"$/, "$1"));
  }
  return { lines: lines.filter(({ cells }) => cells.some((cell) => cell !== "")), separator };
}
