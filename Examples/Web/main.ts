// A route through the demo venue, with its instructions. Start a server first:
//
//   orivanta serve build/release/Resources/DemoVenue --port 8080 --allow-origin http://localhost:5173
//
// Another server is passed as http://localhost:5173/?endpoint=URL.

import { Orivanta } from "orivanta";

const element = (id: string) => document.getElementById(id) as HTMLElement;
const endpoint = new URLSearchParams(location.search).get("endpoint") ?? "http://localhost:8080/1/";

const orivanta = await Orivanta.load();
const [entry] = await orivanta.venues({ endpoint, languages: navigator.languages.join() });
if (!entry) throw new Error(`${endpoint} has no venues`);
const venue = await orivanta.venue(entry.slug);

const guidance = venue.guide({ from: "paper-kestrel", to: "popcorn-nebula", language: navigator.language });
const map = await venue.show(element("map"), { language: navigator.language });
if ("problem" in guidance) {
  element("summary").textContent = guidance.problem.text;
} else {
  map.showRoute(guidance);
  map.fit(guidance);
  element("summary").textContent = guidance.summary;
  for (const step of guidance.steps) {
    const item = document.createElement("li");
    item.textContent = step.text;
    element("steps").append(item);
  }
}
