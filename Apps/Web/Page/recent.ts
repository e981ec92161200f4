// The places whose cards were shown last. They are kept as long as the page.

import type { App } from "./app.js";

const mostPlaces = 5;
const recent = new Map<string, string[]>(); // by the slug of the venue

export function rememberPlace(app: App, place: string): void {
  const slug = app.shown?.venue.slug;
  if (slug === undefined || !app.shown!.places.has(place)) return;
  const others = (recent.get(slug) ?? []).filter((each) => each !== place);
  recent.set(slug, [place, ...others].slice(0, mostPlaces));
}

/** Returns the places of the venue, the latest first. */
export function recentPlaces(app: App): readonly string[] {
  return recent.get(app.shown?.venue.slug ?? "") ?? [];
}

export function forgetPlaces(app: App): void {
  recent.clear();
  app.changed();
}
