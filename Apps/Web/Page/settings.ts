// What the user chooses about the look of the page. The browser keeps it.

import { bestLanguage } from "orivanta";

/** The choices. */
export interface Choices {
  /** A tag of `languages`. */
  readonly language: string;
  readonly theme: "automatic" | "light" | "dark";
  /** Of all texts; 1 for the usual size. */
  readonly textSize: number;
  readonly highContrast: boolean;
}

/** The sizes of texts that can be chosen. */
export const textSizes = [1, 1.25, 1.5, 2] as const;

const storageKey = "orivanta-settings";

function kept(): Partial<Choices> {
  try {
    const value: unknown = JSON.parse(localStorage.getItem(storageKey) ?? "{}");
    return typeof value === "object" && value !== null ? value : {};
  } catch {
    return {}; // storage that the browser forbids, or something else under this key
  }
}

/** Holds the choices and applies them to the document. */
export class Settings {
  #choices: Choices;
  readonly #handlers = new Set<(choices: Choices, former: Choices) => void>();
  readonly #dark = matchMedia("(prefers-color-scheme: dark)");
  readonly #contrast = matchMedia("(prefers-contrast: more)");

  /** `query` may have "language", "theme", "text" and "contrast", which precede what the browser keeps. */
  constructor(query: URLSearchParams) {
    const stored = kept();
    const language = query.get("language") ?? stored.language;
    const theme = query.get("theme") ?? stored.theme;
    this.#choices = {
      language: bestLanguage([language ?? [], ...navigator.languages].join()),
      theme: theme === "light" || theme === "dark" ? theme : "automatic",
      textSize: textSizes.find((size) => size === Number(query.get("text") ?? stored.textSize)) ?? 1,
      highContrast: query.has("contrast") || (stored.highContrast ?? this.#contrast.matches),
    };
    this.#apply();
    this.#dark.addEventListener("change", () => this.#notify(this.#choices));
  }

  get choices(): Choices {
    return this.#choices;
  }

  /** Whether the look is dark. */
  get isDark(): boolean {
    const { theme } = this.#choices;
    return theme === "automatic" ? this.#dark.matches : theme === "dark";
  }

  change(choices: Partial<Choices>): void {
    const former = this.#choices;
    this.#choices = { ...former, ...choices };
    try {
      localStorage.setItem(storageKey, JSON.stringify(this.#choices));
    } catch {
      // Without storage, the choices last as long as the page.
    }
    this.#notify(former);
  }

  /** Adds a handler, which is also called when the device becomes dark or light. */
  on(handler: (choices: Choices, former: Choices) => void): void {
    this.#handlers.add(handler);
  }

  #notify(former: Choices): void {
    this.#apply();
    for (const handler of this.#handlers) handler(this.#choices, former);
  }

  #apply(): void {
    const root = document.documentElement;
    root.dataset["theme"] = this.isDark ? "dark" : "light";
    root.dataset["contrast"] = this.#choices.highContrast ? "high" : "normal";
    root.style.setProperty("--text-scale", String(this.#choices.textSize));
  }
}
