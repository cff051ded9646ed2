// The table of a view: what is drawn, as numbers that can be read, sorted, copied and saved.

import { csv, saveCsv } from "./download.js";
import { element } from "./view.js";

export interface Column<Row> {
  head: string;
  unit?: string;
  /** What is sorted by and goes into the CSV file. */
  value(row: Row): string | number | null;
  /** What stands in the cell where it is not the value: a number at this many digits, or a text. */
  digits?: number;
  show?(row: Row): string;
  /** Set to the right, as numbers are; told by the first row's value where nothing is said. */
  isNumber?: boolean;
  isSortable?: boolean;
}

export interface TableOptions {
  caption: string;
  /** Of the CSV file, without its ending. */
  file: string;
  /** What stands in place of rows where there are none. */
  empty?: string;
  /** More rows than that come when they are asked for. */
  most?: number;
}

export interface Table<Row> {
  root: HTMLElement;
  /** New rows, and a new caption where one is given; the order that the reader chose stays. */
  show(rows: readonly Row[], caption?: string): void;
  /** New columns as well. */
  setColumns(columns: readonly Column<Row>[]): void;
}

function compare(a: string | number | null, b: string | number | null): number {
  if (typeof a === "number" && typeof b === "number") {
    return (Number.isNaN(a) ? 1 : 0) - (Number.isNaN(b) ? 1 : 0) || a - b;
  }
  return a === null || b === null ? Number(a === null) - Number(b === null) : String(a).localeCompare(String(b));
}

/** The text of a cell. */
export function shown<Row>(column: Column<Row>, row: Row): string {
  if (column.show) {
    return column.show(row);
  }
  const value = column.value(row);
  if (value === null || (typeof value === "number" && !Number.isFinite(value))) {
    return "";
  }
  if (typeof value === "number" && column.digits !== undefined) {
    const text = value.toFixed(column.digits);
    return Number(text) === 0 ? text.replace("-", "") : text;
  }
  return String(value);
}

/** The rows as a CSV file, units in the head. */
export function tableCsv<Row>(columns: readonly Column<Row>[], rows: readonly Row[]): string {
  const head = columns.map(({ head, unit }) => (unit ? `${head} [${unit}]` : head));
  return csv([head, ...rows.map((row) => columns.map((column) => {
    const value = column.value(row);
    return typeof value === "number" && column.digits !== undefined ? shown(column, row) : value;
  }))]);
}

/** A table with its caption and its button for the CSV file. */
export function table<Row>(columns: readonly Column<Row>[], options: TableOptions): Table<Row> {
  let rows: readonly Row[] = [];
  let order: { column: number; sign: 1 | -1 } | null = null;
  let most = options.most ?? 400;

  const words = element("span", {}, options.caption);
  const caption = element("caption", {}, words);
  const head = element("thead");
  const body = element("tbody");
  const frame = element("table", {}, caption, head, body);
  const scroller = element("div", { class: "table", tabindex: 0, role: "region", "aria-label": options.caption }, frame);
  const more = element("button", { type: "button", click: () => { most = Infinity; drawRows(); } });
  const download = element("button", { type: "button", click: () => saveCsv(tableCsv(columns, sorted()), `${options.file}.csv`) }, "Table as CSV");
  const root = element("div", { class: "table-block" }, scroller, element("p", { class: "buttons" }, more, download));

  function sorted(): readonly Row[] {
    if (order === null) {
      return rows;
    }
    const { column, sign } = order;
    const { value } = columns[column]!;
    return rows.slice().sort((a, b) => sign * compare(value(a), value(b)));
  }

  function isNumber(column: Column<Row>): boolean {
    return column.isNumber ?? (rows.length > 0 && typeof column.value(rows[0]!) === "number");
  }

  function drawHead(): void {
    const cells = columns.map((column, k) => {
      const unit = column.unit ? element("span", { class: "unit" }, ` ${column.unit}`) : null;
      const turn = order?.column === k ? (order.sign === 1 ? "ascending" : "descending") : null;
      const sort = () => {
        order = { column: k, sign: order?.column === k && order.sign === 1 ? -1 : 1 };
        drawHead();
        drawRows();
        head.querySelectorAll<HTMLElement>("th")[k]?.querySelector("button")?.focus();
      };
      const label = column.isSortable === false
        ? [column.head, unit]
        : [element("button", { type: "button", class: "sort", click: sort }, column.head, unit)];
      return element("th", { scope: "col", class: isNumber(column) ? "number" : null, "aria-sort": turn }, ...label);
    });
    head.replaceChildren(element("tr", {}, ...cells));
  }

  function drawRows(): void {
    if (rows.length === 0) {
      const cell = element("td", { colspan: columns.length, class: "empty" }, options.empty ?? "There is nothing to list.");
      body.replaceChildren(element("tr", {}, cell));
    } else {
      body.replaceChildren(...sorted().slice(0, most).map((row) =>
        element("tr", {}, ...columns.map((column, k) =>
          k === 0
            ? element("th", { scope: "row" }, shown(column, row))
            : element("td", { class: isNumber(column) ? "number" : null }, shown(column, row))))));
    }
    more.hidden = rows.length <= most;
    more.textContent = `Show all ${rows.length} rows`;
    download.hidden = rows.length === 0;
  }

  drawHead();
  drawRows();
  return {
    root,
    show(newRows, newCaption) {
      const hadNone = rows.length === 0;
      rows = newRows;
      if (newCaption !== undefined) {
        words.textContent = newCaption;
        scroller.setAttribute("aria-label", newCaption);
      }
      if (hadNone !== (rows.length === 0)) {
        drawHead();
      }
      drawRows();
    },
    setColumns(newColumns) {
      columns = newColumns;
      order = null;
      drawHead();
      drawRows();
    },
  };
}
