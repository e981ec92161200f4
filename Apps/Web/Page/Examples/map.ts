import "orivanta/element";

export function showMap(place: Element, endpoint: string, venue: string): void {
  const map = document.createElement("orivanta-map");
  map.endpoint = endpoint;
  map.venue = venue;
  place.append(map);
}
