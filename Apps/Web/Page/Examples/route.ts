import "orivanta/element";

export function showRoute(place: Element, endpoint: string, venue: string): void {
  const map = document.createElement("orivanta-map");
  const steps = document.createElement("ol");
  map.endpoint = endpoint;
  map.venue = venue;
  map.profile = "step-free";
  map.addEventListener("load", ({ detail }) => {
    const places = detail.venue.places.filter((each) => each.nodes.length > 0);
    map.from = places.at(0)?.id ?? null;
    map.to = places.at(-1)?.id ?? null;
  });
  map.addEventListener("route", ({ detail }) => {
    const texts = detail.guidance?.steps.map((step) => step.text) ?? [detail.problem?.text ?? ""];
    steps.replaceChildren(...texts.map((text) => Object.assign(document.createElement("li"), { textContent: text })));
  });
  place.append(map, steps);
}
