// Compares the page with the viewer: the time until the first picture of a venue, and the time of a frame while a
// visitor drags the map. Both show the demo venue from one local server at 1280 by 800 pixels, with software drawing,
// in alternating rounds. Needs the builds release and web, Chromium, Xvfb and xdotool.
// Usage: node Benchmarks/web-times.mjs [ROUNDS]

import { execFileSync, spawn } from "node:child_process";
import { mkdtempSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import path from "node:path";

process.env.ORIVANTA_BUILD ??= "release";
const { launchBrowser, servePage, Tab } = await import("../Tests/Web/browser.mjs");
const { nativeBuild } = await import("../Tests/Web/support.mjs");

const venue = "astrolabe-court";
const [width, height] = [1280, 800];
const dragSeconds = 5;
const windowSeconds = 3; // until the browser has built a new window; it uses a processor as long as the page does
const later = (milliseconds) => new Promise((resolve) => setTimeout(resolve, milliseconds));

/** Calls `moveTo` with points of a small circle in the middle of the window. */
async function drag(moveTo) {
  const begin = Date.now();
  for (let angle = 0; Date.now() - begin < 1000 * dragSeconds; angle += 0.05) {
    await moveTo(Math.round(width / 2 + 60 * Math.cos(angle)), Math.round(height / 2 + 60 * Math.sin(angle)));
    await later(10);
  }
}

async function measurePage(browser, endpoint) {
  const tab = await Tab.open(browser, { width, height });
  const { page } = tab;
  await page.evaluateOnNewDocument(() => {
    window.drawnFrames = 0;
    const request = window.requestAnimationFrame.bind(window);
    window.requestAnimationFrame = (draw) => request((time) => (++window.drawnFrames, draw(time)));
  });
  await later(windowSeconds * 1000);
  const begin = performance.now();
  await page.goto(new URL(`/?venue=${venue}`, endpoint).href);
  await page.waitForFunction(() => document.querySelector(".map canvas") && document.querySelector(".map .veil")?.hidden);
  // The picture is on the screen when the next frame begins.
  await page.evaluate(() => new Promise((resolve) => requestAnimationFrame(() => requestAnimationFrame(resolve))));
  const firstPicture = performance.now() - begin;
  await later(3000);
  const before = await page.evaluate("drawnFrames");
  await page.mouse.move(width / 2 + 60, height / 2);
  await page.mouse.down();
  await drag((x, y) => page.mouse.move(x, y));
  const frames = (await page.evaluate("drawnFrames")) - before;
  await page.mouse.up();
  await tab.close();
  return { firstPicture, frame: (1000 * dragSeconds) / frames };
}

async function measureViewer(display, endpoint) {
  const folder = mkdtempSync(path.join(tmpdir(), "orivanta-times-"));
  const env = { ...process.env, DISPLAY: display, XDG_CACHE_HOME: folder, HOME: folder };
  const options = ["view", venue, "--size", `${width}x${height}`, "--times", "--quiet", "--no-store"];
  const viewer = spawn(nativeBuild().command, [...options, "--endpoint", endpoint], { env });
  let printed = "";
  viewer.stderr.on("data", (data) => (printed += data));
  const number = (pattern) => Number(pattern.exec(printed)?.[1] ?? NaN);
  const image = /([\d.]+) s +first image of the map/;
  for (let tries = 0; tries < 600 && !image.test(printed); ++tries) await later(50);
  await later(3000);
  const hand = (...words) => execFileSync("xdotool", words.map(String), { env });
  hand("mousemove", width / 2 + 60, height / 2, "mousedown", 1);
  // Frames at rest and before the drag are few, and are the same in each round.
  await drag((x, y) => hand("mousemove", x, y));
  hand("mouseup", 1);
  viewer.kill("SIGTERM");
  await new Promise((resolve) => viewer.on("exit", resolve));
  rmSync(folder, { recursive: true, force: true });
  return { firstPicture: 1000 * number(image), frame: (1000 * dragSeconds) / number(/(\d+) frames/) };
}

async function startScreen() {
  const screen = spawn("Xvfb", ["-displayfd", "3", "-screen", "0", `${width}x${height}x24`, "-nolisten", "tcp"], {
    stdio: ["ignore", "ignore", "ignore", "pipe"],
  });
  const display = await new Promise((resolve) => screen.stdio[3].once("data", (data) => resolve(`:${String(data).trim()}`)));
  return { display, stop: () => screen.kill() };
}

const median = (values) => values.sort((a, b) => a - b)[Math.floor(values.length / 2)];

const rounds = Number(process.argv[2] ?? 5);
const server = await servePage();
const screen = await startScreen();
const browser = await launchBrowser();
try {
  const results = { page: [], viewer: [] };
  for (let round = 0; round < rounds; ++round) {
    results.page.push(await measurePage(browser, server.endpoint));
    results.viewer.push(await measureViewer(screen.display, server.endpoint));
    console.error(`round ${round + 1} of ${rounds}`);
  }
  for (const [what, title, limit] of [
    ["firstPicture", "first picture", 1.5],
    ["frame", "frame while dragging", 1.3],
  ]) {
    const [page, viewer] = ["page", "viewer"].map((side) => median(results[side].map((each) => each[what])));
    const ratio = page / viewer;
    console.log(
      `${title.padEnd(22)} page ${page.toFixed(0).padStart(6)} ms  viewer ${viewer.toFixed(0).padStart(6)} ms  ` +
        `ratio ${ratio.toFixed(2)}  at most ${limit}  ${ratio <= limit ? "ok" : "MISSED"}`,
    );
  }
} finally {
  await browser.close();
  screen.stop();
  server.stop();
}
