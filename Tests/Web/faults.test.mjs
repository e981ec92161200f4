// Loads that fail or end early: servers that misbehave, cancellation, too little memory, a module that stops.

import assert from "node:assert/strict";
import { once } from "node:events";
import { readFileSync } from "node:fs";
import files from "node:fs/promises";
import { createServer } from "node:http";
import { syncBuiltinESMExports } from "node:module";
import path from "node:path";
import test from "node:test";

import { Engine } from "../../web/dist/engine.js";
import { Orivanta, OrivantaError, root } from "./support.mjs";

const nodeCount = 20_000;

/** The records of a venue with one floor, on which a long row of nodes leads from one place to another. */
function rowOfNodes(count = nodeCount) {
  const nodes = Array.from({ length: count }, (_, i) => ({
    id: `n${i}`, map: "m", x: i, y: 0, z: 0, paths: i + 1 < count ? [{ node: `n${i + 1}` }] : [],
  }));
  const place = (id, node) => ({ id, name: id, type: "shop", categories: [], nodes: [{ node }], polygons: [] });
  return {
    venue: [{ id: "v", slug: "row", name: "Row", unitsPerMetre: 1 }],
    map: [{ id: "m", name: "Floor", shortName: "F", elevation: 0, scene: { obj: "a.obj", mtl: "a.mtl", images: [] } }],
    location: [place("first", "n0"), place("last", `n${count - 1}`)],
    category: [],
    node: nodes,
    vortex: [],
    polygon: [],
  };
}

const records = rowOfNodes();

/** Serves the records. A request for `fault.collection` is answered by `fault.answer` instead. */
async function faultyServer(context) {
  const fault = { collection: "", answer: () => {} };
  const server = createServer((request, response) => {
    const name = new URL(request.url, "http://h").pathname.split("/").pop();
    if (name === fault.collection) return fault.answer(response, request);
    return response.end(JSON.stringify(records[name] ?? []));
  });
  await once(server.listen(0, "127.0.0.1"), "listening");
  context.after(() => (server.closeAllConnections(), server.close()));
  return { server, fault, endpoint: `http://127.0.0.1:${server.address().port}/1/` };
}

const isError = (kind, status = 0) => (error) =>
  error instanceof OrivantaError && error.kind === kind && error.status === status && error.message !== "";

const moduleFiles = Object.fromEntries(
  ["wasm", "data"].map((type) => [type, readFileSync(path.join(root, `web/dist/core.${type}`))]),
);

/** The texts of a package, as `Orivanta.open` takes them. */
function packageOf({ venue: [venue], ...lists }) {
  return Object.fromEntries(Object.entries({ venue, ...lists }).map(([name, value]) => [name, JSON.stringify(value)]));
}

const problemsOf = (venue) => venue.problems.map(({ collection, kind, status }) => [collection, kind, status]);

test("a load that is canceled at its end leaves no venue", async (context) => {
  const engine = await Engine.start(moduleFiles);
  const removed = [];
  engine.call((core) => {
    const remove = core._orivantaRemoveVenue;
    core._orivantaRemoveVenue = (venue) => (removed.push(venue), remove(venue));
  });
  const texts = packageOf(records);
  const controller = new AbortController();
  const { queueMicrotask } = globalThis;
  context.after(() => (globalThis.queueMicrotask = queueMicrotask));
  // Nothing else of this file has run before that might use it.
  globalThis.queueMicrotask = (report) => queueMicrotask(() => (controller.abort("enough"), report()));
  const load = engine.loads.start({
    settings: { slug: "row" }, records: { ...texts, venue: `[${texts.venue}]` }, signal: controller.signal,
  });
  await assert.rejects(load, (error) => error === "enough");
  await new Promise((resolve) => setTimeout(resolve, 50));
  assert.equal(removed.length, 1);
  engine.close();
});

