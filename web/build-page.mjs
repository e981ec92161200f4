// Builds the page of Apps/Web/Page into build/web/page: bundles its code with the package in dist/, adds hashes
// to the names of the files, writes the HTML pages and the service worker, and compresses all of them.
// Usage: node build-page.mjs [--no-minify]

import { execFileSync } from "node:child_process";
import { copyFileSync, mkdirSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";

import { buildWorker } from "./build-worker.mjs";
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

// "source:map.ts" is the text of an example.
const sources = {
  name: "sources",
  setup({ onResolve, onLoad }) {
    onResolve({ filter: /^source:/ }, ({ path: name }) => ({ path: name.slice(7), namespace: "sources" }));
    onLoad({ filter: /./, namespace: "sources" }, ({ path: name }) => ({
      contents: readFileSync(path.join(source, "Examples", name), "utf8"),
      loader: "text",
    }));
  },
};

// The package finds the files of languages by their URLs. Here, their names get hashes.
const languages = {
  name: "languages",
  setup({ onLoad }) {
    onLoad({ filter: /\bdist.languages\.js$/ }, ({ path: file }) => {
      const imports = [];
      const code = readFileSync(file, "utf8").replace(/(?<=new URL\()"\S+"(?=,\s*import\.meta\.url)/g, (name) => {
        imports.push(`import file${imports.length} from ${name};`);
        return `file${imports.length - 1}`;
      });
      return { contents: [...imports, code].join("\n") };
    });
  },
};

const examples = path.join(source, "Examples/examples");

rmSync(target, { recursive: true, force: true });
mkdirSync(target, { recursive: true });
const { metafile } = await build({
  absWorkingDir: root,
  entryPoints: [path.join(source, "main.ts"), path.join(source, "page.css"), `${examples}.ts`, `${examples}.css`],
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
    "orivanta/core.data": path.join(root, "web/dist/core.data"),
    "orivanta/element": path.join(root, "web/dist/element.js"),
    orivanta: path.join(root, "web/dist/index.js"),
    uqr: path.join(root, "web/node_modules/uqr"),
  },
  loader: { ".data": "file", ".mo": "file", ".svg": "dataurl", ".wasm": "file" },
  plugins: [languages, texts, sources],
  logLevel: "warning",
});

const outputOf = (entry) => Object.entries(metafile.outputs).find(([, { entryPoint }]) => entryPoint?.endsWith(entry));
const output = (entry) => path.basename(outputOf(entry)[0]);
// Browsers learn of the files that a file imports only when they have read it.
const preload = ({ path: file }) => `    <link rel="modulepreload" href="${path.basename(file)}">\n`;
const parts = outputOf("Page/main.ts")[1].imports.filter(({ kind }) => kind === "import-statement").map(preload).join("");
const asset = (pattern) => readdirSync(target).find((name) => pattern.test(name));
const places = {
  main: output("Page/main.ts"),
  parts,
  style: output("Page/page.css"),
  wasm: asset(/^core-.*\.wasm$/),
  data: asset(/^core-.*\.data$/),
  examples: output("Examples/examples.ts"),
  examplesStyle: output("Examples/examples.css"),
};
for (const file of [path.join(source, "index.html"), `${examples}.html`]) {
  const page = readFileSync(file, "utf8").replace(/\{(\w+)\}/g, (_, name) => places[name]);
  writeFileSync(path.join(target, path.basename(file)), page);
}
for (const file of ["app.webmanifest", "icon.svg"]) copyFileSync(path.join(source, file), path.join(target, file));
await buildWorker(root, target, !process.argv.includes("--no-minify"));
execFileSync(path.join(root, "cmake/gather-licenses"), ["page", path.join(target, "NOTICES.txt")]);

// The server sends these in place of the files. It would compress them less well.
const compressible = readdirSync(target).filter((name) => /\.(css|data|html|js|json|mo|svg|txt|wasm|webmanifest)$/.test(name));
execFileSync("zopfli", compressible.map((name) => path.join(target, name)));
