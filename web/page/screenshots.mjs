// The pictures of the page for the manual: a view, a width and colours each, always of the same moment.
//   node screenshots.mjs BUILT FOLDER

import { createRequire } from "node:module";
import { resolve } from "node:path";
import { pathToFileURL } from "node:url";

const [built, folder] = process.argv.slice(2).map((path) => resolve(path));
const { chromium } = createRequire(`${built}/`)("playwright-core");
const page = pathToFileURL(`${built}/zenithor-almanac.html`).href;

const PICTURES = [
  { name: "sky", link: "#sky?at=2026-11-21T12:00Z", width: 1440, height: 800, colours: "light" },
  { name: "year", link: "#year?from=2026", width: 1440, height: 1090, colours: "light" },
  { name: "day", link: "#day?date=2026-11-21&latitude=69.65&longitude=18.96", width: 1280, height: 640, colours: "dark" },
  { name: "prices", link: "#prices", width: 1440, height: 1090, colours: "light" },
  { name: "phone", link: "#sky?at=2026-11-21T12:00Z", width: 390, height: 844, colours: "dark" },
];

const browser = await chromium.launch({
  executablePath: process.env.CHROMIUM, args: process.getuid() === 0 ? ["--no-sandbox"] : [],
});
for (const { name, link, width, height, colours } of PICTURES) {
  const context = await browser.newContext({ viewport: { width, height }, colorScheme: colours, timezoneId: "Europe/Berlin" });
  await context.clock.setFixedTime("2026-11-21T12:00Z");
  const tab = await context.newPage();
  await tab.goto(page + link);
  await tab.waitForFunction(() => document.querySelector("footer").childElementCount > 0);
  await tab.waitForTimeout(500);
  await tab.screenshot({ path: `${folder}/${name}.png` });
  await context.close();
}
await browser.close();
