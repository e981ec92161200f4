// Links to what the page shows: they are read, written, shared, and kept in the history.

import assert from "node:assert/strict";
import path from "node:path";
import test from "node:test";

import { launchBrowser, servePage, Tab } from "./browser.mjs";
import { root } from "./support.mjs";

const { encode } = await import(path.join(root, "web/node_modules/uqr/dist/index.mjs"));

test("links", { timeout: 180_000 }, async (t) => {
  const server = await servePage();
  const { port } = new URL(server.endpoint);
  // A name that other devices could use, unlike that of the local device.
  const browser = await launchBrowser("--host-resolver-rules=MAP maps.example 127.0.0.1");
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
    await page.waitForSelector("[placeholder='Where do you start?']"); // as before
    assert.equal((await query(tab)).to, "paper-kestrel");
    await tab.close();
  });

  await t.test("the history leads back from the search, lists and instructions", async () => {
    const tab = await open("venue=astrolabe-court", { width: 390, height: 844, isTouch: true });
    const { page } = tab;
    await tab.waitForText(".tile", "Toilets");
    const entries = await page.evaluate(() => history.length);
    await page.click("#search");
    await page.type("#search", "kestrel");
    await page.waitForFunction(() => history.state?.layers.typed === "kestrel"); // not only its first letters
    await tab.clickText("[role=option]", "The Paper Kestrel");
    await tab.waitForText("h2", "The Paper Kestrel");
    await page.goBack();
    await tab.waitForText("[role=option]", "The Paper Kestrel");
    assert.equal(await page.$eval("#search", ({ value }) => value), "kestrel");
    await page.goBack();
    await page.waitForSelector(".panel[data-sheet=half]");
    await tab.clickText(".tile", "Toilets");
    await tab.clickText(".row", "Toilets, first floor");
    await tab.waitForText("h2", "Toilets, first floor");
    await page.goBack();
    await tab.waitForText(".back-line", "Toilets");
    await tab.clickText(".back-line button", ""); // the entry of the list goes with it
    await tab.waitForText(".tile", "Cash");
    await page.goto(`${origin}/?venue=astrolabe-court&from=paper-kestrel&to=popcorn-nebula`);
    await tab.clickText(".step", "");
    await tab.waitForText(".walk-number", "Step 1 of");
    await page.goBack();
    await page.waitForSelector(".step");
    assert.equal((await query(tab)).to, "popcorn-nebula");
    assert.ok((await page.evaluate(() => history.length)) <= entries + 4);
    await tab.close();
  });

  await t.test("a route to the nearest place of a kind", async () => {
    for (const [kind, name] of [["toilet", "Nearest toilet"], ["culture", "Culture"]]) {
      const tab = await open(`venue=astrolabe-court&from=paper-kestrel&to=nearest:${kind}`);
      await tab.page.waitForSelector(".step");
      await tab.waitForText(".stop-name", name);
      await tab.close();
    }
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
    await tab.waitForText(".warning", "is not a place in this venue");
    assert.equal(await tab.page.$eval("[value=fastest]", (input) => input.checked), true);
    assert.equal(await tab.page.$(".panel img"), null);
    await tab.close();
  });

  const shown = "venue=astrolabe-court&from=paper-kestrel&to=popcorn-nebula";

  /** Returns the modules of the QR code of a page, row by row, as its picture draws them. */
  const modulesOf = (page) =>
    page.$eval(".qr", (picture) => {
      const size = picture.viewBox.baseVal.width;
      const rows = Array.from({ length: size }, () => Array(size).fill(false));
      const path = picture.querySelector("path").getAttribute("d");
      for (const [, x, y, width] of path.matchAll(/M(\d+) (\d+)h(\d+)v1H\1z/g)) rows[y].fill(true, Number(x), Number(x) + Number(width));
      return rows;
    });

  await t.test("a route is shared as a link and a QR code", async () => {
    const tab = await Tab.open(browser);
    const { page } = tab;
    await page.goto(`http://maps.example:${port}/?${shown}&link=https://other.example/&kiosk=0&theme=dark&text=1.5`);
    await page.evaluate(() =>
      Object.defineProperties(navigator, {
        share: { value: undefined },
        clipboard: { value: { writeText: async (text) => void (globalThis.copied = text) } },
      }),
    );
    await page.waitForSelector("[data-key=share]");
    await page.click("[data-key=share]");
    await tab.waitForText(".notice", "copied");
    const link = await page.evaluate(() => copied);
    assert.equal(link, `http://maps.example:${port}/?${shown}`);

    await page.click("[data-key=qr]");
    await page.waitForSelector("dialog .qr");
    assert.deepEqual(await modulesOf(page), encode(link, { ecc: "M", border: 4 }).data);
    assert.deepEqual(await tab.violations(), []);
    await tab.picture("share-code");
    await page.keyboard.press("Escape");
    await page.waitForFunction(() => !document.querySelector("dialog"));
    await tab.close();
  });

  await t.test("the code of a kiosk leads to its public address", async () => {
    const tab = await open(`${shown}&kiosk=1&here=paper-kestrel&link=https://maps.example/way/?a=b`);
    await tab.page.waitForSelector(".code .qr");
    const link = `https://maps.example/way/?a=b&${shown}`;
    assert.deepEqual(await modulesOf(tab.page), encode(link, { ecc: "M", border: 4 }).data);
    await tab.close();
    // Without an address that other devices reach, or with one that is too long for a code, there is none.
    for (const address of ["https://", "javascript:alert(1)", `https://maps.example/${"x".repeat(3000)}`]) {
      const other = await open(`${shown}&kiosk=1&link=${encodeURIComponent(address)}`);
      await other.page.waitForSelector(".step");
      await other.page.waitForFunction(() => !document.querySelector(".code"));
      await other.close();
    }
  });
});
