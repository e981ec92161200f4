// Builds the package into dist/ from src/ and from what the compiler has written to build/web/core.
// Usage: node build-package.mjs

import { execFileSync } from "node:child_process";
import { cpSync, mkdirSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";

import { trimmedGlue } from "./trim-glue.mjs";

const web = path.dirname(fileURLToPath(import.meta.url));
const core = path.join(web, "../build/web/core");
const dist = path.join(web, "dist");

// The module is kept: making it smaller takes minutes.
mkdirSync(dist, { recursive: true });
for (const name of readdirSync(dist)) if (name !== "core.wasm") rmSync(path.join(dist, name), { recursive: true });

execFileSync(process.execPath, [path.join(web, "node_modules/typescript/bin/tsc"), "-p", web], { stdio: "inherit" });
for (const name of ["core.d.ts", "element-texts.d.ts"]) cpSync(path.join(web, "src", name), path.join(dist, name));
execFileSync(path.join(web, "../cmake/gather-licenses"), ["module", path.join(dist, "NOTICES.txt")]);
const isOther = (file) => path.basename(file) !== "en.mo"; // English is a part of core.data
cpSync(path.join(core, "languages"), path.join(dist, "languages"), { recursive: true, filter: isOther });
writeFileSync(path.join(dist, "core.js"), trimmedGlue(readFileSync(path.join(core, "core.js"), "utf8")));
await import("./element-texts.mjs");
await import("./pack-resources.mjs");
await import("./shrink-core.mjs");

await build({
  entryPoints: readdirSync(dist, { recursive: true }).filter((name) => name.endsWith(".js")).map((name) => path.join(dist, name)),
  outdir: dist,
  outbase: dist,
  allowOverwrite: true,
  minify: true,
  charset: "utf8",
  target: "es2022",
  logLevel: "warning",
});
