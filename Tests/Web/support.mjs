// Shared by the tests of the web port: folders, packages and a local server.

import { spawn } from "node:child_process";
import { existsSync, readdirSync, readFileSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";

export { Orivanta, OrivantaError } from "../../web/dist/index.js";

export const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), "../..");

/** The real venues, which may be missing: see Tests/Support/Venues.hpp. */
export const venuesFolder = process.env.ORIVANTA_VENUES ?? path.join(root, "../shared/venues");

/** The names of the packages in a folder; empty if there is no folder. */
export function packagesIn(folder) {
  if (!existsSync(folder)) return [];
  return readdirSync(folder).sort().filter((name) => existsSync(path.join(folder, name, "venue.json")));
}

/** The texts of a package, as `Orivanta.open` takes them. */
export function packageTexts(folder) {
  const names = ["venue", "map", "location", "category", "node", "vortex", "polygon"];
  return Object.fromEntries(
    names.map((name) => [name, readFileSync(path.join(folder, `${name}.json`), "utf8")]),
  );
}

/** The first build of the native command and of the demo venue that exists. */
export function nativeBuild() {
  const builds = (process.env.ORIVANTA_BUILD ?? "release dev asan").split(" ");
  const folder = builds.map((name) => path.resolve(root, "build", name)).find((build) =>
    existsSync(path.join(build, "Apps/Command/orivanta")));
  if (!folder) throw new Error("there is no native build: run Scripts/build dev orivanta_command");
  return { command: path.join(folder, "Apps/Command/orivanta"), demo: path.join(folder, "Resources/DemoVenue") };
}

/** Serves packages on a free port. Returns the root of the API and a function that ends the server. */
export async function serve(...options) {
  const server = spawn(nativeBuild().command, ["serve", "--port", "0", ...options], {
    stdio: ["ignore", "pipe", "inherit"],
  });
  let printed = "";
  const endpoint = await new Promise((resolve, reject) => {
    server.stdout.on("data", (data) => {
      printed += data;
      const found = /http:\S+/.exec(printed);
      if (found) resolve(found[0]);
    });
    server.on("exit", (code) => reject(new Error(`the server ended with ${code}: ${printed}`)));
  });
  return { endpoint, stop: () => server.kill() };
}
