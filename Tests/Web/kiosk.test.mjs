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
  const address = `${origin}/?kiosk=1&here=paper-kestrel&idle=60&link=https://maps.example/`;
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
    for (const language of ["en", "de", "fr", "ja", "ar"]) {
      await page.click(`[data-language=${language}]`);
      await page.waitForSelector(`html[lang=${language}] .tile`);
      const small = await page.$$eval("button, .row, input", (all) =>
        all.filter((each) => each.checkVisibility() && each.getBoundingClientRect().height < 44).map((each) => each.outerHTML),
      );
      assert.deepEqual(small, [], language);
      assert.deepEqual(await tab.violations(), [], language);
      if (language === "en") await tab.picture("kiosk-start");
    }
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
    await page.waitForSelector("dialog .qr");
    const isPrevented = await page.evaluate(() => {
      const event = new MouseEvent("contextmenu", { bubbles: true, cancelable: true });
      return !document.body.dispatchEvent(event) && window.open("https://example.org/") === null;
    });
    assert.ok(isPrevented);
    assert.equal((await browser.pages()).filter((each) => /example\.org/.test(each.url())).length, 0);
  });

  await t.test("after a time, the start view comes back in the first language", async () => {
    await pass(39);
    assert.equal(await page.$(".notice button"), null);
    await pass(1);
    await page.waitForSelector("dialog .notice button"); // where it can be used
    await pass(20);
    await page.waitForSelector("html[dir=ltr] .tile");
    await page.waitForFunction(() => !document.querySelector("dialog"));
    assert.equal(await page.$(".notice button"), null);
  });

  await t.test("a route starts here, and is taken away as a code", async () => {
    await page.type("#search", "toilet");
    await tab.waitForText("[role=option]", "Nearest");
    await page.click("[data-language=de]");
    await tab.waitForText("[role=option]", "Nächste"); // searched again
    await page.click("[data-language=en]");
    await tab.waitForText("[role=option]", "Nearest");
    await page.click(".search button");
    await page.type("#search", "popcorn");
    await tab.clickText(".row", "Popcorn Nebula");
    await tab.clickText("[data-key=to]", "");
    await page.waitForSelector(".step");
    assert.equal(await parameter("from"), "paper-kestrel");
    assert.match((await tab.texts(".is-from"))[0], /You are here/);
    await page.waitForSelector(".code .qr");
    const label = await page.$eval(".code .qr", (picture) => picture.getAttribute("aria-label"));
    assert.match(label, /https:\/\/maps\.example\/\?venue=astrolabe-court&from=paper-kestrel&to=popcorn-nebula$/);
    assert.equal(await page.evaluate(() => history.length), 2);
    await tab.picture("kiosk-route");
  });

  await t.test("a visitor who stays keeps the route", async () => {
    await pass(55);
    await (await page.waitForSelector(".notice button")).click();
    await pass(39);
    assert.equal(await page.$(".notice button"), null);
    assert.equal(await parameter("to"), "popcorn-nebula");
    await pass(21);
    await page.waitForFunction(() => !new URLSearchParams(location.search).has("to"));
    await page.waitForSelector(".tile");
    assert.equal(await page.$("[data-key=popcorn-nebula]"), null); // among the recent places
  });

  await t.test("a kiosk without a module starts again", async () => {
    await page.evaluateOnNewDocument(() => {
      const wait = setTimeout;
      globalThis.setTimeout = (run, pause, ...values) => wait(run, pause === 10_000 ? 500 : pause, ...values);
      if (sessionStorage.getItem("broken")) return;
      sessionStorage.setItem("broken", "once");
      const refuse = () => Promise.reject(new Error("broken"));
      Object.assign(WebAssembly, { instantiate: refuse, instantiateStreaming: refuse, compile: refuse, compileStreaming: refuse });
    });
    await page.reload();
    await tab.waitForText(".is-problem", "");
    await page.waitForSelector(".tile");
  });
  await tab.close();
});
