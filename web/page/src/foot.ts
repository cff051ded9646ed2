// The foot of the page: what the numbers are, whose work is in it.

import chartsLicence from "./licences/lightweight-charts.txt";
import ownLicence from "./licences/zenithor.txt";
import { element } from "./view.js";

const paragraph = (...children: (Node | string)[]) => element("p", {}, ...children);

export function footer(version: string, fingerprint: string): HTMLElement {
  return element("div", {},
    paragraph(
      `Zenithor ${version}. Longitudes are apparent and geocentric, of the true equinox of date, unless a view says ` +
        "otherwise. Times are clock time in the zone that is chosen above; before 1972 UTC stands for universal time."),
    paragraph(
      "Charts over time: TradingView Lightweight Charts™, Copyright © 2026 TradingView, Inc., ",
      element("a", { href: "https://www.tradingview.com/", rel: "noreferrer" }, "https://www.tradingview.com/"), "."),
    element("details", {},
      element("summary", {}, "About this page"),
      paragraph(
        "Everything here is computed in this file, by the Zenithor library inside it. The page has no server: it works " +
          "without a network, and its security policy forbids it to open any connection. A price file that you drop " +
          "here is read in this window and goes nowhere; closing the window forgets it."),
      paragraph(
        "“Apparent” means as seen: the time that light takes and the tilt and swing of the Earth's axis are taken into " +
          "account, as in printed almanacs. “Geocentric” is seen from the Earth's centre, “heliocentric” from the " +
          "Sun's. Longitude is the place along the zodiac, 0 degrees where Aries begins; declination is how far north " +
          "(+) or south (−) of the equator. A body is retrograde while its longitude falls."),
      paragraph(
        "The address of the page holds what it shows: copy it to come back to the same view, or to pass it on with the file."),
      element("p", { class: "small" }, `Data: SHA-256 ${fingerprint}`)),
    element("details", {},
      element("summary", {}, "Licences"),
      paragraph("Zenithor:"), element("pre", {}, ownLicence),
      paragraph("Lightweight Charts, unchanged; fancy-canvas, which it uses, by smakarov@tradingview.com, is under the MIT License:"),
      element("pre", {}, chartsLicence)));
}
