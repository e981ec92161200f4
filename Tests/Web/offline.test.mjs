// The page without a connection: what was opened is shown again, and the page recovers by itself.

import assert from "node:assert/strict";
import { readdirSync } from "node:fs";
import test from "node:test";

import { launchBrowser, pageFolder, servePage, Tab } from "./browser.mjs";
import { startProxy } from "./proxy.mjs";

test("the page without a connection", { timeout: 240_000 }, async (t) => {
  const server = await servePage();
  const proxy = await startProxy(server.endpoint);
  const browser = await launchBrowser();
  t.after(() => Promise.all([browser.close(), proxy.stop(), server.stop()]));
  const tab = await Tab.open(browser);
  tab.expect(/Failed to load resource/, /net::ERR/);
  const { page } = tab;
  const address = `${proxy.origin}/?venue=astrolabe-court&from=paper-kestrel&to=popcorn-nebula`;
  const routeIsShown = () => page.waitForSelector(".step");
  const open = async () => (await page.goto(address), await routeIsShown());
  const notice = (text) => tab.waitForText(".notice", text);
  const pageIsStored = ({ page }) =>
    page.waitForFunction(
      async (files) => {
        const [name] = (await caches.keys()).filter((each) => each.startsWith("orivanta-page-"));
        if (!name) return false;
        const stored = (await (await caches.open(name)).keys()).map(({ url }) => new URL(url).pathname.slice(1));
        return files.every((file) => stored.includes(file));
      },
      {},
      readdirSync(pageFolder).filter((name) => !/^worker\.js$|\.(gz|txt)$/.test(name)),
    );

  await open();
  await pageIsStored(tab);
  assert.deepEqual(await tab.texts(".notice"), []);

  await t.test("can be installed as an application", async () => {
    const session = await page.createCDPSession();
    const { installabilityErrors } = await session.send("Page.getInstallabilityErrors");
    const faults = installabilityErrors.map(({ errorId }) => errorId);
    assert.deepEqual(faults.filter((fault) => fault !== "in-incognito"), []); // as all tabs of the tests are
    await session.detach();
  });

  const noticeCoversNoButton = async () => {
    const { width, height } = page.viewport();
    await page.setViewport({ width: 390, height: 844 });
    await page.waitForFunction(() =>
      [...document.querySelectorAll(".bar button, .map-buttons button, .floors button")].every((button) => {
        const { x, y, width, height } = button.getBoundingClientRect();
        return !button.checkVisibility() || button.contains(document.elementFromPoint(x + width / 2, y + height / 2));
      }),
    );
    await page.setViewport({ width, height });
  };

  for (const mode of ["closed", "busy", "silent"])
    await t.test(`the server is ${mode}, and comes back`, async () => {
      proxy.mode = mode;
      await open();
      await notice("No connection. Showing the map of");
      if (mode === "closed") await noticeCoversNoButton();
      proxy.mode = "pass";
      await notice("The connection is back");
      await routeIsShown();
    });

  await t.test("another language and another venue", async () => {
    proxy.mode = "silent";
    await page.goto(`${address}&language=de`);
    await routeIsShown();
    await notice("Keine Verbindung");
    proxy.mode = "closed";
    await page.goto(`${proxy.origin}/?endpoint=${encodeURIComponent("http://127.0.0.1:9/1/")}`);
    await page.waitForSelector(".is-problem");
    proxy.mode = "pass";
  });

  await t.test("a request that always fails does not load the page again and again", async () => {
    let [asked, loads] = [0, 0];
    proxy.answer = (url, response, method) => {
      loads += url.startsWith("/1/venue") && method === "GET";
      asked += url.startsWith("/1/category") && method === "HEAD";
      return url.startsWith("/1/category") && !!response.writeHead(503).end();
    };
    await page.evaluate(() => navigator.serviceWorker.controller.postMessage("server answered")); // ends the pause
    await open();
    await notice("No connection");
    const before = loads;
    while (asked < 2) await new Promise((resolve) => setTimeout(resolve, 100));
    assert.equal(loads, before);
    proxy.answer = () => false;
    await notice("The connection is back");
  });

  await t.test("nothing is shown to another account", async (t) => {
    const guarded = await servePage("--username", "guest", "--password", "secret");
    const guard = await startProxy(guarded.endpoint);
    const visitor = await Tab.open(browser);
    t.after(() => Promise.all([guard.stop(), guarded.stop(), visitor.close()]));
    visitor.expect(/Failed to load resource/, /net::ERR/);
    await visitor.page.goto(guard.origin);
    await visitor.page.waitForSelector("[name=username]");
    await visitor.page.type("[name=username]", "guest");
    await visitor.page.type("[name=password]", "secret");
    await visitor.page.keyboard.press("Enter");
    await visitor.waitForText(".tile", "Toilets");
    await visitor.page.waitForFunction(async () => (await (await caches.open("orivanta-data")).keys()).length > 5);
    await pageIsStored(visitor);
    guard.mode = "closed";
    await visitor.page.reload();
    await visitor.waitForText(".is-problem", "cannot be loaded");
    assert.equal(await visitor.page.$(".tile"), null);
  });

  await t.test("files of old versions are removed, and their HTML pages are not used", async () => {
    const versions = await page.evaluate(async () => {
      const current = (await caches.keys()).find((name) => name.startsWith("orivanta-page-"));
      await caches.delete(current);
      for (const old of ["1", "2", "3"]) {
        const cache = await caches.open(`orivanta-page-${old}`);
        await cache.put(new URL("index.html", document.baseURI), new Response("old"));
      }
      for (const registration of await navigator.serviceWorker.getRegistrations()) await registration.unregister();
      return caches.keys();
    });
    assert.equal(versions.length, 4);
    // A site whose files are being replaced answers with its start page, which is not stored in place of a file.
    let wrong = 0;
    proxy.answer = (url, response) =>
      /^\/later-/.test(url) && !!++wrong && !!response.writeHead(200, { "Content-Type": "text/html" }).end("<p>start");
    await open();
    while (wrong < 2) {
      await page.evaluate(() => fetch("1/venue")); // the worker tries it again
      await new Promise((resolve) => setTimeout(resolve, 200));
    }
    proxy.answer = () => false;
    assert.equal(await page.evaluate(async () => (await (await caches.open(
      (await caches.keys()).find((name) => /^orivanta-page-\w{2,}/.test(name)))).match("index.html")) === undefined), true);
    await open();
    await page.waitForFunction(async () => !(await caches.keys()).includes("orivanta-page-2"));
    proxy.mode = "closed";
    await open();
    // An update whose files could not be stored any more.
    await page.evaluate(async (name) => {
      await caches.delete(name);
      const former = await caches.open("orivanta-page-3");
      await former.put(new URL("index.html", document.baseURI), new Response("<p>former", { headers: { "Content-Type": "text/html" } }));
    }, (await page.evaluate(() => caches.keys())).find((name) => /^orivanta-page-\w{2,}/.test(name)));
    await page.goto(address);
    await tab.waitForText("p", "former");
  });
  await tab.close();
});
