// Links to what the page shows: they are read, written, shared, and kept in the history.

import assert from "node:assert/strict";
import test from "node:test";

import { launchBrowser, servePage, Tab } from "./browser.mjs";

test("links", { timeout: 180_000 }, async (t) => {
  const server = await servePage();
  const browser = await launchBrowser();
  t.after(() => Promise.all([browser.close(), server.stop()]));
  const origin = new URL(server.endpoint).origin;
  const open = async (query, options) => {
    const tab = await Tab.open(browser, options);
    await tab.page.goto(`${origin}/?${query}`);
    return tab;
  };
  const query = (tab) => tab.page.evaluate(() => Object.fromEntries(new URLSearchParams(location.search)));

  await t.test("a link is shown, and the history leads back", async () => {
    const tab = await open("venue=astrolabe-court&place=paper-kestrel&x=kept");
    const { page } = tab;
    await tab.waitForText("h2", "The Paper Kestrel");
    await tab.clickText("[data-key=to]", "");
    await page.waitForFunction(() => new URLSearchParams(location.search).get("to") === "paper-kestrel");
    assert.equal((await query(tab)).x, "kept");
    await page.goBack();
    await tab.waitForText("h2", "The Paper Kestrel");
    assert.equal((await query(tab)).to, undefined);
    await page.goForward();
    await page.waitForSelector("[data-key=from]");
    assert.equal((await query(tab)).to, "paper-kestrel");
    await tab.close();
  });

  await t.test("a route with a stop and a profile", async () => {
    const tab = await open("venue=astrolabe-court&from=paper-kestrel&to=popcorn-nebula&via=brass-heron&profile=step-free");
    await tab.page.waitForSelector(".step");
    assert.equal(await tab.page.$eval("[value=step-free]", (input) => input.checked), true);
    assert.equal((await tab.texts(".is-between")).length, 1);
    await tab.close();
  });

  await t.test("broken links do no harm", async () => {
    const long = "x".repeat(5000);
    const tab = await open(`venue=astrolabe-court&floor=%00&place=${long}&from=nowhere&to=%3Cimg%3E&profile=rocket`);
    await tab.page.waitForSelector(".stops");
    await tab.page.waitForSelector(".warning");
    assert.equal(await tab.page.$eval("[value=fastest]", (input) => input.checked), true);
    assert.equal(await tab.page.$(".panel img"), null);
    await tab.close();
  });

  await t.test("a route is shared as a link and a QR code", async () => {
    const shown = "venue=astrolabe-court&from=paper-kestrel&to=popcorn-nebula";
    const tab = await open(`${shown}&link=${encodeURIComponent("https://maps.example/way/")}&kiosk=0`);
    const { page } = tab;
    await page.evaluate(() =>
      Object.defineProperties(navigator, {
        share: { value: undefined },
        clipboard: { value: { writeText: async (text) => void (globalThis.copied = text) } },
      }),
    );
    await page.waitForSelector("[data-key=share]");
    await page.click("[data-key=share]");
    await tab.waitForText(".notice", "copied");
    const link = new URL(await page.evaluate(() => copied));
    assert.equal(link.href.split("?")[0], "https://maps.example/way/");
    for (const [name, value] of new URLSearchParams(shown)) assert.equal(link.searchParams.get(name), value);
    assert.equal(link.searchParams.get("kiosk"), null);

    await page.click("[data-key=qr]");
    const code = await page.waitForSelector("dialog .qr");
    assert.match(await code.evaluate((picture) => picture.getAttribute("aria-label")), /maps\.example/);
    assert.deepEqual(await tab.violations(), []);
    await tab.picture("share-code");
    const read = await page.evaluate(async () => {
      if (!("BarcodeDetector" in globalThis)) return null;
      const box = document.querySelector("dialog .qr");
      const image = new Image();
      image.src = `data:image/svg+xml,${encodeURIComponent(new XMLSerializer().serializeToString(box))}`;
      await image.decode();
      return (await new BarcodeDetector().detect(image))[0]?.rawValue ?? "";
    });
    if (read !== null) assert.equal(read, link.href);
    await page.keyboard.press("Escape");
    await page.waitForFunction(() => !document.querySelector("dialog"));
    await tab.close();
  });
});
