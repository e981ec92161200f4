// The languages of instructions. English is a resource of the module; the others are files next to it.

import type { Engine } from "./engine.js";
import { OrivantaError } from "./errors.js";
import { bytesOf } from "./wasm.js";

// Each URL is written out, so that bundlers find the file.
const files: Readonly<Record<string, () => URL>> = {
  ar: () => new URL("./languages/ar.mo", import.meta.url),
  de: () => new URL("./languages/de.mo", import.meta.url),
  fr: () => new URL("./languages/fr.mo", import.meta.url),
  ja: () => new URL("./languages/ja.mo", import.meta.url),
};

/**
 * Returns the language of messages, such as "de", that fits a list of tags as in `Accept-Language` best, or "en".
 */
export function bestLanguage(preferred: string): string {
  const wanted = preferred.split(",").map((each) => {
    const [tag = "", weight] = each.split(";").map((part) => part.trim().toLowerCase());
    return { language: tag.split("-")[0]!, weight: weight ? Number(weight.replace("q=", "")) : 1 };
  });
  const found = wanted
    .filter(({ language, weight }) => weight > 0 && (language === "en" || Object.hasOwn(files, language)))
    .sort((left, right) => right.weight - left.weight);
  return found[0]?.language ?? "en";
}

/** The languages that a module has. */
export class Languages {
  readonly #engine: Engine;
  readonly #loads = new Map<string, Promise<void>>([["en", Promise.resolve()]]);

  constructor(engine: Engine) {
    this.#engine = engine;
  }

  /** Loads the best language for a list of tags, and returns its tag. */
  async load(preferred: string): Promise<string> {
    const language = bestLanguage(preferred);
    let load = this.#loads.get(language);
    if (!load) {
      load = this.#add(language);
      this.#loads.set(language, load);
      load.catch(() => this.#loads.delete(language));
    }
    await load;
    return language;
  }

  async #add(language: string): Promise<void> {
    const bytes = await bytesOf(files[language]!());
    const isAdded = this.#engine.withTexts([language, bytes], (core, ...places) =>
      core._orivantaAddLanguage(places[0]!, places[1]!, places[2]!, places[3]!),
    );
    if (!isAdded) throw new OrivantaError("unusable", `the file of the language "${language}" is damaged`);
  }
}
