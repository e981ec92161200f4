// Builds the service worker of the page, which knows the names of the page's files.

import { createHash } from "node:crypto";
import { readdirSync, readFileSync } from "node:fs";
import path from "node:path";
import { build } from "esbuild";

const isHtml = (file) => Number(file.endsWith(".html"));

/** Builds Apps/Web/Page/Worker into a folder with the files of the page, which must be complete. */
export async function buildWorker(root, target, minify) {
  const files = readdirSync(target, { recursive: true, withFileTypes: true })
    .filter((entry) => entry.isFile() && !/\.(gz|map)$|^worker\.js$/.test(entry.name))
    .map((entry) => path.relative(target, path.join(entry.parentPath ?? entry.path, entry.name)))
    .sort((one, other) => isHtml(one) - isHtml(other) || (one < other ? -1 : 1));
  const version = createHash("sha256");
  const hashes = {};
  for (const file of files) {
    const bytes = readFileSync(path.join(target, file));
    version.update(file).update(bytes);
    hashes[file] = `sha256-${createHash("sha256").update(bytes).digest("base64")}`;
  }
  await build({
    entryPoints: [path.join(root, "Apps/Web/Page/Worker/worker.ts")],
    outfile: path.join(target, "worker.js"),
    bundle: true,
    format: "iife",
    target: ["es2022", "chrome111", "firefox114", "safari16.4"],
    minify,
    legalComments: "none",
    define: { pageFiles: JSON.stringify(hashes), pageVersion: JSON.stringify(version.digest("hex").slice(0, 12)) },
    logLevel: "warning",
  });
}