test("closures of a server", async (context) => {
  const { server, fault, endpoint } = await faultyServer(context);
  const orivanta = await Orivanta.load();
  const venue = await orivanta.venue("row", { endpoint, username: "me", password: "p%41é" });
  const answered = (closures, fields) => (response) => response.writeHead(200, fields).end(JSON.stringify(closures));
  const asks = (answer, options) => (Object.assign(fault, { collection: "closure", answer }), venue.closures(options));
  const requests = [];
  server.on("request", ({ url, headers }) => requests.push([url, headers.authorization]));
  const next = { Link: '</1/closure?venue=row&page=2>; rel="next"' };
  const pages = (response, { url }) => answered(url.includes("page=2") ? [{ id: "n3" }] : [{ id: "n1" }, {}, null], url.includes("page=2") ? {} : next)(response);
  assert.deepEqual(await asks(pages), ["n1", "n3"]);
  const account = `Basic ${Buffer.from("me:p%41é").toString("base64")}`;
  assert.deepEqual(requests, [["/1/closure?venue=row", account], ["/1/closure?venue=row&page=2", account]]);
  assert.deepEqual(await asks(answered([{ id: "n1" }], { Link: '<http://127.0.0.1:1/>; rel="next"' })), ["n1"]);
  assert.deepEqual(await asks((response) => response.writeHead(404).end()), []);
  await assert.rejects(asks((response) => response.writeHead(403).end()), isError("refused", 403));
  await assert.rejects(asks((response) => response.end("<p>")), isError("unusable"));
  await assert.rejects(asks(answered({ id: "n1" })), isError("unusable"));
  await assert.rejects(asks((response) => response.destroy()), isError("noAnswer"));
  await assert.rejects(asks(() => {}, { signal: AbortSignal.timeout(50) }), { name: "TimeoutError" });
  globalThis.location = { origin: "http://h" };
  const json = { "Content-Type": "application/json" };
  const cut = (response, { url }) => answered([{ id: url.includes("page=2") ? "n3" : "n1" }], json)(response);
  await assert.rejects(asks(cut), ({ kind, message }) => kind === "unusable" && /Access-Control-Expose-Headers/.test(message));
  assert.deepEqual(await asks(answered([{ id: "n1" }], json)), ["n1"]);
  delete globalThis.location;
  assert.deepEqual(await (await orivanta.open(packageOf(records))).closures(), []);
  venue.destroy();
  await assert.rejects(venue.closures(), isError("invalid"));
});

test("faults of a server", async (context) => {
  const { server, fault, endpoint } = await faultyServer(context);
  const orivanta = await Orivanta.load();
  const faults = [
    [(response) => response.end("<html>"), "unusable", 200],
    [(response) => response.end('[{"id":"a"}'), "unusable", 200],
    [(response) => response.end(Buffer.from([0x1f, 0x8b, 0, 255])), "unusable", 200],
    [(response) => response.end("[".repeat(1e6)), "unusable", 200],
    [(response) => response.writeHead(200, { "Content-Length": 99 }).end("["), "noAnswer"],
    [(response) => response.writeHead(200, { "Content-Encoding": "gzip" }).end("[]"), "noAnswer"],
    [(response) => (response.write("["), setImmediate(() => response.destroy())), "noAnswer"],
    [(response) => response.destroy(), "noAnswer"],
    [(response) => response.writeHead(401).end(), "refused", 401],
    [(response) => response.writeHead(403).end("[]"), "refused", 403],
    [(response) => response.writeHead(404).end("[]"), "notFound", 404],
    [(response) => response.writeHead(503).end(), "otherStatus", 503],
    [(response, { url }) => response.writeHead(302, { Location: url }).end(), "noAnswer"],
    [(response, { url }) => response.writeHead(200, { Link: `<${url}>; rel="next"` }).end("[]"), "endless", 200],
  ];
  for (const [answer, kind, status = 0] of faults) {
    Object.assign(fault, { collection: "venue", answer });
    await assert.rejects(orivanta.venue("row", { endpoint }), isError(kind, status), `${answer} must be ${kind}`);
    fault.collection = "node";
    if (kind === "endless") {
      await assert.rejects(orivanta.venue("row", { endpoint }), isError(kind, status));
      continue;
    }
    const venue = await orivanta.venue("row", { endpoint });
    assert.deepEqual([venue.nodes.length, problemsOf(venue)], [0, [["node", kind, status]]], `${answer}`);
    venue.destroy();
  }

  const asked = once(server, "request");
  Object.assign(fault, { collection: "venue", answer: (response) => response.writeHead(401).end() });
  await assert.rejects(orivanta.venue("row", { endpoint, username: "me", password: "pé" }), isError("refused", 401));
  assert.equal((await asked)[0].headers.authorization, `Basic ${Buffer.from("me:pé").toString("base64")}`);

  // The account of a list of venues is for its server.
  const other = await faultyServer(context);
  await assert.rejects(orivanta.venues({ endpoint, username: "me", password: "p" }), isError("refused", 401));
  for (const [each, isSent] of [[other, false], [{ server, endpoint }, true]]) {
    const next = once(each.server, "request");
    await orivanta.venue("row", { endpoint: each.endpoint }).catch(() => {});
    const account = (await next)[0].headers.authorization;
    assert.equal(account, `Basic ${Buffer.from(isSent ? "me:p" : ":").toString("base64")}`);
  }
  await assert.rejects(orivanta.open({ ...packageOf(records), venue: "<" }), isError("unusable"));

  fault.collection = "";
  const venue = await orivanta.venue("row", { endpoint });
  assert.equal(venue.route(venue.placeNamed("first"), venue.placeNamed("last")).nodes.length, nodeCount);
  orivanta.destroy();
});

