// The page without a connection: what was opened is shown again, and the page recovers by itself.

import assert from "node:assert/strict";
import test from "node:test";

import { launchBrowser, servePage, Tab } from "./browser.mjs";
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
  const pageIsStored = () =>
    page.waitForFunction(async () => {
      const names = (await caches.keys()).filter((name) => name.startsWith("orivanta-page-"));
      const files = await Promise.all(names.map(async (name) => (await (await caches.open(name)).keys()).length));
      return files.some((count) => count > 10);
    });

  await open();
  await pageIsStored();
  assert.deepEqual(await tab.texts(".notice"), []);

  for (const mode of ["closed", "busy", "silent"])
    await t.test(`the server is ${mode}, and comes back`, async () => {
      proxy.mode = mode;
      await open();
      await notice("No connection. Showing the map of");
      proxy.mode = "pass";
      await notice("The connection is back");
      await routeIsShown();
    });

  await t.test("another language and another venue", async () => {
    proxy.mode = "closed";
    await page.goto(`${address}&language=de`);
    await routeIsShown();
    await notice("Keine Verbindung");
    await page.goto(`${proxy.origin}/?endpoint=${encodeURIComponent("http://127.0.0.1:9/1/")}`);
    await page.waitForSelector(".is-problem");
    proxy.mode = "pass";
  });

  await t.test("nothing is stored for another account", async () => {
    const stored = await page.evaluate(async () => {
      const cache = await caches.open("orivanta-data");
      return (await cache.keys()).map(({ url }) => url);
    });
    assert.ok(stored.length > 5);
    assert.equal(new Set(stored.map((url) => new URL(url).pathname.split("/")[1])).size, 1);
  });

  await t.test("files of old versions are removed", async () => {
    const versions = await page.evaluate(async () => {
      for (const old of ["1", "2", "3"]) await caches.open(`orivanta-page-${old}`);
      for (const registration of await navigator.serviceWorker.getRegistrations()) await registration.unregister();
      return caches.keys();
    });
    assert.equal(versions.length, 5);
    await open();
    await page.waitForFunction(async () => !(await caches.keys()).includes("orivanta-page-2"));
  });
  await tab.close();
});
