// Controls of the charts' views: choices from lists, sets of checks, folded away where there is little
// room.

import { GEOCENTRIC, bodyLabel } from "../bodies.js";
import type { State } from "../state.js";
import { element } from "../view.js";
import type { Context } from "../view.js";
import type { BodyName } from "zenithor";

export interface Control {
  root: HTMLElement;
  update(): void;
}

/** A choice of one from a list, for one value of the state. */
export function list<K extends keyof State>(
  context: Context, name: K, title: string, options: readonly [State[K] & (string | number), string][],
): Control {
  const select: HTMLSelectElement = element("select", {
    name,
    change: () => context.setState({ [name]: options[select.selectedIndex]![0] } as unknown as Partial<State>),
  }, ...options.map(([value, text]) => element("option", { value }, text)));
  const update = () => {
    select.value = String(context.state[name]);
  };
  update();
  return { root: element("label", {}, element("span", {}, title), select), update };
}

/** Checks, one for each of several values. */
export function checks<K extends keyof State>(
  context: Context, name: K, legend: string, options: readonly [string, string][],
): Control {
  const inputs = options.map(([value, text]) => {
    const input = element("input", { type: "checkbox", name, value, change: () => {
      const chosen = options.map(([one]) => one).filter((_, k) => inputs[k]!.input.checked);
      context.setState({ [name]: chosen } as unknown as Partial<State>);
    } });
    return { input, label: element("label", {}, input, ` ${text}`) };
  });
  const update = () => {
    for (const { input } of inputs) {
      input.checked = (context.state[name] as readonly string[]).includes(input.value);
    }
  };
  update();
  const root = element("fieldset", { class: "checks" }, element("legend", {}, legend), ...inputs.map(({ label }) => label));
  return { root, update };
}

/** Which bodies are drawn. Seen from the Sun the Earth stands where the Sun stood. */
export function bodyChecks(context: Context, name: "bodies" | "lines"): Control {
  const made = checks(context, name, "Bodies", GEOCENTRIC.map((body) => [body, bodyLabel(body)]));
  const update = () => {
    made.update();
    const isHeliocentric = context.state.centre === "helio";
    made.root.querySelectorAll("label").forEach((label, k) => {
      const body: BodyName = GEOCENTRIC[k]!;
      label.lastChild!.textContent = ` ${bodyLabel(isHeliocentric && body === "sun" ? "earth" : body)}`;
      label.hidden = isHeliocentric && body === "moon";
    });
  };
  update();
  return { root: made.root, update };
}

/** A whole or decimal number, for one value of the state. */
export function numberField<K extends keyof State>(
  context: Context, name: K, title: string, least: number, most: number, step: number | "any", shown?: () => string,
): Control {
  const input = element("input", {
    type: "number", name, min: least, max: most, step,
    change: () => {
      const value = input.value.trim() === "" ? NaN : Number(input.value);
      if (value >= least && value <= most && (step !== 1 || Number.isInteger(value))) {
        context.setState({ [name]: value } as unknown as Partial<State>);
      } else {
        input.setAttribute("aria-invalid", "true");
        context.announce(`${title}: a number from ${least} to ${most} is needed.`);
      }
    },
  });
  const update = () => {
    input.removeAttribute("aria-invalid");
    input.value = shown?.() ?? String(context.state[name]);
  };
  update();
  return { root: element("label", {}, element("span", {}, title), input), update };
}

/** Controls that are seldom used, behind one word. */
export function folded(title: string, ...children: HTMLElement[]): HTMLElement {
  return element("details", { class: "more" }, element("summary", {}, title), element("div", { class: "controls" }, ...children));
}
