// The page as a kiosk: it starts where it stands, no link leads away, and the next visitor finds the start view.

import assert from "node:assert/strict";
import test from "node:test";

import { launchBrowser, servePage, Tab } from "./browser.mjs";

test("a kiosk", { timeout: 180_000 }, async (t) => {
  const server = await servePage();
  const browser = await launchBrowser();
  t.after(() => Promise.all([browser.close(), server.stop()]));
  const tab = await Tab.open(browser, { width: 1080, height: 1920, isTouch: true });
  const { page } = tab;
  const origin = new URL(server.endpoint).origin;
  const address = `${origin}/?kiosk=1&here=paper-kestrel&idle=30&link=https://maps.example/`;
  const parameter = (name) => page.evaluate((each) => new URLSearchParams(location.search).get(each), name);
  // The test lets the seconds pass, so that nothing depends on the speed of the machine.
  await page.evaluateOnNewDocument(() => {
    const start = setInterval;
    globalThis.setInterval = (run, pause) => (pause === 1000 ? ((globalThis.second = run), 0) : start(run, pause));
  });
  const pass = (seconds) =>
    page.evaluate((count) => {
      for (let i = 0; i < count; ++i) globalThis.second();
    }, seconds);
  await page.goto(address);
  await page.waitForSelector(".tile");
  await page.waitForSelector(".map canvas");

  await t.test("targets are large, in every language", async () => {
    const small = await page.$$eval("button, .row, input", (all) =>
      all.filter((each) => each.checkVisibility() && each.getBoundingClientRect().height < 44).map((each) => each.outerHTML),
    );
    assert.deepEqual(small, []);
    assert.deepEqual(await tab.violations(), []);
    await tab.picture("kiosk-start");
    await page.click("[data-language=ar]");
    await page.waitForSelector("html[dir=rtl] .tile");
    await tab.picture("kiosk-arabic");
  });

  await t.test("nothing leads away", async () => {
    await page.evaluate(() => {
      const link = document.createElement("a");
      Object.assign(link, { href: "https://example.org/shop", target: "_blank", id: "away", textContent: "Shop" });
      document.querySelector(".panel-content").append(link);
      link.click();
    });
    await tab.waitForText("dialog .link", "https://example.org/shop");
    assert.ok(await page.$("dialog .qr"));
    const isPrevented = await page.evaluate(() => {
      const event = new MouseEvent("contextmenu", { bubbles: true, cancelable: true });
      return !document.body.dispatchEvent(event) && window.open("https://example.org/") === null;
    });
    assert.ok(isPrevented);
    assert.equal((await browser.pages()).filter((each) => /example\.org/.test(each.url())).length, 0);
  });

  await t.test("after a time, the start view comes back in the first language", async () => {
    await pass(19);
    assert.equal(await page.$(".notice button"), null);
    await pass(1);
    await page.waitForSelector(".notice button");
    await pass(10);
    await page.waitForSelector("html[dir=ltr] .tile");
    await page.waitForFunction(() => !document.querySelector("dialog"));
    assert.equal(await page.$(".notice button"), null);
  });

  await t.test("a route starts here, and is taken away as a code", async () => {
    await page.type("#search input, input.search-input", "popcorn");
    await tab.clickText(".row", "Popcorn Nebula");
    await tab.clickText("[data-key=to]", "");
    await page.waitForSelector(".step");
    assert.equal(await parameter("from"), "paper-kestrel");
    assert.match((await tab.texts(".is-from"))[0], /You are here/);
    const label = await page.$eval(".code .qr", (picture) => picture.getAttribute("aria-label"));
    assert.match(label, /https:\/\/maps\.example\/\?venue=astrolabe-court&from=paper-kestrel&to=popcorn-nebula$/);
    assert.equal(await page.evaluate(() => history.length), 2);
    await tab.picture("kiosk-route");
  });

  await t.test("a visitor who stays keeps the route", async () => {
    await pass(25);
    await (await page.waitForSelector(".notice button")).click();
    await pass(19);
    assert.equal(await page.$(".notice button"), null);
    assert.equal(await parameter("to"), "popcorn-nebula");
    await pass(11);
    await page.waitForFunction(() => !new URLSearchParams(location.search).has("to"));
    await page.waitForSelector(".tile");
  });
  await tab.close();
});
