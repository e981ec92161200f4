// The requests of the page, with the browser interfaces of Node.js and a module that only stores.

import assert from "node:assert/strict";
import { createServer } from "node:http";
import { test } from "node:test";

import { Network } from "../../web/dist/platform/network.js";

const everyByte = Buffer.from(Array.from({ length: 256 }, (_, byte) => byte));

/** Sends a request. `most` limits the body. Returns what the C++ code would receive. */
function receive(url, { fields = [], send = "start", most = Infinity, rate = [1, 60], sent = () => {}, network = null } = {}) {
  return new Promise((resolve) => {
    const parts = [[], [], []];
    const HEAPU8 = new Uint8Array(4096);
    const texts = Buffer.from([url, ...fields].map((text) => `${text}\0`).join(""));
    let room = null;
    const keep = () => room && parts[room.part].push(...HEAPU8.subarray(1024, 1024 + room.count));
    const module = {
      HEAPU8,
      _orivantaFetchRoom(request, part, count) {
        keep();
        room = part === 1 && count > most ? null : { part, count };
        return room ? 1024 : 0;
      },
      _orivantaFetchEnded(request, status) {
        keep();
        const [head, body, problem] = parts.map((bytes) => Buffer.from(bytes));
        resolve({ status, head: head.toString("latin1").split("\0"), body, problem: problem.toString() });
      },
    };
    network ??= new Network(module);
    network.module = module; // of the last request
    HEAPU8.set(texts, 8);
    network[send](7, 8, texts.length, ...rate);
    sent(network, resolve);
  });
}

test("requests", async (t) => {
  const requests = [];
  const server = createServer((request, response) => {
    requests.push(request);
    if (request.url === "/moved") return response.writeHead(302, { Location: "/bytes" }).end();
    if (request.url === "/slow") return response.writeHead(200).write("a");
    if (request.url === "/silent") return undefined;
    return response.writeHead(request.url === "/bytes" ? 200 : 404, { "X-Own": "é" }).end(everyByte);
  });
  await new Promise((listening) => server.listen(0, "127.0.0.1", listening));
  t.after(() => (server.closeAllConnections(), server.close()));
  const root = `127.0.0.1:${server.address().port}`;

  const moved = await receive(`http://me:p%C3%A9@${root}/moved`, { fields: ["X-Sent", "é"] });
  assert.equal(moved.status, 200);
  assert.equal(moved.head[0], `http://${root}/bytes`);
  assert.equal(moved.head[moved.head.indexOf("x-own") + 1], "é");
  assert.deepEqual(moved.body, everyByte);
  assert.equal(requests[0].headers.authorization, `Basic ${btoa("me:p\xc3\xa9")}`);
  assert.equal(requests[0].headers["x-sent"], "Ã©", "bytes of UTF-8");
  assert.equal((await receive(`http://${root}/missing`)).status, 404);

  for (const [url, problem, options] of [
    ["http://127.0.0.1:9/", /./],
    ["file:///etc/hosts", /is not an http or https URL/],
    ["/bytes", /is not an http or https URL/],
    [`http://${root}/bytes`, /./, { fields: ["X-Bad", "a\r\nb"] }],
    [`http://${root}/slow`, /too slow. Less than 1000 bytes/, { rate: [1000, 1] }],
    [`http://${root}/silent`, /too slow. Less than 1 bytes/, { rate: [1, 1] }],
  ]) {
    const result = await receive(url, options);
    assert.equal(result.status, 0, url);
    assert.match(result.problem, problem, url);
  }
  globalThis.location = { origin: "http://h" };
  t.after(() => delete globalThis.location);
  assert.match((await receive("http://127.0.0.1:9/")).problem, /does not allow requests from http:\/\/h\)/);
  assert.equal((await receive(`http://${root}/bytes`, { most: 10 })).body.length, 0);

  const canceled = await receive(`http://${root}/silent`, {
    sent: (network, resolve) => (network.abort(7), setTimeout(() => resolve("no report"), 50)),
  });
  assert.equal(canceled, "no report");
});

