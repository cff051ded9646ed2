// The page in Debian's Chromium, watched: nothing but the file may be asked for, nothing may go to the
// console. One browser for all tests of a file.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { fileURLToPath, pathToFileURL } from "node:url";
import { after, before } from "node:test";
import { chromium } from "playwright-core";

export const PAGE = pathToFileURL(fileURLToPath(new URL("../zenithor-almanac.html", import.meta.url))).href;
const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");

export const LIMIT = { timeout: 60000 };
const WIDTHS = [1440, 768, 390];

let browser;

/** To be called once in a test file. */
export function useBrowser() {
  before(async () => {
    browser = await chromium.launch({
      executablePath: process.env.CHROMIUM,
      args: ["--disable-dev-shm-usage", ...(process.getuid() === 0 ? ["--no-sandbox"] : [])],
    });
  });
  after(() => browser?.close());
}

/** Opens the page at a fragment and hands it to a test; afterwards nothing bad may have happened.
 * `options` are those of Playwright's contexts; `before` is a script that runs before the page's,
 * `isRefused` says that no view will come, `isAttacked` that the test itself does what is not allowed. */
export async function withPage(fragment, { before: script, isRefused, isAttacked, ...options }, test) {
  const context = await browser.newContext({
    viewport: { width: 1440, height: 900 }, timezoneId: "Europe/Stockholm", acceptDownloads: true, ...options,
  });
  const page = await context.newPage();
  page.setDefaultTimeout(15000);
  const bad = [];
  page.on("console", (message) => {
    if (["error", "warning"].includes(message.type())) {
      bad.push(`console: ${message.text()}`);
    }
  });
  page.on("pageerror", (error) => bad.push(`error: ${error.stack}`));
  page.on("request", (request) => {
    if (!/^(file|data|blob):/.test(request.url())) {
      bad.push(`request: ${request.url()}`);
    }
  });
  try {
    if (script) {
      await context.addInitScript(script);
    }
    await page.goto(PAGE + fragment);
    await page.waitForSelector(isRefused ? "main [role=alert]" : "footer p");
    await test(page);
    assert.deepEqual(isAttacked ? [] : bad, []);
  } finally {
    await context.close();
  }
}

/** The violations that axe-core finds, in short. Of a long table the first rows stand for all. */
export async function violations(page) {
  await page.evaluate(axe);
  return page.evaluate(async () => {
    const { violations: found } = await globalThis.axe.run(
      { include: document, exclude: "tbody tr:nth-child(n + 12)" }, { preload: false });
    return found.map(({ id, nodes }) => `${id}: ${nodes.map(({ target, failureSummary }) => `${target} ${failureSummary}`).join("; ")}`);
  });
}

/** The cells of a table, row by row, the head first. */
export async function tableOf(page, selector = "table") {
  return page.locator(selector).first().evaluate((table) =>
    [...table.rows].map((row) => [...row.cells].map((cell) => cell.textContent.trim())));
}

/** A chart's view at every width, light at one of them: nothing sticks out, and axe-core is content on a
 * phone with all settings open. */
export async function fitsEveryWidth(fragment, lightAt, settled, settings) {
  for (const width of WIDTHS) {
    const colorScheme = width === lightAt ? "light" : "dark";
    await withPage(fragment, { viewport: { width, height: 900 }, colorScheme }, async (page) => {
      await settled(page);
      assert.equal(await page.evaluate(() => document.documentElement.scrollWidth - innerWidth), 0);
      if (width === 390) {
        await page.getByText(settings).click();
        assert.deepEqual(await violations(page), []);
      }
    });
  }
}

/** A view at every width, in light and dark: nothing sticks out, and axe-core is content at the widest
 * and the narrowest. */
export async function lookAtEveryWidth(fragment) {
  for (const colorScheme of ["light", "dark"]) {
    await withPage(fragment, { colorScheme }, async (page) => {
      for (const width of WIDTHS) {
        await page.setViewportSize({ width, height: 900 });
        await page.waitForTimeout(100);
        const [wide, room] = await page.evaluate(() => [document.documentElement.scrollWidth, innerWidth]);
        assert.ok(wide <= room, `${wide} px in ${room}`);
        if ((colorScheme === "light" && width === 1440) || (colorScheme === "dark" && width === 390)) {
          assert.deepEqual(await violations(page), []);
        }
      }
    });
  }
}