test("cancellation", { timeout: 60_000 }, async (context) => {
  const { fault, endpoint } = await faultyServer(context);
  const orivanta = await Orivanta.load();
  // Neither the reason nor the number of steps that a load has done makes a difference.
  for (const collection of ["venue", "node", "polygon"]) {
    const controller = new AbortController();
    const closed = new Promise((resolve) => {
      Object.assign(fault, {
        collection,
        answer: (response) => {
          response.write("[");
          response.on("close", resolve);
          setTimeout(() => controller.abort("enough"), 20);
        },
      });
    });
    const progress = [];
    const load = orivanta.venue("row", { endpoint, signal: controller.signal, onProgress: (each) => progress.push(each) });
    await assert.rejects(load, (error) => error === "enough");
    await closed;
    const { length } = progress;
    await new Promise((resolve) => setTimeout(resolve, 20));
    assert.equal(progress.length, length, "no progress after the end");
  }
  fault.collection = "";
  const controller = new AbortController();
  const venue = await orivanta.venue("row", { endpoint, signal: controller.signal });
  controller.abort();
  assert.equal(venue.nodes.length, nodeCount, "the load had ended");
  await assert.rejects(orivanta.venues({ endpoint, signal: controller.signal }), { name: "AbortError" });

  // An abort when the venue is there, but the file of the language is not.
  const other = await Orivanta.load();
  const { readFile } = files;
  context.after(() => ((files.readFile = readFile), syncBuiltinESMExports()));
  files.readFile = () => new Promise(() => {});
  syncBuiltinESMExports();
  const late = new AbortController();
  const load = orivanta.venue("row", { endpoint, languages: "de", signal: late.signal });
  setTimeout(() => late.abort("enough"), 200);
  await assert.rejects(load, (error) => error === "enough");
  setTimeout(() => other.destroy(), 200);
  await assert.rejects(other.venue("row", { endpoint, languages: "de" }), isError("fatal"));

  Object.assign(fault, { collection: "node", answer: () => orivanta.destroy() });
  await assert.rejects(orivanta.venue("row", { endpoint }), isError("fatal"));
  assert.throws(() => venue.search("x"), isError("fatal"));
});

