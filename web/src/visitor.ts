// What lists and cards say to visitors, in the languages of the instructions.

import type { Place } from "./records.js";

/** A place of a catalog. */
export interface CatalogPlace {
  readonly id: string;
  /** The name; that of a connector is the text on its sign, or the name of its kind. */
  readonly name: string;
  /** The kind of place, such as "toilet" or "shop". */
  readonly kind: string;
  /** The name of the first category; may be empty. */
  readonly category: string;
  /** The short names of its floors; may be empty. */
  readonly floors: string;
}

/** The places of one kind. Identifiers refer to `Catalog.places`. */
export interface CatalogGroup {
  /** "other" if the places belong to no kind. */
  readonly kind: string;
  readonly name: string;
  readonly places: readonly string[];
  /** The same places by category; one section without a title if there are no useful categories. */
  readonly sections: readonly { readonly title: string; readonly places: readonly string[] }[];
}

/** All places and connectors by kind, the most useful kinds first, and as people count within a kind. */
export interface Catalog {
  readonly groups: readonly CatalogGroup[];
  readonly places: readonly CatalogPlace[];
}

/** What the card of a place says. Empty texts are not shown. */
export interface Card {
  readonly title: string;
  /** The categories or the kind, and the floors. */
  readonly detail: string;
  readonly kind: string;
  /** Such as "Open until 20:00" or "Out of order". */
  readonly state: string;
  /** Whether it cannot be used now. */
  readonly isClosed: boolean;
  /** Whether it is among the closures. */
  readonly isOutOfOrder: boolean;
  /** From today on; empty if the hours are not known. */
  readonly week: readonly { readonly day: string; readonly hours: string }[];
  /** Opening hours that cannot be read, as the record has them. */
  readonly hours: string;
  readonly phone: string;
  /** As the record has it: any text. */
  readonly website: string;
  readonly description: string;
  /** The URL of a picture, or null. */
  readonly picture: string | null;
}

/** A destination that is the nearest of several places. */
export interface Nearest {
  /** Identifies the choice in the venue, in every language. */
  readonly key: string;
  /** Such as "Nearest toilet". */
  readonly title: string;
  /** Such as "Toilet". */
  readonly label: string;
  readonly kind: string;
  /** The identifiers of the places. */
  readonly places: readonly string[];
}

/** The options of `Venue.card`. */
export interface CardOptions {
  language: string;
  /** The local time at the venue, such as "2026-11-21T18:30". */
  now: string;
  /** Identifiers of what is closed. */
  closed?: readonly string[];
}

/** The options of `Venue.nearest`. */
export interface NearestOptions {
  language: string;
  /** Where the routes begin: its own kind is left out. */
  place?: Place;
  closed?: readonly string[];
}

/** A part of an icon. */
export interface IconPart {
  /** A path of an SVG document. */
  readonly path: string;
  /** Such as "#1f4da7". */
  readonly color: string;
  /** Of the line, which has round ends; 0 fills the path by the even-odd rule. */
  readonly width: number;
}

/** The icon of a kind: parts from back to front, on 24 by 24 units around the origin. */
export interface KindIcon {
  readonly kind: string;
  readonly parts: readonly IconPart[];
  /** The icon of what cannot be used. */
  readonly outOfOrder: readonly IconPart[];
}

// The module's paths have circles, "O x y r", and boxes with round corners, "B left top right bottom r".
function svgPath(path: string): string {
  return path.replace(/([OB])((?: ?-?[\d.]+)+)/g, (_, command: string, numbers: string) => {
    const values = numbers.trim().split(/ +/).map(Number);
    const size = command === "O" ? 3 : 5;
    let text = "";
    for (let i = 0; i + size <= values.length; i += size) {
      const [a, b, c, d, r] = values.slice(i, i + size) as [number, number, number, number, number];
      text +=
        command === "O"
          ? `M${a - c} ${b}a${c} ${c} 0 1 0 ${2 * c} 0a${c} ${c} 0 1 0 ${-2 * c} 0Z`
          : `M${a + r} ${b}H${c - r}a${r} ${r} 0 0 1 ${r} ${r}V${d - r}a${r} ${r} 0 0 1 ${-r} ${r}H${a + r}` +
            `a${r} ${r} 0 0 1 ${-r} ${-r}V${b + r}a${r} ${r} 0 0 1 ${r} ${-r}Z`;
    }
    return text;
  });
}

/** Makes icons of what the module writes. */
export function iconsOf(raw: readonly KindIcon[]): KindIcon[] {
  const partsOf = (parts: readonly IconPart[]) => parts.map((part) => ({ ...part, path: svgPath(part.path) }));
  return raw.map(({ kind, parts, outOfOrder }) => ({ kind, parts: partsOf(parts), outOfOrder: partsOf(outOfOrder) }));
}
