import { Orivanta, type ModuleFiles } from "orivanta";

export async function showSearch(place: Element, endpoint: string, venue: string, files: ModuleFiles): Promise<void> {
  const input = document.createElement("input");
  const list = document.createElement("ul");
  input.type = "search";
  input.placeholder = "Search places";
  input.setAttribute("aria-label", input.placeholder);
  place.append(input, list);

  // Bundlers that follow new URL("./core.wasm", import.meta.url) need no addresses of the module's files.
  const orivanta = await Orivanta.load(files);
  const loaded = await orivanta.venue(venue, { endpoint, languages: navigator.language });
  input.addEventListener("input", () => {
    const found = loaded.search(input.value).slice(0, 5);
    const lines = found.map(({ name, floors }) => `${name} (${floors.map((floor) => floor.shortName).join(", ")})`);
    list.replaceChildren(...lines.map((text) => Object.assign(document.createElement("li"), { textContent: text })));
  });
}
