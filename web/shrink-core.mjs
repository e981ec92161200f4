// Writes the module of build/web/core to dist/, without what newer optimizations find superfluous. Does nothing if that
// is done. Usage: node shrink-core.mjs

import { execFileSync } from "node:child_process";
import { existsSync, mkdirSync, renameSync, statSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";

const web = path.dirname(fileURLToPath(import.meta.url));
const source = path.join(web, "../build/web/core/core.wasm");
const target = path.join(web, "dist/core.wasm");

// What the compiler of cmake/OrivantaWeb.cmake may use.
const features = ["exception-handling", "bulk-memory", "nontrapping-float-to-int", "sign-ext", "mutable-globals"];
const passes = ["--generate-global-effects", "-Oz", "--converge"];

const made = (file) => (existsSync(file) ? statSync(file).mtimeMs : 0);
if (made(target) < Math.max(made(source), made(fileURLToPath(import.meta.url)))) {
  mkdirSync(path.dirname(target), { recursive: true });
  // An interrupted run leaves no target.
  const options = ["--mvp-features", ...features.map((name) => `--enable-${name}`), ...passes];
  execFileSync(process.execPath, [path.join(web, "node_modules/binaryen/bin/wasm-opt"), source, ...options, "-o", `${target}.part`], {
    stdio: "inherit",
  });
  renameSync(`${target}.part`, target);
}
