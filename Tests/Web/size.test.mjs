// What a page downloads, compressed as a server sends it.

import assert from "node:assert/strict";
import { readdirSync, readFileSync } from "node:fs";
import path from "node:path";
import test from "node:test";
import { gzipSync } from "node:zlib";

import { root } from "./support.mjs";

const dist = path.join(root, "web/dist");

function compressedBytes(ending) {
  const files = readdirSync(dist, { recursive: true }).filter((name) => name.endsWith(ending));
  return files.reduce((sum, name) => sum + gzipSync(readFileSync(path.join(dist, name)), { level: 9 }).length, 0);
}

test("sizes", (context) => {
  for (const [ending, kilobytes] of [[".wasm", 520], [".js", 45]]) {
    const bytes = compressedBytes(ending);
    context.diagnostic(`${ending}: ${(bytes / 1000).toFixed(1)} KB compressed`);
    assert.ok(bytes > 1000 && bytes < kilobytes * 1000, `${ending}: ${bytes} bytes`);
  }
});
