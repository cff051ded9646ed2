import { element } from "../view.js";
import type { Context, View } from "../view.js";

export function mount(root: HTMLElement, _context: Context): View {
  root.append(element("p", { class: "notice" }, "Nothing here yet."));
  return { update() {}, destroy() {} };
}
