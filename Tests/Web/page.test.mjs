// The page that the server hands out, used as visitors use it: mouse, touch, keyboard, five languages, many screens.

import assert from "node:assert/strict";
import { createServer } from "node:http";
import { after, before, test } from "node:test";

import { launchBrowser, servePage, Tab } from "./browser.mjs";

let browser;
let server;
let home;
before(async () => {
  browser = await launchBrowser();
  server = await servePage();
  home = new URL("/", server.endpoint).href;
});
after(async () => {
  await browser?.close();
  server?.stop();
});

/** Opens the page, in a tab that the end of the test checks and closes. */
async function open(t, query = "", options = {}) {
  const tab = await Tab.open(browser, options);
  t.after(() => tab.close());
  await tab.page.goto(new URL(query, home).href);
  return tab;
}

/** Opens the page and waits for the panel of a venue. */
async function openVenue(t, query, options) {
  const tab = await open(t, query, options);
  await tab.page.waitForSelector("[data-view=map] .panel-content > *");
  return tab;
}

const accessible = async (tab, state) => assert.deepEqual(await tab.violations(), [], state);
const query = (tab) => Object.fromEntries(new URL(tab.page.url()).searchParams);

/** Waits until the address has a parameter with a value; null if it has none. */
const waitForAddress = (tab, name, value) =>
  tab.page.waitForFunction((n, v) => new URL(location.href).searchParams.get(n) === v, {}, name, value);

test("a visitor finds a place and a route to it", async (t) => {
  const tab = await openVenue(t, "");
  const { page } = tab;
  assert.equal(await page.title(), "Astrolabe Court");
  await tab.waitForText(".tile", "Toilets");
  assert.ok((await tab.texts(".tile")).includes("Shops68"));
  assert.ok((await page.$$(".floor")).length === 5);
  await accessible(tab, "start");

  await tab.clickText(".tile", "Toilets");
  await tab.waitForText(".back-line", "Toilets");
  assert.equal((await tab.texts(".row")).length, 5);
  await accessible(tab, "places of a kind");
  await tab.clickText(".back-line button", "");
  await tab.clickText(".tile", "All places");
  await page.waitForFunction(() => document.querySelectorAll(".row").length === 174);
  const names = await tab.texts(".row-name");
  assert.ok(names.indexOf("Toilets, first floor") < names.indexOf("Toilets, second floor"));

  await page.type("#search", "kestrl");
  await tab.waitForText("[role=option]", "The Paper Kestrel");
  assert.equal(await page.$eval("#search", (input) => input.getAttribute("aria-activedescendant")), "result-0");
  await accessible(tab, "results");
  await tab.clickText("[role=option]", "The Paper Kestrel");
  await tab.waitForText(".card-texts h2", "The Paper Kestrel");
  assert.match((await tab.texts(".state")).join(), /Open|Closed/);
  assert.equal(query(tab).place, "paper-kestrel");
  await tab.clickText(".week summary", "");
  assert.equal((await page.$$(".week tr")).length, 7);
  await accessible(tab, "card");

  await tab.clickText(".buttons button", "From here");
  await page.waitForFunction(() => document.activeElement.id === "search");
  await page.keyboard.type("nebula");
  await tab.waitForText("[role=option]", "Popcorn Nebula");
  await page.keyboard.press("Enter");
  await tab.waitForText(".step", "Northeast stairs");
  assert.match((await tab.texts(".summary-length")).join(), /^150\s+m, 2\s+min$/);
  assert.equal((await page.$$(".floor.is-on-route")).length, 2);
  await tab.waitForText("[role=status]", "Route: 150");
  await accessible(tab, "route");

  await tab.clickText(".choice label", "Step-free");
  await tab.waitForText(".step", "North elevators");
  assert.equal(query(tab).profile, "step-free");
  await tab.clickText(".summary button", "Start");
  await tab.waitForText(".walk-number", "Step 1 of");
  await tab.clickText(".walk button", "Next step");
  await tab.waitForText(".walk-number", "Step 2 of");
  await accessible(tab, "walk");
  await tab.clickText(".walk button", "All steps");

  await page.goBack();
  await waitForAddress(tab, "to", null);
  await page.goForward();
  await tab.waitForText(".step", "North elevators");
});

