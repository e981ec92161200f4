// Builds the page of Apps/Web/Page into build/web/page: bundles its code with the package in dist/, adds hashes
// to the names of the files, and writes index.html. Usage: node build-page.mjs [--no-minify]

import { cpSync, existsSync, mkdirSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";

import { textsOf } from "./page-texts.mjs";

const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), "..");
const source = path.join(root, "Apps/Web/Page");
const target = path.join(root, "build/web/page");

// "texts:de" is a JSON file with the page's texts in a language.
const texts = {
  name: "texts",
  setup({ onResolve, onLoad }) {
    onResolve({ filter: /^texts:/ }, ({ path: name }) => ({ path: `${name.slice(6)}.json`, namespace: "texts" }));
    onLoad({ filter: /./, namespace: "texts" }, ({ path: file }) => ({
      contents: JSON.stringify(textsOf(root, path.basename(file, ".json"))),
      loader: "file",
    }));
  },
};

rmSync(target, { recursive: true, force: true });
mkdirSync(target, { recursive: true });
const { metafile } = await build({
  absWorkingDir: root,
  entryPoints: [path.join(source, "main.ts"), path.join(source, "page.css")],
  outdir: target,
  entryNames: "[name]-[hash]",
  chunkNames: "[name]-[hash]",
  assetNames: "[name]-[hash]",
  bundle: true,
  splitting: true,
  format: "esm",
  target: ["es2022", "chrome111", "firefox114", "safari16.4"],
  minify: !process.argv.includes("--no-minify"),
  metafile: true,
  legalComments: "none",
  alias: {
    "orivanta/core.wasm": path.join(root, "web/dist/core.wasm"),
    orivanta: path.join(root, "web/dist/index.js"),
  },
  loader: { ".wasm": "file", ".svg": "dataurl" },
  plugins: [texts],
  logLevel: "warning",
});

const output = (entry) =>
  path.basename(Object.entries(metafile.outputs).find(([, { entryPoint }]) => entryPoint?.endsWith(entry))[0]);
const wasm = readdirSync(target).find((name) => /^core-.*\.wasm$/.test(name));
const page = readFileSync(path.join(source, "index.html"), "utf8")
  .replaceAll("{main}", output("Page/main.ts"))
  .replaceAll("{style}", output("Page/page.css"))
  .replaceAll("{core}", wasm);
writeFileSync(path.join(target, "index.html"), page);
const files = path.join(source, "Files");
if (existsSync(files)) cpSync(files, target, { recursive: true });
