// The recorded routes of real venues, computed by the module: path, cost and number of taken nodes of each,
// exactly. Also compares loads from a server with loads from records.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import path from "node:path";
import test from "node:test";

import { Orivanta, packagesIn, packageTexts, serve, venuesFolder } from "./support.mjs";

const packages = packagesIn(venuesFolder);
const skip = packages.length === 0 && "the real venues are not available";

// The accessible queries of this package are for a graph that no load builds.
const isBuiltDirectly = (name, accessible) => name === "tie-grid" && accessible;

const numberOf = (text) => (text === "inf" ? Infinity : Number(text));

function compareRoutes(name, venue, accessible) {
  const { queries } = JSON.parse(readFileSync(path.join(venuesFolder, name, "golden.json"), "utf8"));
  const compared = queries.filter((query) => query.accessible === accessible);
  assert.ok(compared.length > 50, `${name}: ${compared.length} queries`);
  const nodesNamed = (ids) => ids.map((id) => venue.nodeNamed(id)).filter(Boolean);
  for (const [index, query] of compared.entries()) {
    const route = venue.route(nodesNamed(query.start), nodesNamed(query.destination));
    const label = `${name}, ${accessible ? "accessible " : ""}route ${index}`;
    assert.deepEqual(route?.nodes.map((node) => node.id) ?? null, query.path, label);
    if (!route) continue;
    assert.ok(Object.is(route.cost, numberOf(query.cost)), `${label}: ${route.cost}, not ${query.cost}`);
    assert.equal(route.takenNodes, query.taken, label);
  }
  return compared.length;
}

test("recorded routes of records", { skip }, async (context) => {
  const orivanta = await Orivanta.load();
  let count = 0;
  for (const name of packages) {
    for (const accessible of [false, true]) {
      if (isBuiltDirectly(name, accessible)) continue;
      const venue = await orivanta.open(packageTexts(path.join(venuesFolder, name)), { accessible });
      count += compareRoutes(name, venue, accessible);
      venue.destroy();
    }
  }
  context.diagnostic(`${count} routes`);
  orivanta.destroy();
});

test("recorded routes of a server's venues", { skip }, async (context) => {
  const server = await serve(venuesFolder);
  context.after(server.stop);
  const orivanta = await Orivanta.load();
  const venues = await orivanta.venues({ endpoint: server.endpoint });
  let count = 0;
  for (const { slug } of venues) {
    const name = packages.find((each) =>
      JSON.parse(readFileSync(path.join(venuesFolder, each, "venue.json"), "utf8")).slug === slug);
    for (const accessible of [false, true]) {
      if (isBuiltDirectly(name, accessible)) continue;
      const pages = [];
      const venue = await orivanta.venue(slug, { accessible, onProgress: (each) => pages.push(each.pages) });
      assert.ok(pages.at(-1) >= 6);
      count += compareRoutes(name, venue, accessible);
      venue.destroy();
    }
  }
  context.diagnostic(`${count} routes of ${venues.length} venues`);
  assert.equal(venues.length, packages.length);
  orivanta.destroy();
});
