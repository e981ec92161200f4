// What a page downloads, compressed as a server sends it. web/feature-sizes.mjs prints what single features cost.

import assert from "node:assert/strict";
import { existsSync, readdirSync, readFileSync, statSync } from "node:fs";
import { createRequire } from "node:module";
import path from "node:path";
import test from "node:test";
import { gzipSync } from "node:zlib";

import { root } from "./support.mjs";

const web = path.join(root, "web");
const page = path.join(root, "build/web/page");
const { build } = createRequire(path.join(web, "package.json"))("esbuild");

const compressed = (bytes) => gzipSync(bytes, { level: 9 }).length;
/** What a server sends of a file: the file beside it that is compressed, if there is one. */
const sizeOf = (...names) => {
  const file = path.join(...names);
  return existsSync(`${file}.gz`) ? statSync(`${file}.gz`).size : compressed(readFileSync(file));
};

test("sizes", async (context) => {
  const check = (name, bytes, kilobytes) => {
    context.diagnostic(`${name}: ${(bytes / 1000).toFixed(1)} KB compressed, at most ${kilobytes}`);
    assert.ok(bytes > 1000 && bytes <= kilobytes * 1000, `${name}: ${bytes} bytes`);
  };
  for (const [entry, kilobytes] of [["index", 28], ["element", 33]]) {
    const options = { bundle: true, minify: true, format: "esm", target: "es2022", write: false };
    const { outputFiles } = await build({ ...options, entryPoints: [path.join(web, `dist/${entry}.js`)] });
    check(`${entry}.js in a bundle`, compressed(outputFiles[0].contents), kilobytes);
  }
  for (const name of readdirSync(path.join(web, "dist/languages"))) check(name, sizeOf(web, "dist/languages", name), 8);

  assert.ok(existsSync(page), "the page is built: npm --prefix web run page");
  check("core.wasm", sizeOf(page, readdirSync(page).find((name) => name.endsWith(".wasm"))), 520);
  const scripts = new Set(readFileSync(path.join(page, "index.html"), "utf8").match(/[\w-]+\.js\b/g));
  check("JavaScript of the page", [...scripts].reduce((sum, name) => sum + sizeOf(page, name), 0), 45);
  // Without other languages, which are loaded when they are asked for, the page of examples, and the licenses.
  const first = readdirSync(page).filter((name) => !/^examples|^(ar|de|fr|ja)-|\.(gz|map|txt)$/.test(name));
  assert.match(readFileSync(path.join(page, "NOTICES.txt"), "utf8"), /\{fmt\}.*musl.*Anthony Fu/s); // the last one: uqr
  check("page", first.reduce((sum, name) => sum + sizeOf(page, name), 0), 700);
});
