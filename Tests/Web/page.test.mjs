// The page that the server hands out, used as visitors use it: mouse, keyboard, five languages.

import assert from "node:assert/strict";
import { test } from "node:test";

import { accessible, mapIsShown, openVenue, query, shareBrowser, waitForAddress } from "./pages.mjs";

shareBrowser();

test("a visitor finds a place and a route to it", async (t) => {
  const tab = await openVenue(t, "");
  const { page } = tab;
  assert.equal(await page.title(), "Astrolabe Court");
  assert.equal(await page.evaluate(() => history.length), 2); // nothing before the only venue
  await tab.waitForText(".tile", "Toilets");
  assert.ok((await tab.texts(".tile")).includes("Shops68"));
  assert.ok((await page.$$(".floor")).length === 5);
  await accessible(tab, "start");

  await page.$$eval(".tile", (all) => all.find((each) => each.textContent.startsWith("Toilets")).focus());
  await page.$eval(".panel-content", (content) => (content.scrollTop = 200));
  await tab.clickText(".tile", "Toilets");
  await tab.waitForText(".back-line", "Toilets");
  assert.equal(await page.$eval(".panel-content", (content) => content.scrollTop), 0);
  assert.equal(await page.evaluate(() => document.activeElement.textContent), "Toilets");
  assert.equal((await tab.texts(".row")).length, 5);
  await accessible(tab, "places of a kind");
  await tab.clickText(".back-line button", "");
  await tab.clickText(".tile", "All places");
  await page.waitForFunction(() => document.querySelectorAll(".row").length === 174);
  const names = await tab.texts(".row-name");
  assert.ok(names.indexOf("Toilets, first floor") < names.indexOf("Toilets, second floor"));
  await tab.clickText(".row", "Toilets, first floor");
  await tab.waitForText(".card-texts h2", "Toilets, first floor");
  await page.keyboard.press("Escape"); // back to the list
  await page.waitForFunction(() => document.activeElement.matches(".row") && /Toilets, first/.test(document.activeElement.textContent));

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
  await page.evaluate(() => dispatchEvent(new Event("beforeprint")));
  await page.waitForSelector(".steps li + li"); // all instructions on paper
  await page.evaluate(() => dispatchEvent(new Event("afterprint")));
  await tab.waitForText(".walk-number", "Step 2 of");
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
  const floorIs = (name) =>
    page.waitForFunction((text) => document.querySelector(".floor[aria-pressed=true]")?.textContent.trim().startsWith(text), {}, name);
  await floorIs("2"); // where the route begins now
  await tab.clickText("[data-key=end]", "");
  await tab.clickText(".tile", "Toilet");
  await tab.waitForText(".hint", "Tap a place or search for one");

  await mapIsShown(tab);
  await tab.clickText(".floor", "G");
  await floorIs("G");
  await waitForAddress(tab, "floor", await page.$eval(".floor[aria-pressed=true]", (button) => button.dataset.key));
  await page.focus(".map canvas");
  await page.keyboard.press("PageDown");
  await floorIs("B1");
  const name = await page.$eval(".floor[aria-pressed=true]", ({ title }) => title);
  await page.waitForFunction((text) => document.querySelector("[role=status]").textContent === text, {}, name);
  assert.equal(await page.$eval(".map canvas", (canvas) => canvas.getAttribute("aria-label")), `Map: ${name}`);
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
  assert.equal(await page.$("[data-searching]"), null); // the focus alone changes nothing
  await page.keyboard.down("Control");
  await press("f");
  await page.keyboard.up("Control");
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
  await tabTo("Previous");
  await press("Tab", "Enter");
  await tab.waitForText(".walk-number", "Step 2");
  assert.match(await focused(), /^Next/);
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
