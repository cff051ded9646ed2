// Day in the browser: times are the library's, places are typed or asked for, the poles are right.

import assert from "node:assert/strict";
import { test } from "node:test";
import { rise } from "../modules/src/index.mjs";
import { unpack } from "../modules/src/unpack.mjs";
import { LIMIT, lookAtEveryWidth, tableOf, useBrowser, violations, withPage } from "./harness.mjs";

useBrowser();
const STOCKHOLM = "#day?date=2026-11-21&latitude=59.33&longitude=18.07";
const WORDS = { always_up: "always up", never_up: "never up", none: "not this day" };

/** Hour and minute, to the nearest minute, in a zone. */
function clock(time, zone) {
  return new Date(time + zone * 3600e3 + 30e3).toISOString().slice(11, 16);
}

test("TheTableHoldsTheLibrarysTimes", LIMIT, async () => {
  await unpack();
  for (const [link, zone, latitude, longitude] of [
    [STOCKHOLM, 0, 59.33, 18.07], [`${STOCKHOLM}&zone=local`, 1, 59.33, 18.07],
    ["#day?date=2026-06-21&latitude=69.65&longitude=18.96&zone=local", 2, 69.65, 18.96],
  ]) {
    await withPage(link, {}, async (page) => {
      const day = /date=([^&]*)/.exec(link)[1];
      const [head, ...rows] = await tableOf(page);
      assert.deepEqual(head, ["Body", "Rise", "Transit", "Set"]);
      assert.equal(rows.length, 10);
      for (const [body, ...times] of rows) {
        const found = rise(body.split(" ")[1].toLowerCase(), day, latitude, longitude, { zone });
        const expected = found.status.map((status, k) => WORDS[status] ?? clock(found.time[k], zone));
        assert.deepEqual(times, expected, `${body} ${link}`);
      }
    });
  }
});

test("TheYearHasARowForEachDay", LIMIT, async () => {
  await unpack();
  await withPage("#day?date=2024-06-21&latitude=69.65&longitude=18.96", {}, async (page) => {
    const [, ...rows] = await tableOf(page, ".view-day > .table-block table");
    assert.equal(rows.length, 366);
    assert.deepEqual(rows[0], ["2024-01-01", "never up", "never up", "never up", "0.00"]);
    const days = rows.map(([day]) => day);
    const found = rise("sun", days, 69.65, 18.96);
    rows.forEach(([, ...times], k) => {
      const expected = [0, 1, 2].map((which) => WORDS[found.status[3 * k + which]] ?? clock(found.time[3 * k + which], 0));
      assert.deepEqual(times.slice(0, 3).map((time) => time.replace("24:00", "00:00")), expected, days[k]);
    });
    assert.match(await page.locator(".day-readout").textContent(), /2024-06-21: the Sun is up all day/);
    assert.match(await page.locator(".day-year").textContent(), /up all day from 2024-05-1\d to 2024-07-2\d/);
  });
});

test("APlaceIsTypedOrRefusedWithASentence", LIMIT, async () => {
  await withPage(STOCKHOLM, {}, async (page) => {
    const place = page.getByLabel("Place: a city, or latitude, longitude");
    const caption = () => page.locator("caption").first().textContent();
    assert.equal(await place.inputValue(), "Stockholm");
    await place.fill("tokyo");
    await place.press("Enter");
    assert.match(await caption(), /Tokyo \(35.68 N, 139.69 E\), 2026-11-21, in UTC/);
    await place.fill("95, 10");
    await place.press("Enter");
    assert.match(await page.locator("#place-problem").textContent(), /"95, 10" is not latitude and longitude\. Write 59\.33, 18\.07/);
    assert.equal(await place.getAttribute("aria-invalid"), "true");
    assert.match(await caption(), /Tokyo/);
    assert.deepEqual(await violations(page), []);
    await place.fill("33°52'S 151°13'E");
    await place.press("Enter");
    assert.match(await caption(), /33\.8667 S, 151\.2167 E/);
    assert.equal(await page.locator("#place-problem").textContent(), "");
    await page.waitForFunction(() => /latitude=-33\.866667&longitude=151\.216667/.test(location.hash));
  });
});

test("TheBrowsersPlaceIsTakenAfterAskingAndRefusedInWords", LIMIT, async () => {
  const here = { geolocation: { latitude: 48.211, longitude: 16.372 } };
  await withPage(STOCKHOLM, { ...here, permissions: ["geolocation"] }, async (page) => {
    await page.getByRole("button", { name: "Use my place" }).click();
    await page.getByText("Rise, transit and set at Vienna").waitFor();
  });
  await withPage(STOCKHOLM, {}, async (page) => {
    await page.getByRole("button", { name: "Use my place" }).click();
    await page.getByText("The browser was not allowed to tell the place").waitFor();
  });
});

test("ArrowsAndClicksChooseADay", LIMIT, async () => {
  await withPage(STOCKHOLM, {}, async (page) => {
    const readout = page.locator(".day-readout");
    await page.locator(".day-year figure").focus();
    await page.keyboard.press("ArrowRight");
    assert.match(await readout.textContent(), /^2026-11-22: sunrise 06:5\d, transit 10:3\d, sunset 14:\d\d UTC; daylight 7 h \d+ min$/);
    const box = await page.locator(".day-year svg").boundingBox();
    await page.mouse.click(box.x + 48, box.y + 200);
    assert.match(await readout.textContent(), /^2026-01-0[12]/);
    const [download] = await Promise.all([
      page.waitForEvent("download"), page.getByRole("button", { name: "Picture as SVG" }).click()]);
    assert.equal(download.suggestedFilename(), "zenithor-daylight-2026.svg");
  });
});

test("EveryWidthAndColourIsInOrder", LIMIT, () => lookAtEveryWidth(STOCKHOLM));
