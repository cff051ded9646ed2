// Sky in the browser: its numbers are the library's, its controls work with the keyboard alone.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { position, unixTime } from "../modules/src/index.mjs";
import { unpack } from "../modules/src/unpack.mjs";
import { readGolden } from "./golden.mjs";
import { LIMIT, lookAtEveryWidth, tableOf, useBrowser, withPage } from "./harness.mjs";

useBrowser();
const KM_PER_AU = 149597870.7;
const AT = "#sky?at=2026-11-21T12:00Z";

test("TheTableHoldsTheLibrarysNumbers", LIMIT, async () => {
  await unpack();
  const fields = ["apparent_longitude", "longitude_motion", "apparent_latitude", "declination", "right_ascension", "geo_distance", "elongation"];
  await withPage(AT, {}, async (page) => {
    const [head, ...rows] = await tableOf(page);
    assert.deepEqual(head, [
      "Body", "Longitude deg", "Zodiac", "Motion deg/day", "Latitude deg", "Declination deg", "Right asc. h", "Distance au",
      "Elongation deg",
    ]);
    assert.equal(rows.length, 10);
    for (const [body, longitude, , ...rest] of rows) {
      const name = body.split(" ")[1].toLowerCase();
      const values = position([name], ["2026-11-21T12:00Z"], fields);
      values[5] /= name === "moon" ? KM_PER_AU : 1;
      const digits = [4, 4, 4, 4, 4, 5, 2];
      assert.deepEqual([longitude, ...rest], [...values].map((value, k) => value.toFixed(digits[k])), name);
    }
    assert.equal(rows[6][2], "08 Ari 16' R");
  });
});

test("TheTableHoldsTheNativeLibrarysAnswers", LIMIT, async () => {
  await unpack();
  const cases = readGolden("positions.tsv").filter(({ cell }) => cell.JulianDay === "2451545");
  const time = new Date(unixTime(2451545));
  const link = `at=${time.toISOString().slice(0, 19)}Z`;
  const drift = 1 / 86400; // a link holds whole seconds
  const read = async (page) => {
    const [head, ...rows] = await tableOf(page);
    return Object.fromEntries(rows.map((row) => [row[0].split(" ")[1], Object.fromEntries(row.map((text, k) => [head[k].split(" ")[0], Number(text)]))]));
  };
  let compared = 0;
  const near = (shown, expected, half, motion, what) => {
    if (expected !== "-") {
      assert.ok(Math.abs(shown - Number(expected)) <= half + motion * drift, `${what}: ${shown}, not ${expected}`);
      ++compared;
    }
  };
  await withPage(`#sky?${link}`, {}, async (page) => {
    const geocentric = await read(page);
    await page.getByRole("radio", { name: "Sun" }).check();
    const heliocentric = await read(page);
    for (const { cell } of cases) {
      const name = cell.Body;
      const [geo, helio] = [geocentric[name], heliocentric[name]];
      if (geo) {
        near(geo.Declination, cell.Declination, 0.51e-4, 8, `${name} declination`);
        near(geo.Right, cell.RightAscension, 0.51e-4, 1.2, `${name} right ascension`);
      }
      if (helio) {
        near(helio.Longitude, cell.HelioLongitude, 0.51e-4, 7, `${name} longitude`);
        near(helio.Latitude, cell.HelioLatitude, 0.51e-4, 1, `${name} latitude`);
        near(helio.Distance, cell.HelioDistance, 0.51e-5, 0.02, `${name} distance`);
      }
    }
  });
  assert.ok(compared >= 40, String(compared));
});

