// Tests how texts are broken into lines, here, and how texts and icons are drawn, in Debian's Chromium.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createServer } from "node:http";
import path from "node:path";
import test from "node:test";
import { fileURLToPath } from "node:url";

import { breakable, ellipsize, graphemesOf, wrap } from "../../web/dist/platform/lines.js";
import { launchBrowser } from "./browser.mjs";

const folder = path.dirname(fileURLToPath(import.meta.url));
const measure = (text) => graphemesOf(text).length;

test("lines end where their script allows it", () => {
  for (const [text, pieces] of [
    ["one two", "one |two"],
    ["東京駅の、「北」です。", "東|京|駅|の、|「北」|で|す。"],
    ["a/b c-d 3-4 foo—bar 50%", "a/|b |c-|d |3-4 |foo—|bar |50%"],
    ["สวัสดีครับผม", "สวัสดี|ครับ|ผม"],
    ["Store™ Inc.", "Store™ |Inc."],
    ["x\u00A0y z", "x\u00A0y |z"],
    ["안녕 세계", "안|녕 |세|계"],
    ["go👩‍👩‍👧to", "go|👩‍👩‍👧|to"],
  ])
    assert.equal(breakable(text).join("|"), pieces);
});

test("lines are filled, and words that are too long are cut", () => {
  for (const [text, lines] of [
    ["one two three four five", "one two|three|four|five"],
    ["x abcdefghijklm no", "x|abcdefgh|ijklm no"],
    ["", ""],
    ["  ", "  "],
  ])
    assert.equal(wrap(text, 8, measure).join("|"), lines);
  assert.equal(ellipsize("one two three", 8, measure), "one two…");
  assert.equal(ellipsize("one", 8, measure), "one");
});

test("texts and icons look right in a browser", { timeout: 120_000 }, async (context) => {
  const files = {
    "/": [
      "text/html",
      `<!doctype html><script>
        onerror = (fault) => void fetch("result", { method: "POST", body: JSON.stringify([String(fault)]) });
      </script><script type="module" src="page.mjs"></script>`,
    ],
    "/page.mjs": ["text/javascript", readFileSync(path.join(folder, "graphics.page.mjs"))],
  };
  for (const name of ["canvas", "drawing", "graphics", "layout", "lines", "text"])
    files[`/dist/platform/${name}.js`] = [
      "text/javascript",
      readFileSync(path.join(folder, `../../web/dist/platform/${name}.js`)),
    ];
  let report;
  const reported = new Promise((resolve) => (report = resolve));
  const server = createServer((request, response) => {
    if (request.method === "POST") {
      let body = "";
      request.on("data", (data) => (body += data)).on("end", () => report(response.end() && JSON.parse(body)));
      return;
    }
    const [type, text] = files[request.url] ?? ["text/plain", ""];
    response.setHeader("Content-Type", `${type};charset=utf-8`);
    response.end(text);
  });
  await new Promise((resolve) => server.listen(0, "127.0.0.1", resolve));
  const browser = await launchBrowser();
  context.after(async () => {
    await browser.close();
    server.closeAllConnections();
    server.close();
  });
  const page = await browser.newPage();
  await page.goto(`http://127.0.0.1:${server.address().port}/`);
  assert.deepEqual(await reported, []);
});
