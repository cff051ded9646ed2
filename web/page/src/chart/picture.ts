// A chart as a picture, with its title and what it shows.

import type { IChartApi } from "lightweight-charts";
import type { Theme } from "../bodies.js";
import { COLOURS } from "../view.js";
import { FONT } from "./frame.js";

/** The chart with a title and a line of words above it. */
export function picture(chart: IChartApi, title: string, words: string, theme: Theme): HTMLCanvasElement {
  const drawn = chart.takeScreenshot(true, false);
  const scale = drawn.width / chart.chartElement().clientWidth;
  const colours = COLOURS[theme];
  const canvas = document.createElement("canvas");
  const head = 52;
  canvas.width = drawn.width;
  canvas.height = drawn.height + Math.round(head * scale);
  const pen = canvas.getContext("2d")!;
  pen.fillStyle = colours.background;
  pen.fillRect(0, 0, canvas.width, canvas.height);
  pen.drawImage(drawn, 0, Math.round(head * scale));
  pen.scale(scale, scale);
  pen.fillStyle = colours.text;
  pen.font = "600 16px system-ui, sans-serif";
  pen.fillText(title, 12, 22, canvas.width / scale - 24);
  pen.fillStyle = colours.quiet;
  pen.font = FONT;
  pen.fillText(words, 12, 42, canvas.width / scale - 24);
  return canvas;
}
