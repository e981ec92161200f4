// The page on screens of many sizes: nothing is cut off, too small or outside, and no state violates WCAG 2.2 AA.

import assert from "node:assert/strict";
import { test } from "node:test";

import { accessible, mapIsShown, openVenue, shareBrowser } from "./pages.mjs";

shareBrowser();

const screens = [
  ["phone", { width: 390, height: 844, density: 2, isTouch: true }],
  ["small-phone", { width: 320, height: 568, isTouch: true }, "?text=1.5"],
  ["tablet", { width: 768, height: 1024, isTouch: true }],
  ["desktop", { width: 1280, height: 800 }],
  ["low", { width: 844, height: 390, isTouch: true }],
  ["kiosk", { width: 1080, height: 1920, isTouch: true }],
  ["wall", { width: 3840, height: 2160 }],
  ["dark", { width: 1280, height: 800, media: { "prefers-color-scheme": "dark" } }],
  ["contrast", { width: 390, height: 844, media: { "prefers-color-scheme": "dark" } }, "?contrast"],
  ["large-text", { width: 1280, height: 800 }, "?text=2"],
];

for (const [name, size, start = "?"] of screens) {
  test(`on a screen: ${name}`, async (t) => {
    const tab = await openVenue(t, `${start}&from=paper-kestrel&to=popcorn-nebula`, size);
    const { page } = tab;
    await page.waitForSelector(".step");
    assert.ok(await page.$eval(".bar [aria-label=Settings]", (button) => button.checkVisibility()));
    await mapIsShown(tab);
    await new Promise((resolve) => setTimeout(resolve, 500)); // names appear
    await tab.picture(`page-${name}-route`);
    const faults = () =>
      page.evaluate(() => {
        const found = [];
        if (document.documentElement.scrollWidth > innerWidth) found.push("the page is wider than the screen");
        for (const element of document.querySelectorAll("button, input, select, summary, a[href]")) {
          const { left, right, width, height } = element.getBoundingClientRect();
          if (width === 0 || element.matches(".skip, .choice input")) continue;
          const label = element.getAttribute("aria-label") ?? element.textContent;
          if (left < -1 || right > innerWidth + 1) found.push(`${label} is outside`);
          if (width < 24 || height < 24) found.push(`${label} is too small`);
          if (element.scrollWidth > element.clientWidth + 1) found.push(`${label} is cut off`);
        }
        return found;
      });
    assert.deepEqual(await faults(), []);
    await accessible(tab, "route");
    await tab.clickText("[data-key=end]", "");
    await page.waitForSelector(".tile");
    await tab.picture(`page-${name}-start`);
    assert.deepEqual(await faults(), []);
    await accessible(tab, "start");
  });
}

test("a phone is turned", async (t) => {
  const tab = await openVenue(t, "?from=paper-kestrel&to=popcorn-nebula", { width: 390, height: 844, isTouch: true });
  const { page } = tab;
  await mapIsShown(tab);
  await page.waitForSelector(".floor.is-on-route");
  await page.setViewport({ width: 844, height: 390, isMobile: true, hasTouch: true });
  await page.waitForFunction(() => {
    const [floors, shown] = [".floors", ".floor[aria-pressed=true]"].map((each) => document.querySelector(each).getBoundingClientRect());
    return shown.top >= floors.top - 1 && shown.bottom <= floors.bottom + 1;
  });
});

test("the sheet of a small screen", async (t) => {
  const tab = await openVenue(t, "", { width: 390, height: 844, isTouch: true });
  const { page } = tab;
  await tab.waitForText(".tile", "Toilets");
  const height = async () => (await (await page.$(".panel")).boundingBox()).height;
  const half = await height();
  await page.focus(".handle");
  await page.keyboard.press("ArrowUp");
  await page.waitForFunction((least) => document.querySelector(".panel").offsetHeight > least, {}, half);
  await page.keyboard.press("Home");
  await page.waitForFunction((most) => document.querySelector(".panel").offsetHeight < most, {}, half / 2);
  const handle = await (await page.$(".handle")).boundingBox();
  const x = handle.x + handle.width / 2;
  await page.mouse.move(x, handle.y + 8);
  await page.mouse.down();
  await page.mouse.move(x, 420, { steps: 5 });
  await page.mouse.up();
  await page.waitForSelector(".panel[data-sheet=half]");
});
