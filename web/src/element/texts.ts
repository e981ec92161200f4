// What an element says, in the languages of the instructions.

import type { ErrorKind } from "../errors.js";
import { bestLanguage } from "../languages.js";
import type { RefusedGesture } from "../map/types.js";
import texts, { type ElementTexts } from "../element-texts.js";

/** Returns the texts for a language. */
export function textsFor(language: string): ElementTexts {
  return texts[bestLanguage(language)]!;
}

/** Returns which text describes an error. */
export function textOfKind(kind: ErrorKind): "refused" | "silent" | "unknown" | "failed" {
  if (kind === "refused" || kind === "notFound") return kind === "refused" ? "refused" : "unknown";
  return kind === "noAnswer" ? "silent" : "failed";
}

/** Returns how visitors move a map that leaves a gesture to the page. */
export function hintOf(gesture: RefusedGesture, language: string): string {
  const { fingers, wheel, control } = textsFor(language);
  const isApple = /Mac|iPhone|iPad/.test(navigator.platform);
  return gesture === "touch" ? fingers : wheel.replace("{key}", isApple ? "⌘" : control);
}
