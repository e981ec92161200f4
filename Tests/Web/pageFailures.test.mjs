// The page when something is wrong: unknown venues, servers that answer strangely, and a module that stops.

import assert from "node:assert/strict";
import { createServer } from "node:http";
import { test } from "node:test";

import { servePage } from "./browser.mjs";
import { accessible, mapIsShown, open, openVenue, query, shareBrowser, shared } from "./pages.mjs";
import { startProxy } from "./proxy.mjs";

shareBrowser();

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
    await tab.waitForText(".is-problem h2", "Sign in");
    await tab.page.waitForSelector("form");
    await accessible(tab, "credentials");
    const filled = () => tab.page.$eval("[name=password]", (input) => input.autocomplete);
    assert.equal(await filled(), "current-password");
    assert.ok(await tab.page.$eval(".message h2", (title) => title === document.activeElement));
    await tab.page.type("[name=username]", "guest");
    await tab.page.type("[name=password]", "wrong");
    await tab.page.keyboard.press("Enter");
    await tab.waitForText(".is-problem", "The server rejected the credentials");
    await tab.page.waitForFunction(() => document.querySelector("[name=username]")?.value === "guest");
    await tab.page.type("[name=password]", "secret");
    await tab.page.keyboard.press("Enter");
    await tab.waitForText(".bar-title", "Astrolabe Court");
    await tab.waitForText(".tile", "Toilets");

    // A kiosk loads itself again, and nobody is there.
    await tab.page.goto(`${new URL("/", guarded.endpoint).href}?kiosk=1`);
    await tab.page.waitForSelector("form");
    await tab.page.type("[name=username]", "guest");
    await tab.page.type("[name=password]", "secret");
    await tab.page.keyboard.press("Enter");
    await tab.waitForText(".tile", "Toilets");
    await tab.page.reload();
    await tab.waitForText(".tile", "Toilets");

    const strange = await strangeServer(t, (_, response) => response.writeHead(401, { "WWW-Authenticate": "Basic" }).end());
    const other = await open(t, strange);
    other.expect(/status of 401/);
    await other.waitForText("form", new URL(new URLSearchParams(strange).get("endpoint")).host);
    assert.equal(await other.page.$eval("[name=password]", (input) => input.autocomplete), "off");
  });
});

/** Opens the page with a venue of another origin, a proxy for its own server. */
async function openForeign(t, { exposed = "Link", answer = () => false, shown = "" } = {}) {
  const fields = { "Access-Control-Allow-Origin": "*", "Access-Control-Allow-Headers": "*, authorization" };
  const proxy = await startProxy(shared.home, { ...fields, "Access-Control-Expose-Headers": exposed });
  t.after(proxy.stop);
  proxy.answer = answer;
  const tab = await open(t, `?endpoint=${proxy.origin}/1/${shown}`);
  tab.expect(/Failed to load resource/);
  return { tab, page: tab.page, proxy };
}

test("a server of another origin", async (t) => {
  await t.test("that hides further pages", async (t) => {
    const { tab } = await openForeign(t, { exposed: "Date" });
    await tab.waitForText(".notice", "Some data of this venue could not be loaded");
    await tab.waitForText(".notice button", "Try again");
  });

  await t.test("that fails when the venue is loaded again", async (t) => {
    const { tab, page, proxy } = await openForeign(t);
    await mapIsShown(tab);
    proxy.answer = (url, response) => url.startsWith("/1/") && !!response.writeHead(500).end();
    await tab.clickText("[aria-label=Settings]", "");
    await (await page.waitForSelector("dialog select")).select("de");
    await tab.waitForText(".notice button", "Erneut versuchen");
    assert.ok(await page.$(".map canvas"));
    await tab.waitForText(".tile", "Toilet");
    proxy.answer = () => false;
    await tab.clickText(".notice button", "Erneut versuchen");
    await tab.waitForText(".tile", "Toilette");
    assert.deepEqual(await tab.texts(".notice"), []);
  });

  await t.test("that closes something while a visitor walks", async (t) => {
    const { tab, page, proxy } = await openForeign(t, { shown: "&from=paper-kestrel&to=popcorn-nebula" });
    await tab.clickText(".step", "Northeast stairs");
    await tab.waitForText(".walk-number", "Step 3 of");
    const close = async (id) => {
      proxy.answer = (url, response) => url.startsWith("/1/closure") && !!response.end(`[{"id":"${id}"}]`);
      const asked = page.waitForResponse((response) => response.url().includes("closure"));
      await page.evaluate(() => document.dispatchEvent(new Event("visibilitychange")));
      await asked;
    };
    await close("brass-heron");
    await new Promise((resolve) => setTimeout(resolve, 300));
    assert.match((await tab.texts(".walk-number")).join(), /^Step 3 of/);
    await page.reload();
    await tab.waitForText(".walk-number", "Step 3 of");
    await close("stairs-northeast");
    await page.waitForFunction(() => document.querySelector(".step") && !document.querySelector(".walk"));
    assert.ok(!(await tab.texts(".step")).join().includes("Northeast stairs"));
  });

  await t.test("that is slow with a floor, and then fails", async (t) => {
    const waiting = [];
    const answer = (url, response) => url.includes("l2.obj") && waiting.push(response) > 0;
    const { tab, page, proxy } = await openForeign(t, { answer });
    await mapIsShown(tab);
    const shown = () => tab.texts(".floor[aria-pressed=true]");
    await tab.clickText(".floor", "2");
    assert.equal(query(tab).floor, "floor-l2");
    await tab.clickText(".floor", "G");
    while (waiting.length === 0) await new Promise((resolve) => setTimeout(resolve, 20));
    proxy.answer = (url, response) => url.includes("l2.obj") && !!response.writeHead(500).end();
    for (const response of waiting) response.writeHead(500).end();
    await tab.clickText(".floor", "2");
    await tab.waitForText(".notice", "Second floor cannot be loaded");
    assert.deepEqual(await shown(), ["G"]);
    assert.equal(query(tab).floor, "floor-g");
    proxy.answer = () => false;
    await tab.clickText(".floor", "2");
    await page.waitForFunction(() => document.querySelector(".floor[aria-pressed=true]")?.textContent === "2");
  });
});

test("a module that stops", async (t) => {
  const tab = await openVenue(t, "?from=paper-kestrel&to=popcorn-nebula", {
    prepare: () => {
      const { instantiate } = WebAssembly;
      WebAssembly.instantiate = (module, imports) => {
        for (const group of Object.values(imports))
          for (const [name, run] of Object.entries(group))
            if (typeof run === "function")
              group[name] = (...values) => {
                if (globalThis.isBroken) throw new WebAssembly.RuntimeError("unreachable");
                return run(...values);
              };
        return instantiate(module, imports);
      };
    },
  });
  const { page } = tab;
  await page.waitForSelector(".step");
  await mapIsShown(tab);
  await page.evaluate(() => (globalThis.isBroken = true));
  tab.expect(/the module has stopped/);
  await tab.clickText("[aria-label='Zoom in']", "");
  await tab.waitForText(".is-problem", "The map has stopped because of an error");
  assert.equal(await page.$(".map canvas"), null);
  await tab.clickText("[aria-label=Settings]", "");
  await (await page.waitForSelector("dialog select")).select("de");
  await page.waitForSelector("html[lang=de]");
  await accessible(tab, "stopped");
  await tab.clickText(".is-problem button", "Neu laden");
  await page.waitForSelector(".step");
});