test("stops, nearest places and the map", async (t) => {
  const tab = await openVenue(t, "?from=paper-kestrel&to=popcorn-nebula&via=cash-g&via=quiet-room");
  const { page } = tab;
  await page.waitForFunction(() => document.querySelectorAll(".stop").length === 4);
  await tab.clickText("[data-key=remove-0]", "");
  await page.waitForFunction(() => document.querySelectorAll(".stop").length === 3);
  await tab.clickText("[data-key=swap]", "");
  await waitForAddress(tab, "from", "popcorn-nebula");
  await tab.clickText("[data-key=end]", "");
  await tab.clickText(".tile", "Toilet");
  await tab.waitForText(".hint", "Tap a place or search for one");

  await page.waitForSelector(".map canvas");
  await page.waitForFunction(() => document.querySelector(".veil").hidden);
  // The last route began on the second floor.
  assert.deepEqual(await tab.texts(".floor[aria-pressed=true]"), ["2"]);
  await tab.clickText(".floor", "G");
  await page.waitForFunction(() => document.querySelector(".floor[aria-pressed=true]")?.textContent === "G");
  await waitForAddress(tab, "floor", await page.$eval(".floor[aria-pressed=true]", (button) => button.dataset.key));
  await page.focus(".map canvas");
  await page.keyboard.press("PageDown");
  await page.waitForFunction(() => document.querySelector(".floor[aria-pressed=true]")?.textContent === "B1");
  await tab.clickText("[aria-label='All floors']", "");
  await page.waitForSelector("[aria-label='All floors'][aria-pressed=true]");
  await accessible(tab, "map");
});

test("everything by keyboard", async (t) => {
  const tab = await openVenue(t);
  const { page } = tab;
  await tab.waitForText(".tile", "Toilets");
  const press = async (...keys) => {
    for (const key of keys) await page.keyboard.press(key);
  };
  const focused = () => page.evaluate(() => document.activeElement.textContent.trim() || document.activeElement.id);
  const tabTo = async (text) => {
    for (let i = 0; i < 60; ++i) {
      if ((await focused()).startsWith(text)) return;
      await press("Tab");
    }
    assert.fail(`Tab does not reach "${text}"`);
  };
  await press("Tab");
  assert.equal(await focused(), "Skip to the search");
  await press("Enter");
  await press("/");
  await page.waitForFunction(() => document.activeElement.id === "search");
  await page.keyboard.type("toilets");
  await tab.waitForText("[role=option]", "Toilets, basement");
  await press("ArrowDown", "ArrowDown", "Enter");
  await page.waitForSelector(".card-texts h2");
  assert.match(await focused(), /^Toilets, /);
  await tabTo("To here");
  await press("Enter");
  await page.waitForFunction(() => document.activeElement.id === "search");
  await press("Escape");
  await page.waitForSelector(".stop");
  await tabTo("Choose a start");
  await press("Enter");
  await page.waitForFunction(() => document.activeElement.id === "search");
  await page.keyboard.type("quiet room");
  await tab.waitForText("[role=option]", "Quiet");
  await press("Enter");
  await page.waitForSelector(".step");
  await tabTo("Start");
  await press("Enter");
  await page.waitForSelector(".walk");
  assert.match(await focused(), /^Step 1/);
  await press("Escape");
  await page.waitForSelector(".steps");
  await press("F1");
  await page.waitForSelector("dialog[open] .help");
  await accessible(tab, "help");
  await press("Escape");
  await page.waitForFunction(() => !document.querySelector("dialog"));
});

