// Runs the unit tests that Tests/Web/CMakeLists.txt compiles to WebAssembly.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import path from "node:path";
import test from "node:test";

import { root } from "./support.mjs";

test("units", async (context) => {
  const folder = path.join(root, "build/web/units");
  const lines = [];
  const code = await new Promise((resolve, reject) => {
    createRequire(import.meta.url)(path.join(folder, "units.js"))({
      wasmBinary: readFileSync(path.join(folder, "units.wasm")),
      print: (line) => lines.push(line),
      printErr: (line) => lines.push(line),
      quit: resolve,
    }).catch(reject);
  });
  const failures = lines.filter((line) => !/^\[( RUN  |       OK|----------)/.test(line));
  assert.equal(code, 0, failures.join("\n"));
  const passed = /\[ {2}PASSED {2}\] (\d+) tests/.exec(lines.join("\n"));
  assert.ok(Number(passed?.[1]) > 50, "the program ran its tests");
  context.diagnostic(`${passed[1]} tests`);
});
