// Writes the texts of the element, in all languages, to dist/element-texts.js. Usage: node element-texts.mjs

import { readdirSync, writeFileSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";

import { textsOf } from "./page-texts.mjs";

const web = path.dirname(fileURLToPath(import.meta.url));
const root = path.resolve(web, "..");
const keys = {
  loading: "page.loading",
  floors: "page.floors",
  retry: "retry",
  failed: "problem.venue",
  refused: "problem.rejected",
  silent: "problem.silent",
  unknown: "problem.unknown",
  fingers: "page.map.fingers",
  wheel: "page.map.wheel",
  control: "page.map.control",
};

const languages = readdirSync(path.join(root, "Resources/Languages")).filter((name) => name.endsWith(".po"));
const texts = Object.fromEntries(
  languages.sort().map((name) => {
    const language = path.basename(name, ".po");
    const all = textsOf(root, language);
    return [language, Object.fromEntries(Object.entries(keys).map(([name_, key]) => [name_, all[key]]))];
  }),
);
writeFileSync(path.join(web, "dist/element-texts.js"), `export default ${JSON.stringify(texts, null, 1)};\n`);