test("too little memory", async (context) => {
  const { fault, endpoint } = await faultyServer(context);
  const texts = packageOf(records);
  texts.node = texts.node.padEnd(40e6);
  Object.assign(fault, { collection: "node", answer: (response) => response.end(texts.node) });
  const { grow } = WebAssembly.Memory.prototype;
  context.after(() => (WebAssembly.Memory.prototype.grow = grow));
  const orivanta = await Orivanta.load();
  WebAssembly.Memory.prototype.grow = function (pages) {
    if (this.buffer.byteLength < 16e6) return grow.call(this, pages); // that of Node.js itself
    throw new RangeError("no memory");
  };
  assert.deepEqual(problemsOf(await orivanta.venue("row", { endpoint })), [["node", "unusable", 0]]);
  await assert.rejects(orivanta.open(texts), isError("tooLarge"));
  WebAssembly.Memory.prototype.grow = grow;
  fault.collection = "";
  for (const venue of [await orivanta.venue("row", { endpoint }), await orivanta.open(texts)])
    assert.equal(venue.nodes.length, nodeCount);
});

test("wrong arguments are refused, and the instance goes on", async () => {
  await assert.rejects(Orivanta.load({ ...moduleFiles, wasm: new TextEncoder().encode("<html>") }), isError("unusable"));
  await assert.rejects(Orivanta.load({ ...moduleFiles, wasm: "http://127.0.0.1:9/core.wasm" }), isError("noAnswer"));
  const orivanta = await Orivanta.load(moduleFiles);
  for (const settings of [{}, { endpoint: "/1/" }, { endpoint: "http://[" }])
    await assert.rejects(orivanta.venues(settings), isError("invalid"));
  const whole = packageOf(rowOfNodes(10));
  await assert.rejects(orivanta.open({ ...whole, venue: '{"slug": "row"}' }), isError("unusable"));
  await assert.rejects(orivanta.open({ ...whole, map: undefined }), isError("invalid"));
  const venue = await orivanta.open(whole);
  for (const text of [undefined, null, 1]) assert.throws(() => venue.search(text), isError("invalid"));
  for (const target of [undefined, null, "map"]) await assert.rejects(venue.show(target), isError("invalid"));
  assert.equal(venue.search("first").length, 1);
  venue.destroy();
  assert.throws(() => venue.places, isError("invalid"));
  orivanta.destroy();
});

test("a module that stops", async (context) => {
  const { fault, endpoint } = await faultyServer(context);
  Object.assign(fault, { collection: "node", answer: (response) => response.write("[") });
  const engine = await Engine.start(moduleFiles);
  const told = [];
  engine.onFatal = (message) => told.push(message);
  const loads = ["row", "row"].map((slug) => engine.loads.start({ settings: { endpoint, slug } }));
  await new Promise((resolve) => setTimeout(resolve, 50));
  const noVenue = 999;
  const ended = Promise.all(loads.map((load) => assert.rejects(load, isError("fatal"))));
  assert.throws(() => engine.call((core) => core._orivantaRecords(noVenue)), isError("fatal"));
  await ended;
  assert.throws(() => engine.call((core) => core._orivantaRecords(noVenue)), isError("fatal"));
  await assert.rejects(engine.loads.start({ settings: { endpoint } }), isError("fatal"));
  await new Promise((resolve) => setTimeout(resolve, 50));
  assert.equal(told.length, 1);
  assert.match(told[0], /the venue was removed/);
});

// C++ code catches exceptions of JavaScript, and stops the program where it expects none.
test("a module that stops in a turn", async (context) => {
  const orivanta = await Orivanta.load();
  const told = [];
  orivanta.onFatal = (message) => told.push(message);
  const texts = packageOf(records);
  const { queueMicrotask } = globalThis;
  context.after(() => (globalThis.queueMicrotask = queueMicrotask));
  globalThis.queueMicrotask = () => {
    throw new Error("from the page");
  };
  await assert.rejects(orivanta.open(texts), isError("fatal"));
  await assert.rejects(orivanta.open(texts), isError("fatal"));
  assert.equal(told.length, 1);
  assert.doesNotMatch(told[0], /call stack/);
});
