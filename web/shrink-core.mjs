// Writes the module of build/web/core to dist/, without what newer optimizations find superfluous, and with its
// functions in an order that compresses well. Does nothing if that is done. Usage: node shrink-core.mjs

import { execFileSync } from "node:child_process";
import { existsSync, mkdirSync, readFileSync, renameSync, rmSync, statSync, writeFileSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";

import { withOrderedNames } from "./function-order.mjs";

const web = path.dirname(fileURLToPath(import.meta.url));
const source = path.join(web, "../build/web/core/core.wasm");
const target = path.join(web, "dist/core.wasm");
const tools = [fileURLToPath(import.meta.url), path.join(web, "function-order.mjs")];

// What the compiler of cmake/OrivantaWeb.cmake may use.
const features = ["exception-handling", "bulk-memory", "nontrapping-float-to-int", "sign-ext", "mutable-globals"];

function optimize(from, to, ...passes) {
  const options = ["--mvp-features", ...features.map((name) => `--enable-${name}`), ...passes];
  execFileSync(process.execPath, [path.join(web, "node_modules/binaryen/bin/wasm-opt"), from, ...options, "-o", to], {
    stdio: "inherit",
  });
}

const compressedBytes = (file) => execFileSync("zopfli", ["--i5", "-c", file], { maxBuffer: 1e8 }).length;

// Sizes differ by some hundred bytes between orders that are equally good, so several are tried.
const orders = [20_000, 24_000].flatMap((windowBytes) => [100, 200].map((header) => ({ windowBytes, header })));

const made = (file) => (existsSync(file) ? statSync(file).mtimeMs : 0);
if (made(target) < Math.max(...[source, ...tools].map(made))) {
  mkdirSync(path.dirname(target), { recursive: true });
  // An interrupted run leaves no target.
  const [small, named, part, best] = ["small", "named", "part", "best"].map((name) => `${target}.${name}`);
  optimize(source, small, "--generate-global-effects", "-Oz", "--converge");
  let least = Infinity;
  for (const order of orders) {
    writeFileSync(named, withOrderedNames(readFileSync(small), order));
    optimize(named, part, "--reorder-functions-by-name");
    const bytes = compressedBytes(part);
    if (bytes >= least) continue;
    least = bytes;
    renameSync(part, best);
  }
  for (const file of [small, named, part]) rmSync(file, { force: true });
  renameSync(best, target);
}
