// What an element says, in the languages of the instructions.

import type { ErrorKind } from "../errors.js";
import texts, { type ElementTexts } from "../element-texts.js";

/** Returns the texts in a language, such as "de-AT", or in English. */
export function textsFor(language: string): ElementTexts {
  return texts[language.toLowerCase().split("-")[0]!] ?? texts["en"]!;
}

/** Returns which text describes an error. */
export function textOfKind(kind: ErrorKind): "refused" | "silent" | "unknown" | "failed" {
  if (kind === "refused" || kind === "notFound") return kind === "refused" ? "refused" : "unknown";
  return kind === "noAnswer" ? "silent" : "failed";
}
