import "orivanta/element";

export function showTaps(place: Element, endpoint: string, venue: string): void {
  const map = document.createElement("orivanta-map");
  const name = document.createElement("output");
  name.textContent = "Tap a place.";
  map.endpoint = endpoint;
  map.venue = venue;
  map.addEventListener("tap", ({ detail }) => {
    map.place = detail.place?.id ?? null;
    name.textContent = detail.place?.name ?? "There is no place.";
  });
  place.append(map, name);
}
