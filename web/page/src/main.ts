// The page: head, views, foot; the state and the link that holds it.

import { dataFingerprint, version } from "zenithor";
import { unpack } from "zenithor/unpack";
import type { Theme } from "./bodies.js";
import { clockOf, localZoneName } from "./clock.js";
import { mountDay } from "./day/day.js";
import { footer } from "./foot.js";
import { mount as mountPrices } from "./prices/prices.js";
import { mountSky } from "./sky/sky.js";
import { decode, encode, follow } from "./state.js";
import type { State, ViewName } from "./state.js";
import { bar, element } from "./view.js";
import type { Context, Mount, View } from "./view.js";
import { mount as mountYear } from "./year/year.js";

const PAGES: Readonly<Record<ViewName, { title: string; mount: Mount }>> = {
  sky: { title: "Sky", mount: mountSky },
  year: { title: "Year", mount: mountYear },
  day: { title: "Day", mount: mountDay },
  prices: { title: "Prices", mount: mountPrices },
};

const part = <T extends HTMLElement>(selector: string) => document.querySelector<T>(selector)!;
const root = part("main");
const asksForDark = matchMedia("(prefers-color-scheme: dark)");
const isPaper = matchMedia("print");

let state: State = decode(location.hash);
let shown: { name: ViewName; view: View } | null = null;

function theme(): Theme {
  if (isPaper.matches) {
    return "light";
  }
  return state.theme === "auto" ? (asksForDark.matches ? "dark" : "light") : state.theme;
}

// Browsers allow so many changes of the address in so much time; what plays or is dragged makes more.
const LINK_PAUSE = 250;
let linkTimer: ReturnType<typeof setTimeout> | undefined;

function writeLink(change: "pushState" | "replaceState" = "replaceState"): void {
  clearTimeout(linkTimer);
  linkTimer = undefined;
  history[change](null, "", encode(state));
}

const context: Context = {
  get state() {
    return state;
  },
  get clock() {
    return clockOf(state.zone);
  },
  get theme() {
    return theme();
  },
  setState(changes, { history: kind = "replace" } = {}) {
    state = { ...state, ...changes };
    if (kind === "push") {
      writeLink("pushState");
    } else {
      linkTimer ??= setTimeout(() => writeLink(), LINK_PAUSE);
    }
    draw();
  },
  announce(text) {
    part("#spoken").textContent = text;
  },
};

const zoneName = localZoneName();
const settings = [
  bar(context, "zone", "Times in", { utc: "UTC", local: zoneName === "UTC" ? "Browser's zone" : zoneName }),
  bar(context, "theme", "Colours", { auto: "System", light: "Light", dark: "Dark" }),
];

function drawHead(): void {
  document.documentElement.dataset.theme = theme();
  document.title = `${PAGES[state.view].title} – Zenithor almanac`;
  const links = (Object.keys(PAGES) as ViewName[]).map((name) =>
    element(
      "a",
      { href: encode({ ...state, view: name }), "aria-current": name === state.view ? "page" : null },
      PAGES[name].title,
    ));
  const nav = part("nav");
  const focused = [...nav.children].indexOf(document.activeElement!);
  nav.replaceChildren(...links);
  links[focused]?.focus();
  settings.forEach(({ update }) => update());
}

function refuse(error: unknown): void {
  const why = error instanceof Error ? error.message : String(error);
  root.replaceChildren(
    element("p", { class: "notice", role: "alert" },
      `This view cannot be shown: ${why}. `,
      element("a", { href: "#sky" }, "Start again with today's sky"), "."),
  );
}

function draw(): void {
  drawHead();
  try {
    if (shown?.name !== state.view) {
      shown?.view.destroy();
      shown = null;
      root.replaceChildren();
      root.className = `view-${state.view}`;
      shown = { name: state.view, view: PAGES[state.view].mount(root, context) };
    } else {
      shown.view.update();
    }
  } catch (error) {
    shown = null;
    console.error(error);
    refuse(error);
  }
}

async function start(): Promise<void> {
  part(".settings").append(...settings.map(({ root: one }) => one));
  drawHead();
  try {
    await unpack();
  } catch (error) {
    const why = error instanceof Error ? error.message : String(error);
    root.replaceChildren(element("p", { class: "notice", role: "alert" },
      `This browser cannot run the library (${why}). Chrome from 105, Firefox from 113 and Safari from 16.4 on can.`));
    return;
  }
  part("footer").replaceChildren(footer(version, dataFingerprint));
  draw();
  addEventListener("hashchange", () => {
    // "#view" is the way past the head for the keyboard and no view.
    if (location.hash === "#view") {
      writeLink();
      root.focus();
      return;
    }
    clearTimeout(linkTimer);
    linkTimer = undefined;
    state = follow(state, location.hash);
    draw();
  });
  asksForDark.addEventListener("change", draw);
  isPaper.addEventListener("change", draw);
}

void start();