test("languages", async (t) => {
  const tab = await openVenue(t, "?from=paper-kestrel&to=popcorn-nebula", { language: "de-CH" });
  const { page } = tab;
  await tab.waitForText(".step", "Nehmen Sie die Treppe");
  for (const [language, word] of [["fr", "escalier"], ["ja", "階段"], ["ar", "الدرج"], ["en", "stairs"]]) {
    await tab.clickText(".bar button:nth-last-of-type(2)", "");
    await page.waitForSelector("dialog select");
    if (language === "fr") await accessible(tab, "settings");
    await page.select("dialog select", language);
    await tab.waitForText(".step", word);
    assert.equal(await page.evaluate(() => document.documentElement.lang), language);
    if (language !== "ar") continue;
    assert.equal(await page.evaluate(() => document.documentElement.dir), "rtl");
    const [panel, floors] = await Promise.all([".panel", ".floors"].map(async (each) => (await page.$(each)).boundingBox()));
    assert.ok(panel.x > 640 && floors.x < 640, "mirrored");
    await accessible(tab, "Arabic");
    await tab.picture("page-arabic");
  }
});

const screens = [
  ["phone", { width: 390, height: 844, density: 2, isTouch: true }],
  ["small-phone", { width: 320, height: 568, isTouch: true }, "?text=1.5"],
  ["tablet", { width: 768, height: 1024, isTouch: true }],
  ["desktop", { width: 1280, height: 800 }],
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
    await page.waitForFunction(() => document.querySelector(".veil").hidden && document.querySelector(".map canvas"));
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

/** A server that answers every request in its own way, for pages of other origins. */
async function strangeServer(t, answer) {
  const strange = createServer((request, response) => {
    response.setHeader("Access-Control-Allow-Origin", "*");
    response.setHeader("Access-Control-Allow-Headers", "*, authorization");
    response.setHeader("Access-Control-Expose-Headers", "Link");
    if (request.method === "OPTIONS") return response.writeHead(204).end();
    return answer(request, response);
  });
  await new Promise((listening) => strange.listen(0, "127.0.0.1", listening));
  t.after(() => (strange.closeAllConnections(), strange.close()));
  return `?endpoint=http://127.0.0.1:${strange.address().port}/1/`;
}

test("failures", async (t) => {
  await t.test("an unknown venue", async (t) => {
    const tab = await open(t, "?venue=nowhere");
    await tab.waitForText(".is-problem", "No venue “nowhere”");
    await accessible(tab, "failure");
    await tab.clickText(".is-problem button", "All venues");
    await tab.clickText(".row", "Astrolabe Court");
    await tab.waitForText(".bar-title", "Astrolabe Court");
  });
  await t.test("garbage", async (t) => {
    const tab = await open(t, await strangeServer(t, (_, response) => response.end("<p>Welcome!")));
    await tab.waitForText(".is-problem", "The list of venues cannot be loaded");
    await tab.waitForText(".is-problem button", "Try again");
  });
  await t.test("a server that does not answer at once", async (t) => {
    let release;
    const released = new Promise((resolve) => (release = resolve));
    const tab = await open(
      t,
      await strangeServer(t, async (_, response) => {
        await released;
        response.setHeader("Content-Type", "application/json");
        response.end('[{"id":"1","slug":"a","name":"First"},{"id":"2","slug":"b","name":"Second"}]');
      }),
    );
    await tab.waitForText(".message", "Loading the list of venues");
    release();
    await tab.waitForText(".row", "Second");
    await accessible(tab, "list of venues");
    await tab.picture("page-venues");
  });
  await t.test("credentials", async (t) => {
    const guarded = await servePage("--username", "guest", "--password", "secret");
    t.after(guarded.stop);
    const tab = await open(t, new URL("/", guarded.endpoint).href);
    tab.expect(/status of 401/);
    await tab.waitForText(".is-problem", "The server rejected the credentials");
    await accessible(tab, "credentials");
    await tab.page.type("[name=username]", "guest");
    await tab.page.type("[name=password]", "secret");
    await tab.page.keyboard.press("Enter");
    await tab.waitForText(".bar-title", "Astrolabe Court");
    await tab.waitForText(".tile", "Toilets");
  });
});