test("KeysAloneStepSortAndTurnTheView", LIMIT, async () => {
  await withPage(AT, {}, async (page) => {
    const caption = () => page.locator("caption").first().textContent();
    const focused = () => page.evaluate(() => document.activeElement.getAttribute("aria-label") ?? document.activeElement.textContent);
    const tabTo = async (words) => {
      for (let k = 0; k < 40; ++k) {
        await page.keyboard.press("Tab");
        if ((await focused()).includes(words)) {
          return;
        }
      }
      assert.fail(`the keyboard does not reach "${words}"`);
    };
    await page.keyboard.press("Tab");
    assert.equal(await focused(), "To the view");
    await page.keyboard.press("Enter");
    assert.equal(await page.evaluate(() => document.activeElement.id), "view");
    await tabTo("Forward");
    await page.keyboard.press("Enter");
    assert.match(await caption(), /2026-11-22 12:00 UTC/);
    await page.keyboard.press("Tab");
    await page.keyboard.press("ArrowRight");
    await page.keyboard.press("Tab");
    await page.keyboard.press("ArrowRight");
    assert.match(await caption(), /Heliocentric sky/);
    await tabTo("Wheel");
    await page.keyboard.press("ArrowLeft");
    assert.match(await caption(), /2026-10-22 12:00 UTC/);
    await tabTo("Distance");
    await page.keyboard.press("Enter");
    await page.keyboard.press("Enter");
    assert.equal((await tableOf(page))[1][0].split(" ")[1], "Pluto");
    await page.waitForFunction(() => location.hash === "#sky?at=2026-10-22T12:00Z&centre=helio&step=month");
  });
});

test("StepsByMonthsKeepTheDayAndTheClock", LIMIT, async () => {
  await withPage("#sky?at=2026-01-31T10:00Z&step=month&zone=local", {}, async (page) => {
    const times = [];
    for (let k = 0; k < 3; ++k) {
      await page.getByRole("button", { name: "Forward" }).click();
      times.push(/(\d{4}-\S+ \S+ Europe\/Stockholm)/.exec(await page.locator("caption").first().textContent())[1]);
    }
    assert.deepEqual(times, ["2026-02-28", "2026-03-28", "2026-04-28"].map((day) => `${day} 11:00 Europe/Stockholm`));
  });
});

test("PlayGoesOnUntilItIsStopped", LIMIT, async () => {
  await withPage(AT, {}, async (page) => {
    await page.getByRole("button", { name: "Play" }).click();
    await page.waitForFunction(() => /2026-11-2[5-9]/.test(document.querySelector("caption").textContent));
    await page.getByRole("button", { name: "Pause" }).click();
    const caption = await page.locator("caption").first().textContent();
    await page.waitForTimeout(400);
    assert.equal(await page.locator("caption").first().textContent(), caption);
  });
});

test("PicturesAndTablesAreSaved", LIMIT, async () => {
  await withPage(AT, {}, async (page) => {
    const saved = async (name) => {
      const [download] = await Promise.all([page.waitForEvent("download"), page.getByRole("button", { name }).first().click()]);
      return { name: download.suggestedFilename(), bytes: readFileSync(await download.path()) };
    };
    const picture = await saved("Picture as SVG");
    assert.equal(picture.name, "zenithor-sky-2026-11-21.svg");
    assert.match(picture.bytes.toString(), /^<svg [^]*Geocentric sky, 2026-11-21 12:00 UTC[^]*<\/svg>$/);
    const points = await saved("Picture as PNG");
    assert.equal(points.bytes.subarray(1, 4).toString(), "PNG");
    assert.ok(points.bytes.length > 20000);
    const table = await saved("Table as CSV");
    assert.match(table.bytes.toString(), /^\uFEFFBody,Longitude \[deg\],Zodiac,[^]*\r\nSun,239\.1844,29 Sco 11',1\.0094/);
  });
});

test("ACopiedTableIsNumbersBetweenTabs", LIMIT, async () => {
  await withPage(AT, { permissions: ["clipboard-read", "clipboard-write"] }, async (page) => {
    await page.evaluate(() => getSelection().selectAllChildren(document.querySelector("tbody")));
    await page.keyboard.press("Control+C");
    const text = await page.evaluate(() => navigator.clipboard.readText());
    const rows = text.trim().split("\n").map((row) => row.split("\t"));
    assert.equal(rows.length, 10);
    assert.deepEqual(rows[0].slice(1, 4), ["239.1844", "29 Sco 11'", "1.0094"]);
    assert.ok(rows.every((row) => row.length === 9 && [1, 3, 4, 5, 6, 7, 8].every((k) => Number.isFinite(Number(row[k])))));
  });
});

test("EveryWidthAndColourIsInOrder", LIMIT, () => lookAtEveryWidth(AT));
