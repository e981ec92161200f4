// Prints what the features of the module cost: how much smaller it is without the functions of each feature, and
// without all of them. What several features use counts for none of them. Needs a build, and links it again for each
// row, which takes minutes. Usage: node feature-sizes.mjs

import { execFileSync } from "node:child_process";
import { mkdtempSync, readFileSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import path from "node:path";
import { fileURLToPath } from "node:url";
import { gzipSync } from "node:zlib";

const build = path.resolve(path.dirname(fileURLToPath(import.meta.url)), "../build/web");

// The units of Apps/Web that have the functions of a feature.
const features = {
  map: /\/Map\/MapExports\.cpp\.o$/,
  "lists and cards": /\/VisitorExports\.cpp\.o$/,
  "routes and instructions": /\/GuideExports\.cpp\.o$/,
  search: /\/SearchExports\.cpp\.o$/,
};

const folder = mkdtempSync(path.join(tmpdir(), "orivanta-sizes-"));
process.on("exit", () => rmSync(folder, { recursive: true, force: true }));
const commands = execFileSync("ninja", ["-C", build, "-t", "commands", "orivanta_web"], { encoding: "utf8" });
const link = commands.trim().split("\n").at(-1).replace(/^: && | && :$/g, "").split(" ").filter(Boolean);

function linkedBytes(left) {
  const output = path.join(folder, "core.js");
  const words = link.filter((word) => !left.some((pattern) => pattern.test(word)));
  words[words.indexOf("-o") + 1] = output;
  execFileSync(words[0], words.slice(1), {
    cwd: build,
    env: { ...process.env, EM_FROZEN_CACHE: "1", EMSDK_PYTHON: "/usr/bin/python3", NODE_PATH: "/usr/share/nodejs" },
    stdio: ["ignore", "ignore", "inherit"],
  });
  return gzipSync(readFileSync(output.replace(/js$/, "wasm")), { level: 9 }).length;
}

const print = (name, bytes) => console.log(`${name.padEnd(32)}${(bytes / 1000).toFixed(1).padStart(8)} KB`);
const all = linkedBytes([]);
print("the module, compressed", all);
for (const [name, pattern] of Object.entries(features)) print(`  ${name}`, all - linkedBytes([pattern]));
print("  all of these", all - linkedBytes(Object.values(features)));
