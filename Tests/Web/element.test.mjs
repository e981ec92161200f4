// The element <orivanta-map> of the package, in a page with a strict content security policy.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createServer } from "node:http";
import path from "node:path";
import test from "node:test";

import { launchBrowser, servePage, Tab } from "./browser.mjs";
import { nativeBuild, root, serve } from "./support.mjs";

const types = { ".js": "text/javascript", ".wasm": "application/wasm", ".html": "text/html" };
const policy = "default-src 'none'; script-src 'self' 'wasm-unsafe-eval'; connect-src *; img-src data: blob:";

async function servePackage() {
  const server = createServer((request, response) => {
    const name = new URL(request.url, "http://host").pathname;
    response.setHeader("Content-Type", types[path.extname(name)] ?? "text/html");
    response.setHeader("Content-Security-Policy", policy);
    if (name === "/") return response.end("<!doctype html><html lang=en><title>Test</title><body>");
    return response.end(readFileSync(path.join(root, "web", name)));
  });
  await new Promise((listening) => server.listen(0, "127.0.0.1", listening));
  return { origin: `http://127.0.0.1:${server.address().port}`, stop: () => server.close() };
}

test("the element", { timeout: 180_000 }, async (t) => {
  const files = await servePackage();
  const server = await serve(nativeBuild().demo, "--allow-origin", files.origin);
  const browser = await launchBrowser();
  t.after(() => Promise.all([browser.close(), files.stop(), server.stop()]));
  const page = await browser.newPage();
  const faults = [];
  page.on("pageerror", (error) => faults.push(String(error)));
  page.on("console", (line) => ["error", "warn"].includes(line.type()) && faults.push(line.text()));
  await page.evaluateOnNewDocument(() => {
    globalThis.instances = []; // of the module
    const instantiate = WebAssembly.instantiate;
    WebAssembly.instantiate = async (...values) => {
      const instance = await instantiate(...values);
      instances.push(new WeakRef(instance));
      return instance;
    };
  });
  await page.goto(files.origin);

  // Adds an element and returns what happens first: the type and the contents of the event.
  const add = (attributes) =>
    page.evaluate(async (values) => {
      const element = document.createElement("orivanta-map");
      for (const [name, value] of Object.entries(values)) element.setAttribute(name, value);
      globalThis.events = [];
      for (const type of ["load", "error", "tap", "floor", "route"])
        element.addEventListener(type, ({ detail }) => globalThis.events.push([type, detail]));
      globalThis.nextEvent = (type) =>
        new Promise((resolve) => element.addEventListener(type, ({ detail }) => resolve(detail), { once: true }));
      globalThis.map = element;
      const first = Promise.race([globalThis.nextEvent("load"), globalThis.nextEvent("error")]);
      document.body.replaceChildren(element);
      const detail = await first;
      return detail.kind ?? detail.venue.name;
    }, attributes);
  const shown = (selector) =>
    page.evaluate((each) => {
      const part = map.shadowRoot.querySelector(each);
      return part && part.checkVisibility() ? part.textContent : null;
    }, selector);
  const usual = { venue: "astrolabe-court", endpoint: server.endpoint };

  await t.test("a property that was set before the definition counts", async () => {
    await page.evaluate((endpoint) => {
      const early = document.createElement("orivanta-map");
      Object.assign(early, { venue: "astrolabe-court", endpoint });
      document.body.append(early);
      return import("/dist/element.js");
    }, server.endpoint);
    await page.waitForFunction(() => document.querySelector("orivanta-map").loaded, { timeout: 30_000 });
  });

  await t.test("a map with floors and a route", async () => {
    const ends = { from: "paper-kestrel", to: "popcorn-nebula", floor: "2" };
    assert.equal(await add({ ...usual, ...ends }), "Astrolabe Court");
    const steps = await page.evaluate(() => events.find(([type]) => type === "route")[1].guidance.steps.length);
    assert.ok(steps > 2);
    assert.match(await shown("[part=note]"), /min/);
    assert.equal(await shown("[aria-pressed=true]"), "2");
    const floor = await page.evaluate(() => {
      const changed = nextEvent("floor");
      map.shadowRoot.querySelector("[part=floors] button").click(); // the lowest
      return changed.then(({ shortName }) => shortName);
    });
    assert.equal(floor, "B1");
    assert.equal(await shown("[aria-pressed=true]"), "B1");
    await add({ ...usual, from: "popcorn-nebula", to: "station" }); // shows where the route starts
    await page.waitForFunction(() => map.shadowRoot.querySelector("[aria-pressed=true]").textContent === "2");
  });

  await t.test("changes of attributes load only what they must", async () => {
    const before = await page.evaluate(() => events.filter(([type]) => type === "load").length);
    const problem = await page.evaluate(() => {
      const complaint = nextEvent("error");
      document.body.append(map.parentNode.appendChild(document.createElement("div")), map); // moved
      map.to = "no such place";
      return complaint.then(({ kind }) => kind);
    });
    assert.equal(problem, "notFound");
    assert.equal(await page.evaluate(() => events.filter(([type]) => type === "load").length), before);
    await page.evaluate(() => {
      const loaded = nextEvent("load");
      map.language = "ar";
      return loaded;
    });
    const look = () =>
      page.evaluate(() => {
        const { lang, dir } = map.shadowRoot.querySelector("[part=floors]");
        return [map.shadowRoot.querySelector("canvas").lang, lang, dir, getComputedStyle(map).backgroundColor];
      });
    assert.deepEqual(await look(), ["ar", "ar", "rtl", "rgb(236, 238, 241)"]);
    const scrolls = await page.evaluate(() => {
      const roll = () =>
        map.shadowRoot.querySelector("canvas").dispatchEvent(new WheelEvent("wheel", { deltaY: 100, cancelable: true }));
      const isScrolled = roll();
      const hint = map.shadowRoot.querySelector("[part=hint].shown").textContent;
      map.setAttribute("cooperative", "false");
      return new Promise((resolve) => setTimeout(() => resolve([isScrolled, /Ctrl|⌘/.test(hint), /[ء-ي]/.test(hint), roll()])));
    });
    assert.deepEqual(scrolls, [true, true, true, false]);
    await page.emulateMediaFeatures([{ name: "prefers-color-scheme", value: "dark" }]);
    assert.equal((await look()).at(-1), "rgb(23, 25, 29)");
    await page.waitForFunction(() => map.loaded.map.theme === "dark");
    await page.emulateMediaFeatures([]);
    const routes = await page.evaluate(async () => {
      const loaded = nextEvent("load");
      map.reload();
      await new Promise((resolve) => setTimeout(resolve));
      map.to = "popcorn-nebula"; // during the load
      await loaded;
      events.length = 0;
      map.theme = "light";
      await new Promise((resolve) => setTimeout(resolve));
      return events.filter(([type]) => type === "route").length;
    });
    assert.equal(routes, 0, "the route is planned once");
  });

  await t.test("errors are shown, and can be tried again", async () => {
    assert.equal(await add({ ...usual, venue: "nowhere" }), "notFound");
    assert.match(await shown("[part=message]"), /nowhere/);
    assert.equal(await add({ ...usual, endpoint: "http://127.0.0.1:9/1/", language: "de" }), "noAnswer");
    assert.match(await shown("[part=message]"), /Server/);
    faults.length = 0; // the browser reports the connection
    await page.evaluate((endpoint) => {
      const loaded = nextEvent("load");
      map.setAttribute("endpoint", endpoint);
      return loaded;
    }, server.endpoint);
    assert.equal(await shown("[part=message]"), null);
  });

  await t.test("a module that stops is reported, and replaced after a click", async () => {
    await add(usual);
    const stopped = await page.evaluate(async () => {
      const failure = nextEvent("error");
      const { map: view, venue } = map.loaded;
      const { queueMicrotask } = globalThis;
      globalThis.queueMicrotask = () => {
        globalThis.queueMicrotask = queueMicrotask;
        throw new Error("from the page");
      };
      try {
        view.floor = venue.floors.find((floor) => floor !== view.floor);
      } catch {
        // The event of the floor.
      }
      const { kind } = await failure;
      const text = map.shadowRoot.querySelector("[role=alert]").textContent;
      return [kind, text !== "", map.loaded, map.shadowRoot.querySelector("canvas")];
    });
    assert.deepEqual(stopped, ["fatal", true, null, null]);
    const focused = await page.evaluate(async () => {
      const loaded = nextEvent("load");
      const button = map.shadowRoot.querySelector("[part=message] button");
      button.focus();
      button.click();
      await loaded;
      return map.shadowRoot.activeElement?.localName;
    });
    assert.equal(focused, "canvas");
  });

  await t.test("removed elements leave nothing that grows", async () => {
    for (let round = 0; round < 4; ++round) {
      await add(usual);
      await page.evaluate(() => {
        document.body.replaceChildren();
        globalThis.events = globalThis.map = globalThis.nextEvent = null;
        return new Promise((resolve) => setTimeout(resolve, 50)); // the next element has an instance of its own
      });
    }
    assert.ok((await page.evaluate(() => instances.length)) > 4);
    const debug = await page.createCDPSession();
    let left = Infinity;
    for (let attempt = 0; left > 1 && attempt < 20; ++attempt) {
      await new Promise((resolve) => setTimeout(resolve, 200)); // until handlers of the browser have run
      await debug.send("HeapProfiler.collectGarbage");
      left = await page.evaluate(() => instances.filter((each) => each.deref()).length);
    }
    assert.ok(left <= 1, `${left} instances are left`); // the browser may keep what was used last
  });
  assert.deepEqual(faults, []);
});

test("the live examples", { timeout: 120_000 }, async (t) => {
  const server = await servePage();
  const browser = await launchBrowser();
  t.after(() => Promise.all([browser.close(), server.stop()]));
  const tab = await Tab.open(browser);
  const { page } = tab;
  await page.goto(new URL("/examples.html", server.endpoint).href);
  await page.waitForFunction(() => {
    const maps = [...document.querySelectorAll("orivanta-map")];
    return maps.length === 3 && maps.every((map) => map.loaded);
  });
  await page.waitForSelector("section:nth-of-type(2) li");
  await page.waitForSelector("section:nth-of-type(4) pre");
  // The search is ready when its venue is loaded.
  await page.waitForFunction(() => {
    const input = document.querySelector("input");
    input.value = "kestrel";
    input.dispatchEvent(new Event("input"));
    return input.nextSibling.textContent.includes("The Paper Kestrel");
  });
  assert.deepEqual(await tab.violations(), []);
  await tab.picture("examples");
  await tab.close();
});
