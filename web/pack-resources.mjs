// Writes dist/core.data: the resources of the module, see Apps/Web/Resources.cpp. Usage: node pack-resources.mjs

import { mkdirSync, readdirSync, readFileSync, writeFileSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";

const web = path.dirname(fileURLToPath(import.meta.url));
const resources = path.join(web, "../Resources");
const filesIn = (folder) => readdirSync(folder).sort().map((name) => path.join(folder, name));
const bundles = {
  "org.orivanta.languages": [path.join(web, "../build/web/core/languages/en.mo")],
  "org.orivanta.sdk": filesIn(path.join(resources, "Sdk")),
  "org.orivanta.words": filesIn(path.join(resources, "Words")),
};

const contents = [];
const index = {};
for (const [identifier, files] of Object.entries(bundles)) {
  index[identifier] = {};
  for (const file of files) {
    const bytes = readFileSync(file);
    index[identifier][path.basename(file)] = bytes.length;
    contents.push(bytes);
  }
}
mkdirSync(path.join(web, "dist"), { recursive: true });
writeFileSync(path.join(web, "dist/core.data"), Buffer.concat([Buffer.from(`${JSON.stringify(index)}\n`), ...contents]));
