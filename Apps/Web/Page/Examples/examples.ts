// Examples of the element and the npm package, each with its source text: examples.html.

import { OrivantaMapElement } from "orivanta/element";

import { moduleFiles } from "../moduleFiles.js";
import { showMap } from "./map.js";
import mapText from "source:map.ts";
import { showRoute } from "./route.js";
import routeText from "source:route.ts";
import { showSearch } from "./search.js";
import searchText from "source:search.ts";
import { showTaps } from "./tap.js";
import tapText from "source:tap.ts";

OrivantaMapElement.files = moduleFiles;

const examples = [
  ["A map", "Floors are changed with the buttons or with the property floor.", mapText, showMap],
  ["A route", "The event route has the instructions.", routeText, showRoute],
  ["Taps", "The event tap has the place, the floor and the position.", tapText, showTaps],
  ["Search", "The package searches as a visitor types: with errors, by category, in several languages.", searchText, showSearch],
] as const;

async function start(): Promise<void> {
  const query = new URLSearchParams(location.search);
  const endpoint = new URL(query.get("endpoint") ?? "1/", document.baseURI).href;
  const response = await fetch(new URL("venue", endpoint), { credentials: "omit" });
  if (!response.ok) throw new Error(`${response.url}: ${response.status}`);
  const venue = query.get("venue") ?? ((await response.json()) as { slug: string }[])[0]?.slug;
  if (venue === undefined) throw new Error(`${endpoint} has no venues`);
  for (const [title, text, code, show] of examples) {
    const section = document.createElement("section");
    const heading = Object.assign(document.createElement("h2"), { textContent: title });
    const about = Object.assign(document.createElement("p"), { textContent: text });
    const live = Object.assign(document.createElement("div"), { className: "live" });
    const source = document.createElement("pre");
    source.tabIndex = 0;
    source.append(Object.assign(document.createElement("code"), { textContent: code }));
    section.append(heading, about, live, source);
    document.querySelector("main")!.append(section);
    await show(live, endpoint, venue, moduleFiles);
  }
}

start().catch((error: unknown) => {
  const problem = document.getElementById("problem")!;
  problem.hidden = false;
  problem.textContent = String(error);
});
