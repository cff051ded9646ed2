// What a view is handed, and what it has to be able to do.

import type { Theme } from "./bodies.js";
import type { Clock } from "./clock.js";
import type { State } from "./state.js";

/** How a change stands in the browser's history: a place of its own, or in place of the last one. */
export type Change = { history?: "push" | "replace" };

export interface Context {
  /** As it is now; never written to. */
  readonly state: Readonly<State>;
  /** Changes the state and the link, then every view that is shown is updated. */
  setState(changes: Partial<State>, options?: Change): void;
  readonly clock: Clock;
  readonly theme: Theme;
  /** Says something to those who do not see it. */
  announce(text: string): void;
}

export interface View {
  /** Draws the state as it is now: after setState, a change of zone, theme or link. */
  update(): void;
  /** Takes everything back: listeners, timers, charts. The page empties the view's element. */
  destroy(): void;
}

export type Mount = (root: HTMLElement, context: Context) => View;

type Attributes = Record<string, string | number | boolean | null | undefined | ((event: Event) => void)>;
type Child = Node | string | null | undefined | false;

function fill(node: Element, attributes: Attributes, children: readonly Child[]): void {
  for (const [name, value] of Object.entries(attributes)) {
    if (typeof value === "function") {
      node.addEventListener(name, value);
    } else if (value !== null && value !== undefined && value !== false) {
      node.setAttribute(name, value === true ? "" : String(value));
    }
  }
  for (const child of children) {
    if (child !== null && child !== undefined && child !== false) {
      node.append(child);
    }
  }
}

/** An element: attributes by name, listeners by the event's name, then what is inside. Style
 * attributes are forbidden by the page's policy; use a class. */
export function element<K extends keyof HTMLElementTagNameMap>(
  tag: K, attributes: Attributes = {}, ...children: Child[]
): HTMLElementTagNameMap[K] {
  const node = document.createElement(tag);
  fill(node, attributes, children);
  return node;
}

/** An element of an SVG picture. Colours and fonts go into attributes, so that the picture is whole
 * when it is saved. */
export function svg<K extends keyof SVGElementTagNameMap>(
  tag: K, attributes: Attributes = {}, ...children: Child[]
): SVGElementTagNameMap[K] {
  const node = document.createElementNS("http://www.w3.org/2000/svg", tag);
  fill(node, attributes, children);
  return node;
}

/** A choice of few for one value of the state, all of them seen: radio buttons drawn as one bar. */
export function bar<K extends keyof State>(
  context: Context, name: K, legend: string, options: Record<State[K] & (string | number), string>,
): { root: HTMLElement; update(): void } {
  const inputs = (Object.keys(options) as string[]).map((text) => {
    const isNumber = typeof context.state[name] === "number";
    const value = (isNumber ? Number(text) : text) as State[K] & (string | number);
    const input = element("input", {
      type: "radio", name, value,
      change: () => context.setState({ [name]: value } as unknown as Partial<State>),
    });
    return { input, label: element("label", {}, input, element("span", {}, options[value])) };
  });
  const update = () => {
    for (const { input } of inputs) {
      input.checked = input.value === String(context.state[name]);
    }
  };
  update();
  const labels = inputs.map(({ label }) => label);
  return { root: element("fieldset", { class: "bar" }, element("legend", {}, legend), ...labels), update };
}

/** The colours of the page for what is drawn by program. */
export const COLOURS = {
  light: {
    background: "#ffffff", panel: "#f6f7f9", text: "#1b1f24", quiet: "#5b6470", rule: "#d9dee5",
    accent: "#0b5cad", retrograde: "rgba(200, 80, 60, .10)", up: "#2a7f62", down: "#b5473c",
  },
  dark: {
    background: "#14171c", panel: "#1c2027", text: "#e8ebef", quiet: "#9aa4b1", rule: "#313842",
    accent: "#6db3ff", retrograde: "rgba(255, 130, 110, .14)", up: "#52b788", down: "#e5786d",
  },
} as const;
