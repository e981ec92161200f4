// Tests maps in Debian's Chromium, next to pictures of the native command.

import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { cpSync, mkdirSync, mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import path from "node:path";
import test, { after, before } from "node:test";

import { launchBrowser, Tab } from "./browser.mjs";
import { nativeBuild, root, serve } from "./support.mjs";

const width = 640;
const height = 400;
const quiet = { compass: false, scaleBar: false, attribution: false, still: true };
const { command, demo } = nativeBuild();

let folder;
let server;
let browser;
let tab;

before(async () => {
  folder = mkdtempSync(path.join(tmpdir(), "orivanta-map-"));
  cpSync(path.join(root, "web/dist"), path.join(folder, "dist"), { recursive: true });
  cpSync(path.join(root, "Tests/Web/map.page.mjs"), path.join(folder, "map.mjs"));
  mkdirSync(path.join(folder, "native"));
  writeFileSync(
    path.join(folder, "index.html"),
    `<!doctype html><html lang="en"><title>Map</title><link rel="icon" href="data:,"><body style="margin:0"><div id="map" style="width:${width}px;
     height:${height}px"></div><script type="module" src="map.mjs"></script></body></html>`,
  );
  server = await serve("--web", folder, demo);
  browser = await launchBrowser();
});
after(async () => {
  await closeTab();
  await browser?.close();
  server?.stop();
  rmSync(folder, { recursive: true, force: true });
});

async function closeTab() {
  const last = tab;
  tab = null;
  await last?.close();
}

/** Opens the page in a new tab and shows the venue. */
async function show(options = {}, window = {}) {
  await closeTab();
  tab = await Tab.open(browser, { width, height, ...window });
  await tab.page.goto(new URL("/", server.endpoint).href);
  await tab.page.waitForFunction("window.tests");
  await tab.page.evaluate((look) => tests.show(look), options);
}

const evaluate = (use, ...values) => tab.page.evaluate(use, ...values);

/** A picture of the native command, as a URL of the page. */
function nativePicture(name, ...options) {
  const file = path.join(folder, "native", `${name}.png`);
  const made = spawnSync(
    command,
    ["render", "astrolabe-court", "--endpoint", server.endpoint, "--size", `${width}x${height}`, "--no-attribution",
      "--quiet", "--no-store", "-o", file, ...options],
    { env: { ...process.env, XDG_CACHE_HOME: path.join(folder, "cache") }, encoding: "utf8" },
  );
  assert.equal(made.status, 0, made.stderr);
  return `native/${name}.png`;
}

// With the OpenGL driver of the native command. The browser's own one places corners less exactly.
test("pictures are those of the native renderer", { timeout: 400_000 }, async (context) => {
  const usual = browser;
  browser = await launchBrowser("--use-angle=gl-egl", "--ignore-gpu-blocklist");
  context.after(async () => {
    await closeTab();
    await browser.close();
    browser = usual;
  });
  const tilt = 34.3774677;
  const options = ["--tilt", `${tilt}`];
  await show({ ...quiet, theme: "plain", labels: false });
  await evaluate((angle) => {
    tests.map.moveTo({ tilt: angle }, { animated: false });
    tests.map.fit(undefined, { animated: false });
  }, tilt);
  const first = nativePicture("plain", "--map", "0", "--style", "plain", "--no-labels", ...options);
  // The command has a backdrop of its own in this style.
  const likeness = [await evaluate((url) => tests.likenessTo(url, [241, 243, 245]), first)];
  for (const [name, look, more] of [
    ["light", { theme: "light" }, ["--no-labels"]],
    ["dark", { theme: "dark" }, ["--no-labels", "--style", "dark"]],
    ["labels", { theme: "light", labels: true }, []],
  ]) {
    const picture = nativePicture(name, ...options, ...more);
    await evaluate((changed) => (tests.map.setLook(changed), tests.map.showFirstView({ animated: false })), look);
    await evaluate(() => tests.ready());
    likeness.push(await evaluate((url) => tests.likenessTo(url), picture));
  }
  context.diagnostic(`likeness: ${likeness.map((each) => each.toFixed(1)).join(", ")} dB`);
  const [plain, light, dark, labels] = likeness;
  assert.ok(plain >= 45 && light >= 45 && dark >= 45 && labels >= 25, String(likeness));
});

const middle = [width / 2, height / 2];
const pose = () => evaluate(() => tests.map.camera);
const at = (point) => evaluate((where) => tests.map.pointOf(where), point);
const near = (one, other, slack) => Math.hypot(one.x - other.x, one.y - other.y) <= slack;

/** Taps, or clicks, for 50 ms by the time of the events, and returns the map's event. */
async function tapAt(x, y, isTouch = false) {
  await evaluate(() => void (tests.events.length = 0));
  const client = await tab.page.createCDPSession();
  const time = Date.now() / 1000;
  const send = (type, timestamp) =>
    isTouch
      ? client.send("Input.dispatchTouchEvent", {
          type: `touch${type ? "Start" : "End"}`, timestamp, touchPoints: type ? [{ x, y, id: 0 }] : [],
        })
      : client.send("Input.dispatchMouseEvent", {
          type: `mouse${type ? "Pressed" : "Released"}`, timestamp, x, y, button: "left", clickCount: 1,
        });
  await Promise.all([send(true, time), send(false, time + 0.05)]);
  return evaluate(() => tests.take("tap"));
}

/** Returns a function that moves fingers on straight lines, each from and to a point. */
async function fingers() {
  const client = await tab.page.createCDPSession();
  const send = (type, touchPoints) => client.send("Input.dispatchTouchEvent", { type, touchPoints });
  return async (...lines) => {
    const points = (share) =>
      lines.map(([x, y, toX, toY], id) => ({ x: x + (toX - x) * share, y: y + (toY - y) * share, id }));
    await send("touchStart", points(0));
    for (let step = 1; step <= 5; ++step) {
      await send("touchMove", points(step / 5));
      await evaluate(() => tests.later(20));
    }
    await send("touchEnd", []);
    await evaluate(() => tests.ready());
  };
}

test("visitors move the map with the mouse and the keyboard", { timeout: 400_000 }, async () => {
  await show({ reducedMotion: true });
  const { mouse, keyboard } = tab.page;

  const place = await evaluate(async () => {
    const { map, venue } = tests;
    const found = venue.places.find((each) => each.type === "tenant" && each.floors[0] === map.floor) ?? venue.places[0];
    map.fit(found, { animated: false });
    await tests.ready();
    return found.id;
  });
  const hit = await tapAt(...middle);
  assert.equal(hit.place, place);
  assert.ok(near(hit, { x: middle[0], y: middle[1] }, 1) && near(await at(hit.position), hit, 1));

  const { position } = await tapAt(200, 150);
  await evaluate(() => tests.later(600)); // the next one is no double click
  await mouse.move(200, 150);
  await mouse.down();
  await mouse.move(300, 200, { steps: 5 });
  await mouse.up();
  assert.ok(near(await at(position), { x: 300, y: 200 }, 2), "the ground stays below a dragging mouse");

  const before = await pose();
  await mouse.wheel({ deltaY: -300 });
  await evaluate(() => tests.ready());
  assert.ok((await pose()).distance < before.distance * 0.7, "the wheel zooms in");
  assert.ok(near(await at(position), { x: 300, y: 200 }, 2), "toward the pointer");

  await mouse.move(...middle);
  await mouse.down({ button: "right" });
  await mouse.move(middle[0] + 50, middle[1] - 40, { steps: 4 });
  await mouse.up({ button: "right" });
  const tilted = await pose();
  assert.ok(tilted.tilt > before.tilt + 5 && tilted.yaw > 5 && tilted.yaw < 60, JSON.stringify(tilted));

  const steps = [];
  for (const key of ["ArrowLeft", "+", "-", "q", "e", "Home"]) {
    await keyboard.press(key);
    await evaluate(() => tests.ready());
    steps.push(await pose());
  }
  const [panned, closer, away, left, right, whole] = steps;
  assert.notDeepEqual(panned.center, tilted.center);
  assert.ok(closer.distance < panned.distance && Math.abs(away.distance - panned.distance) < 1);
  assert.notEqual(left.yaw, away.yaw);
  assert.ok(Math.abs(right.yaw - away.yaw) < 0.01 && whole.yaw < 0.01 && whole.distance > right.distance);
});

test("fingers pan, pinch, turn and tilt", { timeout: 400_000 }, async () => {
  await show({ reducedMotion: true }, { isTouch: true, density: 2 });
  const move = await fingers();
  const start = await pose();
  await move([300, 200, 200, 200]);
  const panned = await pose();
  assert.ok(panned.center[0] > start.center[0] + 20 && panned.distance === start.distance);
  await move([300, 200, 220, 200], [340, 200, 420, 200]);
  const pinched = await pose();
  assert.ok(pinched.distance < panned.distance * 0.6, `${panned.distance} ${pinched.distance}`);
  await move([320, 120, 400, 200], [320, 280, 240, 200]);
  const turned = await pose();
  assert.ok(Math.min(turned.yaw, 360 - turned.yaw) > 30, `${turned.yaw}`);
  await move([280, 200, 280, 130], [360, 200, 360, 130]);
  assert.notEqual((await pose()).tilt, turned.tilt);
  const pixels = await evaluate(() => tests.map.canvas.width);
  assert.equal(pixels, 2 * width);
  assert.ok(await tapAt(...middle, true));
});

test("a cooperative map leaves one finger and the wheel to the page", { timeout: 400_000 }, async () => {
  await show({ cooperative: true, reducedMotion: true }, { isTouch: true });
  const move = await fingers();
  await evaluate(() => void (document.body.style.height = "3000px"));
  const scrolled = () => evaluate(() => new Promise((resolve) => setTimeout(() => resolve(scrollY), 300)));
  const start = await pose();
  await move([300, 300, 300, 200]);
  assert.equal(await evaluate(() => tests.take("refused")), "touch");
  const first = await scrolled();
  assert.ok(first > 50, `${first}`);
  assert.deepEqual(await pose(), start);
  await move([300, 200, 220, 200], [340, 200, 420, 200]);
  const pinched = await pose();
  assert.ok(pinched.distance < start.distance * 0.7);
  await move([300, 250, 300, 150], [340, 250, 340, 150]);
  assert.notDeepEqual(await pose(), pinched);
  assert.equal(await scrolled(), first);
  assert.ok(await tapAt(...middle, true));

  const { keyboard, mouse } = tab.page;
  const tilted = await pose();
  await evaluate(() => void (tests.events.length = 0));
  await mouse.move(...middle);
  await mouse.wheel({ deltaY: -100 });
  assert.equal(await evaluate(() => tests.take("refused")), "wheel");
  const second = await scrolled();
  assert.ok(second < first);
  assert.deepEqual(await pose(), tilted);
  await keyboard.down("Control");
  await mouse.wheel({ deltaY: -100 });
  await keyboard.up("Control");
  await evaluate(() => tests.ready());
  const { distance } = await pose();
  assert.ok(distance < tilted.distance && distance > tilted.distance * 0.6, "one step of the wheel");
  assert.equal(await scrolled(), second);

  await evaluate(() => void (tests.map.cooperative = false));
  await move([300, 300, 300, 200]);
  assert.equal(await scrolled(), second);
  assert.notDeepEqual((await pose()).center, tilted.center);
});

test("floors, routes and marks", { timeout: 400_000 }, async () => {
  await show({ ...quiet, reducedMotion: true });
  const shown = await evaluate(async () => {
    const { map, venue } = tests;
    const from = map.floor;
    const other = venue.floors.find((floor) => floor !== from);
    map.floor = other;
    const told = await tests.take("floor");
    map.stacked = true;
    await tests.ready();
    const isStacked = map.stacked;
    map.floor = from;
    await tests.ready();
    return [told === other, isStacked, map.stacked, map.floor === from];
  });
  assert.deepEqual(shown, [true, true, false, true]);

  const colors = await evaluate(async () => {
    const { map, venue } = tests;
    const found = [];
    const look = async (red, green, blue) => (await tests.ready(), found.push(await tests.count(red, green, blue)));
    const [start, end] = [venue.places[0], venue.places.at(-1)];
    const route = venue.guide({ from: start, to: end });
    const color = "rgb(1, 200, 3)";
    map.showRoute(route, { color });
    map.fit(route, { animated: false });
    await look(1, 200, 3);
    map.showProgress(route.nodes.filter((node) => node.floor === map.floor).at(-1));
    await look(1, 200, 3);
    map.showRoute(null);
    await look(1, 200, 3);
    const here = venue.places.find((place) => place.floors[0] === map.floor);
    map.fit(here, { animated: false });
    const marker = map.addMarker({ place: here, text: "Here", color: "#f0f" });
    await look(255, 0, 255);
    marker.remove();
    await look(255, 0, 255);
    map.highlight(here, "#f00");
    const before = await tests.pixels();
    map.clearHighlights();
    await tests.ready();
    found.push(tests.likeness(before, await tests.pixels()) < 60);
    const { x, y, z } = here.nodes[0];
    const bare = await tests.pixels();
    map.position = { position: [x, y, z], floor: map.floor, accuracy: 3, heading: 90 };
    map.follow = true;
    await tests.ready();
    found.push(map.follow, tests.likeness(bare, await tests.pixels()) < 40);
    return found;
  });
  const [route, passed, without, marker, removed, ...rest] = colors;
  assert.ok(route > 300 && passed < route && without === 0, String(colors));
  assert.ok(marker > 100 && removed === 0, String(colors));
  assert.deepEqual(rest, [true, true, true]);
});

test("a lost context comes back with the same picture", { timeout: 400_000 }, async () => {
  await show(quiet);
  const likeness = await evaluate(async () => {
    const first = await tests.pixels();
    const lost = tests.map.canvas.getContext("webgl2").getExtension("WEBGL_lose_context");
    lost.loseContext();
    const problem = await tests.take("problem");
    await tests.later(200);
    tests.map.setLook({ theme: "light" });
    lost.restoreContext();
    await tests.later(300);
    await tests.ready();
    return [problem.kind, tests.likeness(first, await tests.pixels())];
  });
  assert.equal(likeness[0], "context");
  assert.ok(likeness[1] > 60, String(likeness));
});

test("a map at rest draws nothing, and maps leave no memory behind", { timeout: 400_000 }, async (context) => {
  await show();
  // Names may still fade in when other floors are loaded. A map that goes on drawing never has such a second.
  const isAtRest = await evaluate(async () => {
    for (let tries = 0; tries < 20; ++tries) {
      const from = tests.frames();
      await tests.later(1500);
      if (tests.frames() === from) return true;
    }
    return false;
  });
  assert.ok(isAtRest);
  const sizes = await evaluate(async () => {
    const found = [];
    for (let i = 0; i < 50; ++i) {
      tests.map.destroy();
      tests.map = await tests.venue.show(document.querySelector("#map"), { reducedMotion: true });
      await tests.later(20);
      if (i % 10 === 9) found.push(tests.memory());
    }
    await tests.ready();
    return [document.querySelectorAll("canvas").length, ...found];
  });
  context.diagnostic(`memory after 10, 20, ... maps: ${sizes.slice(1).map((each) => each >> 20).join(", ")} MiB`);
  assert.equal(sizes[0], 1);
  assert.equal(sizes.at(-1), sizes[2], "the memory grows");
});

test("two maps at once, and faults", { timeout: 400_000 }, async () => {
  await show(quiet);
  const results = await evaluate(async (look) => {
    const { map, venue } = tests;
    const kind = (promise) => promise.then(() => "", (error) => error.kind);
    const twice = await kind(venue.show(document.body));
    const other = document.createElement("canvas");
    other.style.cssText = "width:640px;height:400px";
    document.body.append(other);
    const ending = new AbortController();
    const third = await tests.open();
    const second = await (await tests.open()).show(other, { ...look, signal: ending.signal });
    ending.abort(); // the map is shown already
    const taken = await kind(third.show(other));
    await tests.ready(second);
    map.setLook({ theme: "dark" });
    await tests.ready();
    const [dark, light] = [await tests.pixels(), await tests.pixels(second)];
    const [place] = second.venue.places.filter(({ floors }) => floors.includes(second.floor));
    const seen = () => new Promise((resolve) => requestAnimationFrame(() => requestAnimationFrame(() => resolve(second.camera))));
    const start = second.camera;
    second.fit(place, { animated: false });
    const fitted = await seen();
    second.camera = start;
    other.style.display = "none";
    await seen();
    second.fit(place, { animated: false });
    await seen();
    other.style.display = "";
    await seen();
    const isKept = JSON.stringify(await seen()) === JSON.stringify(fitted);
    second.destroy();
    map.setLook({ theme: "light" });
    await tests.ready();
    const after = await tests.pixels();
    let ended = "";
    try {
      second.fit();
    } catch (error) {
      ended = error.kind;
    }
    return [[twice, taken, tests.likeness(dark, light) < 30, isKept, ended, other.isConnected], tests.likeness(after, light)];
  }, quiet);
  const [facts, likeness] = results;
  assert.deepEqual(facts, ["invalid", "invalid", true, true, "invalid", true]);
  assert.ok(likeness > 60, `${likeness}`);

  tab.expect(/404/);
  await tab.page.setRequestInterception(true);
  tab.page.on("request", (request) =>
    /\.obj$/.test(request.url()) ? request.respond({ status: 404, body: "" }) : request.continue());
  const faults = await evaluate(async () => {
    tests.map.destroy();
    const kind = () => tests.venue.show(document.querySelector("#map")).then(() => "", (error) => error.kind);
    const found = [await kind()];
    const { getContext } = HTMLCanvasElement.prototype;
    HTMLCanvasElement.prototype.getContext = () => null;
    found.push(await kind());
    HTMLCanvasElement.prototype.getContext = getContext;
    found.push(await kind());
    const drawn = document.createElement("canvas");
    drawn.getContext("2d");
    found.push(await tests.venue.show(drawn).then(() => "", (error) => error.kind));
    const waiting = kind();
    tests.orivanta.destroy();
    found.push(await waiting);
    return [...found, document.querySelectorAll("#map canvas").length];
  });
  assert.deepEqual(faults, ["noAnswer", "unsupported", "noAnswer", "invalid", "fatal", 0]);
});
