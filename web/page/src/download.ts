// Files that the page hands over: made here, from what is shown, and sent nowhere.

import { COLOURS, element } from "./view.js";
import type { Context } from "./view.js";

function save(blob: Blob, name: string): void {
  const link = document.createElement("a");
  link.href = URL.createObjectURL(blob);
  link.download = name;
  document.body.append(link);
  link.click();
  link.remove();
  setTimeout(() => URL.revokeObjectURL(link.href), 10000);
}

/** A cell of a CSV file. A text that a spreadsheet would take for a formula gets a quote before it. */
function cell(value: string | number | null): string {
  if (value === null || (typeof value === "number" && !Number.isFinite(value))) {
    return "";
  }
  if (typeof value === "number") {
    return String(value);
  }
  const text = /^[=+@\t\r]|^-(?![\d.])/.test(value) ? `'${value}` : value;
  return /[",\r\n]/.test(text) ? `"${text.replace(/"/g, '""')}"` : text;
}

/** Lines of a CSV file (RFC 4180). */
export function csv(rows: readonly (readonly (string | number | null)[])[]): string {
  return rows.map((row) => row.map(cell).join(",") + "\r\n").join("");
}

export function saveCsv(text: string, name: string): void {
  save(new Blob(["\uFEFF", text], { type: "text/csv;charset=utf-8" }), name);
}

/** The picture as a file of its own. */
function svgText(picture: SVGSVGElement): string {
  const copy = picture.cloneNode(true) as SVGSVGElement;
  copy.setAttribute("xmlns", "http://www.w3.org/2000/svg");
  return new XMLSerializer().serializeToString(copy);
}

function saveSvg(picture: SVGSVGElement, name: string): void {
  save(new Blob([svgText(picture)], { type: "image/svg+xml" }), name);
}

export async function saveCanvas(canvas: HTMLCanvasElement, name: string): Promise<void> {
  const blob = await new Promise<Blob | null>((done) => canvas.toBlob(done, "image/png"));
  if (blob === null) {
    throw new Error("The browser makes no picture of this size.");
  }
  save(blob, name);
}

/** A picture, drawn twice as large as its own size, on a colour. */
async function savePng(picture: SVGSVGElement, name: string, background: string): Promise<void> {
  const { width, height } = picture.viewBox.baseVal;
  const address = URL.createObjectURL(new Blob([svgText(picture)], { type: "image/svg+xml" }));
  try {
    const image = new Image(width, height);
    image.src = address;
    await image.decode();
    const canvas = document.createElement("canvas");
    canvas.width = 2 * width;
    canvas.height = 2 * height;
    const pen = canvas.getContext("2d")!;
    pen.fillStyle = background;
    pen.fillRect(0, 0, canvas.width, canvas.height);
    pen.drawImage(image, 0, 0, canvas.width, canvas.height);
    await saveCanvas(canvas, name);
  } finally {
    URL.revokeObjectURL(address);
  }
}

/** The buttons below a picture. `name` is the file's, without its ending. */
export function saveButtons(picture: () => SVGSVGElement, name: () => string, context: Context): HTMLElement {
  const png = () => {
    savePng(picture(), `${name()}.png`, COLOURS[context.theme].background)
      .catch((error: Error) => context.announce(`The picture cannot be saved: ${error.message}`));
  };
  return element("p", { class: "buttons" },
    element("button", { type: "button", click: png }, "Picture as PNG"),
    element("button", { type: "button", click: () => saveSvg(picture(), `${name()}.svg`) }, "Picture as SVG"));
}
