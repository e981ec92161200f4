// The texts of the page, in the languages of the instructions. web/page-texts.mjs makes the files.

import ar from "texts:ar";
import de from "texts:de";
import en from "texts:en";
import fr from "texts:fr";
import ja from "texts:ja";

const files: Readonly<Record<string, string>> = { en, ar, de, fr, ja };

/** The languages with their own names, as a choice shows them. */
export const languages: readonly { readonly tag: string; readonly name: string }[] = [
  { tag: "en", name: "English" },
  { tag: "de", name: "Deutsch" },
  { tag: "fr", name: "Français" },
  { tag: "ja", name: "日本語" },
  { tag: "ar", name: "العربية" },
];

/** The messages of a language. */
export class Texts {
  readonly language: string;
  readonly isRightToLeft: boolean;
  readonly #messages: Readonly<Record<string, string | readonly string[]>>;
  // Made when they are needed, since the browser loads tables for them.
  #rules: Intl.PluralRules | null = null;
  #numbers: Intl.NumberFormat | null = null;

  private constructor(language: string, messages: Record<string, string | string[]>) {
    this.language = language;
    this.isRightToLeft = language === "ar";
    this.#messages = messages;
  }

  /** Loads the messages of a language. */
  static async load(language: string): Promise<Texts> {
    const response = await fetch(new URL(files[language] ?? en, document.baseURI));
    if (!response.ok) throw new Error(`${response.url}: ${response.status}`);
    return new Texts(language, (await response.json()) as Record<string, string | string[]>);
  }

  /** Returns the message with a key, with its placeholders replaced. `count` chooses the plural form. */
  text(key: string, values: Readonly<Record<string, string | number>> = {}): string {
    const message = this.#messages[key];
    if (message === undefined) return "";
    const form = typeof message === "string" ? message : this.#form(message, Number(values["count"]));
    return form.replace(/\{(\w+)\}/g, (placeholder, name: string) => {
      const value = values[name];
      return value === undefined ? placeholder : String(value);
    });
  }

  /** Returns a number with the separators of the language. */
  number(value: number): string {
    if (value < 1000) return String(value);
    this.#numbers ??= new Intl.NumberFormat(this.language === "ar" ? "ar-u-nu-latn" : this.language);
    return this.#numbers.format(value);
  }

  // Message files have the forms in the order of these categories, and languages with a form for all large
  // numbers have it last.
  #form(forms: readonly string[], count: number): string {
    const rules = (this.#rules ??= new Intl.PluralRules(this.language));
    const order = ["zero", "one", "two", "few", "many", "other"];
    const own = order.filter((category) => rules.resolvedOptions().pluralCategories.includes(category as Intl.LDMLPluralRule));
    const index = forms.length === own.length ? own.indexOf(rules.select(count)) : rules.select(count) === "one" ? 0 : 1;
    return forms[Math.max(0, Math.min(index, forms.length - 1))] ?? "";
  }
}