test("a hidden link to further pages is reported", async (t) => {
  const json = (response, value, fields = {}) =>
    response.writeHead(200, { "Content-Type": "application/json", ...fields }).end(JSON.stringify(value));
  const answers = {
    cut: (page, response) => json(response, [{ id: page }]),
    whole: (page, response) => (page === "1" ? json(response, [{ id: 1 }]) : response.writeHead(404).end()),
    padded: (page, response) => json(response, page === "1" ? [{ id: 1 }] : []),
    unpaged: (_, response) => json(response, [{ id: 1 }]),
    linked: (page, response) => json(response, [{ id: page }], { Link: '<x>; rel="first"' }),
    model: (page, response) => response.end(`v ${page}`),
    dropped: (page, response) => (page === "1" ? json(response, [{ id: 1 }]) : response.destroy()),
  };
  const asked = [];
  const server = createServer((request, response) => {
    const url = new URL(request.url, "http://h");
    if (url.searchParams.has("page")) asked.push(url.pathname.slice(1));
    answers[url.pathname.slice(1)](url.searchParams.get("page") ?? "1", response);
  });
  await new Promise((listening) => server.listen(0, "127.0.0.1", listening));
  t.after(() => (server.closeAllConnections(), server.close()));
  const root = `http://127.0.0.1:${server.address().port}`;
  t.after(() => delete globalThis.location);
  for (const origin of [undefined, root, "http://h"]) {
    if (origin) globalThis.location = { origin };
    for (const name of Object.keys(answers)) {
      const { status, problem } = await receive(`${root}/${name}?venue=a`);
      assert.equal(status, 200);
      if (name === "cut" && origin === "http://h")
        assert.match(problem, /\/cut\?venue=a has more pages.*"Access-Control-Expose-Headers: Link" .*http:\/\/h$/);
      else assert.equal(problem, "", name);
    }
  }
  assert.deepEqual(asked, ["cut", "whole", "padded", "unpaged", "dropped"]);
});

test("pages are requested ahead, and each once", async (t) => {
  const asked = [];
  const server = createServer((request, response) => {
    const page = Number(new URL(request.url, "http://h").searchParams.get("page"));
    asked.push([page, request.headers.authorization]);
    const origin = page === 30 ? "http://127.0.0.1:9" : "";
    const link = (number, relation) => `<${origin}/?page=${number}>; rel="${relation}"`;
    const fields = { "Content-Type": "application/json", Link: `${link(page + 1, "next")}, ${link(18, "last")}` };
    response.writeHead(page < 20 || page === 30 ? 200 : 404, fields).write("[");
    if (page !== 9) response.end(`${page}]`);
  });
  await new Promise((listening) => server.listen(0, "127.0.0.1", listening));
  t.after(() => (server.closeAllConnections(), server.close()));
  const root = `http://127.0.0.1:${server.address().port}`;
  const later = () => new Promise((resolve) => setTimeout(resolve, 200));
  const fields = ["Authorization", "me"];
  const network = new Network({});
  for (const page of [1, 2]) {
    const { body } = await receive(`${root}/?page=${page}`, { fields, network });
    assert.equal(body.toString(), `[${page}]`);
    await later();
    assert.deepEqual(asked.map(([each]) => each), Array.from({ length: page + 4 }, (_, index) => index + 1));
  }
  assert.ok(asked.every(([, account]) => account === "me"));
  assert.equal((await receive(`${root}/?page=3`, { network })).status, 200);
  assert.equal(asked.filter(([page]) => page === 3).length, 2, "another account has another page");
  await later();
  asked.length = 0;
  for (const page of [19, 30]) await receive(`${root}/?page=${page}`);
  await later();
  assert.deepEqual(asked.map(([page]) => page), [19, 20, 30], "neither after an error nor at another origin");
  const abort = (own, resolve) => setTimeout(() => (own.abort(7), resolve()), 200);
  await receive(`${root}/?page=9`, { network, sent: abort });
  await receive(`${root}/?page=10`, { network });
  assert.equal(asked.filter(([page]) => page === 10).length, 2, "nothing is left after an abort");
});

test("a request that blocks returns every byte", async (t) => {
  t.after(() => delete globalThis.XMLHttpRequest);
  for (const [responseText, expected] of [
    [Array.from(everyByte, (byte) => String.fromCharCode(byte + (byte < 128 ? 0 : 0xf700))).join(""), everyByte],
    ["é", Buffer.from("é")], // after a byte order mark
  ]) {
    globalThis.XMLHttpRequest = class {
      open(_, url, isAsynchronous) {
        Object.assign(this, { status: 203, responseURL: url, responseText });
        assert.equal(isAsynchronous, false);
      }
      setRequestHeader() {}
      overrideMimeType() {}
      send() {}
      getAllResponseHeaders = () => "a: 1:2\r\nb: \r\n";
    };
    const { status, head, body } = await receive("http://h/a", { send: "loadNow" });
    assert.deepEqual([status, head, body], [203, ["http://h/a", "a", "1:2", "b", "", ""], expected]);
  }
});
