// The page around the views: it opens from a file, says what it is, follows links, asks nobody.

import assert from "node:assert/strict";
import { readFileSync, statSync } from "node:fs";
import { test } from "node:test";
import { LIMIT, useBrowser, violations, withPage } from "./harness.mjs";

useBrowser();
const file = new URL("../zenithor-almanac.html", import.meta.url);

test("OneFileBelow2500kB", () => {
  assert.ok(statSync(file).size < 2.5e6);
  const text = readFileSync(file, "utf8");
  assert.match(text, /default-src 'none'; script-src 'sha256-[^']*' 'wasm-unsafe-eval'; style-src 'sha256-[^']*'; img-src data: blob:; connect-src 'none'/);
});

test("EveryViewOpensFromItsLink", LIMIT, async () => {
  for (const [view, title] of [["sky", "Sky"], ["year", "Year"], ["day", "Day"], ["prices", "Prices"]]) {
    await withPage(`#${view}`, {}, async (page) => {
      assert.equal(await page.title(), `${title} – Zenithor almanac`);
      assert.equal(await page.locator("nav a[aria-current]").textContent(), title);
    });
  }
});

test("FirstPaintIsBelowOneSecondAndTheViewFollows", LIMIT, async (t) => {
  const times = [];
  for (let k = 0; k < 3; ++k) {
    await withPage("#sky", {}, async (page) => {
      times.push(await page.evaluate(() => ({
        paint: performance.getEntriesByName("first-contentful-paint")[0].startTime, ready: performance.now(),
      })));
    });
  }
  const best = (name) => Math.min(...times.map((time) => time[name]));
  t.diagnostic(`first paint ${best("paint").toFixed(0)} ms, view drawn ${best("ready").toFixed(0)} ms`);
  assert.ok(best("paint") < 1000);
});

test("TheFootSaysVersionScaleAndFrame", LIMIT, async () => {
  await withPage("#sky", {}, async (page) => {
    const foot = await page.locator("footer").textContent();
    assert.match(foot, /Zenithor \d+\.\d+\.\d+\. Longitudes are apparent and geocentric, of the true equinox of date/);
    assert.match(foot, /Times are clock time/);
    assert.match(foot, /TradingView Lightweight Charts™, Copyright © 2026 TradingView, Inc\., https:\/\/www\.tradingview\.com\//);
    await page.getByText("About this page").click();
    await page.getByText("Everything here is computed in this file").waitFor();
    await page.getByText("Licences").click();
    assert.match(await page.locator("footer pre").nth(1).textContent(), /Apache License\s+Version 2\.0/);
    assert.deepEqual(await violations(page), []);
  });
});

test("LinksAreFollowedKeptAndGoneBackTo", LIMIT, async () => {
  await withPage("#sky?at=2026-11-21T12:00Z", {}, async (page) => {
    const caption = () => page.locator("caption").first().textContent();
    await page.getByRole("radio", { name: "Europe/Stockholm" }).check();
    assert.match(await caption(), /2026-11-21 13:00 Europe\/Stockholm/);
    await page.waitForFunction(() => location.hash === "#sky?at=2026-11-21T12:00Z&zone=local");
    await page.getByRole("link", { name: "Day" }).click();
    await page.waitForFunction(() => document.title.startsWith("Day"));
    assert.match(await caption(), /in Europe\/Stockholm/);
    await page.goBack();
    await page.waitForFunction(() => document.title.startsWith("Sky"));
    assert.match(await caption(), /2026-11-21 13:00 Europe\/Stockholm/);
    await page.evaluate(() => { location.hash = "#sky?at=1969-07-20T20:17Z"; });
    await page.getByText("Geocentric sky, 1969-07-20 20:17 UTC").first().waitFor();
  });
});

test("ABrokenLinkShowsTheSky", LIMIT, async () => {
  for (const link of ["#sky?at=never&centre=<b>", "#tomorrow", "#%E0%A4%A"]) {
    await withPage(link, {}, async (page) => assert.match(await page.title(), /^Sky/));
  }
});

test("ColoursFollowTheSystemOrTheChoice", LIMIT, async () => {
  const background = (page) => page.evaluate(() => getComputedStyle(document.documentElement).backgroundColor);
  await withPage("#sky", { colorScheme: "dark" }, async (page) => {
    assert.equal(await background(page), "rgb(20, 23, 28)");
    await page.getByRole("radio", { name: "Light" }).check();
    assert.equal(await background(page), "rgb(255, 255, 255)");
    assert.equal(await page.locator("figure svg circle").first().getAttribute("fill"), "#f6f7f9");
    await page.waitForFunction(() => location.hash === "#sky?theme=light");
  });
});

test("OnPaperThereAreNoControls", LIMIT, async () => {
  await withPage("#sky?theme=dark", {}, async (page) => {
    await page.emulateMedia({ media: "print" });
    for (const selector of ["nav", ".settings", ".controls", ".buttons"]) {
      assert.equal(await page.locator(selector).first().isVisible(), false, selector);
    }
    assert.equal(await page.evaluate(() => getComputedStyle(document.querySelector("td")).color), "rgb(0, 0, 0)");
    await page.waitForSelector('figure svg circle[fill="#ffffff"]');
  });
});

test("ABrowserThatIsTooOldIsTold", LIMIT, async () => {
  await withPage("#sky", { before: "delete globalThis.DecompressionStream;", isRefused: true }, async (page) => {
    assert.match(await page.locator("main").textContent(), /This browser cannot run the library .*Chrome from 105/);
  });
});

test("ThePolicyForbidsConnectionsAndForeignScripts", LIMIT, async () => {
  await withPage("#sky", { isAttacked: true }, async (page) => {
    const reached = [];
    await page.context().route(/^https?:/, (route) => { reached.push(route.request().url()); return route.abort(); });
    const refused = await page.evaluate(async () => {
      const found = new Set();
      document.addEventListener("securitypolicyviolation", ({ effectiveDirective }) => found.add(effectiveDirective));
      const address = "http://127.0.0.1:9/";
      await fetch(address).catch(() => {});
      navigator.sendBeacon(address, "prices");
      try { new WebSocket("ws://127.0.0.1:9/"); } catch { /* forbidden at once */ }
      const add = (tag, values) => document.body.append(Object.assign(document.createElement(tag), values));
      add("img", { src: `${address}picture` });
      add("script", { textContent: "globalThis.isBroken = true;" });
      add("script", { src: `${address}script.js` });
      add("iframe", { src: address });
      add("link", { rel: "stylesheet", href: `${address}style.css` });
      const form = Object.assign(document.createElement("form"), { action: address });
      document.body.append(form);
      form.submit();
      document.body.setAttribute("style", "color: red");
      await new Promise((done) => setTimeout(done, 300));
      return { directives: [...found].sort(), isBroken: "isBroken" in globalThis };
    });
    assert.deepEqual(refused, {
      directives: [
        "connect-src", "form-action", "frame-src", "img-src", "script-src-elem", "style-src-attr", "style-src-elem",
      ],
      isBroken: false,
    });
    assert.deepEqual(reached, []);
  });
});
