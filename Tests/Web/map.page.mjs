// What the tests of maps do in the browser. See map.test.mjs.

import { Orivanta } from "./dist/index.js";

let memory = null;
const instantiate = WebAssembly.instantiate;
WebAssembly.instantiate = async (...parts) => {
  const instance = await instantiate(...parts);
  memory = Object.values(instance.exports).find((each) => each instanceof WebAssembly.Memory);
  return instance;
};

let frames = 0;
const request = window.requestAnimationFrame.bind(window);
window.requestAnimationFrame = (draw) => request((time) => (++frames, draw(time)));

const later = (milliseconds) => new Promise((resolve) => setTimeout(resolve, milliseconds));

async function pixelsOf(source) {
  const image = await createImageBitmap(source, { premultiplyAlpha: "none", colorSpaceConversion: "none" });
  const context = new OffscreenCanvas(image.width, image.height).getContext("2d");
  context.drawImage(image, 0, 0);
  return context.getImageData(0, 0, image.width, image.height);
}

const orivanta = await Orivanta.load();
const endpoint = new URL("1/", location.href).href;

const tests = {
  orivanta,
  later,
  frames: () => frames,
  memory: () => memory.buffer.byteLength,
  async open() {
    const [{ slug }] = await orivanta.venues({ endpoint });
    return orivanta.venue(slug);
  },
  /** Shows the venue and keeps it, the map and its events. */
  async show(options = {}, target = document.querySelector("#map")) {
    const venue = await tests.open();
    const map = await venue.show(target, options);
    const events = [];
    for (const type of ["tap", "floor", "camera", "problem", "ready", "refused"])
      map.on(type, (event) => events.push({ type, event: type === "tap" ? { ...event, place: event.place?.id } : event }));
    Object.assign(tests, { venue, map, events });
    await tests.ready();
  },
  /** Waits until the map is complete and at rest. */
  async ready(map = tests.map) {
    for (let still = 0, seen = -1; still < 3; seen = frames) {
      await later(80);
      still = frames === seen && map.isReady ? still + 1 : 0;
    }
  },
  /** Waits for an event since the last call, and returns it. */
  async take(type) {
    for (let tries = 0; tries < 600; ++tries) {
      const found = tests.events.find((each) => each.type === type);
      if (found) return ((tests.events.length = 0), found.event);
      await later(50);
    }
    throw new Error(`no event "${type}"`);
  },
  async pixels(map = tests.map) {
    return pixelsOf(await map.picture());
  },
  /** The likeness of two pictures as PSNR in dB, without what has a color in the second one. */
  likeness(first, second, except) {
    if (first.width !== second.width || first.height !== second.height) return 0;
    let sum = 0;
    let count = 0;
    for (let i = 0; i < first.data.length; i += 4) {
      if (except?.every((part, index) => second.data[i + index] === part)) continue;
      for (let part = i; part < i + 3; ++part) sum += (first.data[part] - second.data[part]) ** 2;
      count += 3;
    }
    return sum === 0 ? 99 : 10 * Math.log10(255 ** 2 / (sum / count));
  },
  async likenessTo(url, except) {
    return tests.likeness(await tests.pixels(), await pixelsOf(await (await fetch(url)).blob()), except);
  },
  /** How many pixels have nearly a color. */
  async count(red, green, blue) {
    const { data } = await tests.pixels();
    let count = 0;
    for (let i = 0; i < data.length; i += 4)
      if (Math.hypot(data[i] - red, data[i + 1] - green, data[i + 2] - blue) < 12) ++count;
    return count;
  },
};
window.tests = tests;
