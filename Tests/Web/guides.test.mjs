// The instructions of routes through the demo venue, in every language, compared with those that the native
// program writes: Tests/Golden/guide.*.txt. The routes are those of Tests/Apps/DemoVenue/GuideListsTest.cpp.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import path from "node:path";
import test from "node:test";

import { nativeBuild, Orivanta, OrivantaError, root, serve } from "./support.mjs";

const requests = [
  { from: "paper-kestrel", to: "popcorn-nebula" },
  { from: "paper-kestrel", to: "popcorn-nebula", profile: "step-free" },
  { from: "lantern-market", to: "sundial-bar" },
  { from: "lantern-market", to: "sundial-bar", profile: "step-free" },
  { from: "quiet-room", to: "toilets-l2", profile: "no-escalator" },
  { from: "brass-heron", to: "cash-g" },
  { from: "ecliptic-1", to: "night-baker", profile: "prefer-lift" },
  { from: "otterly-shod", to: "tamarisk-row" },
  { from: "quiet-color", to: "north-star-outfitters" },
  { from: "cash-g", to: "small-observatory", via: ["wandering-button"] },
  { from: "undertow-gym", to: "star-deck", profile: "step-free", closed: ["lift-north"] },
  { from: "midnight-vinyl", nearest: "toilets" },
];

test("instructions", async (context) => {
  const server = await serve(nativeBuild().demo);
  context.after(server.stop);
  const orivanta = await Orivanta.load();
  for (const language of ["ar", "de", "en", "fr", "ja"]) {
    const [entry] = await orivanta.venues({ endpoint: server.endpoint, languages: language });
    const venue = await orivanta.venue(entry.slug);
    let text = "";
    for (const request of requests) {
      const guidance = venue.guide({ ...request, language });
      text += `${request.from} - ${request.to ?? request.nearest} (${request.profile ?? "fastest"})\n`;
      for (const step of guidance.steps) text += `  ${step.text}\n`;
      text += `  ${guidance.summary}\n\n`;
    }
    assert.equal(text, readFileSync(path.join(root, `Tests/Golden/guide.${language}.txt`), "utf8"));
    venue.destroy();
  }
  orivanta.destroy();
});

test("records, search and errors", async (context) => {
  const server = await serve(nativeBuild().demo);
  context.after(server.stop);
  const orivanta = await Orivanta.load();
  const rejects = (promise, kind) =>
    assert.rejects(promise, (error) => error instanceof OrivantaError && error.kind === kind);
  await rejects(orivanta.venues({ endpoint: "http://127.0.0.1:1/1/" }), "noAnswer");
  const [entry] = await orivanta.venues({ endpoint: server.endpoint.replace(/\/$/, "") });
  await rejects(orivanta.venue("nowhere"), "notFound");
  await assert.rejects(orivanta.venue(entry.slug, { signal: AbortSignal.abort() }), { name: "AbortError" });

  const venue = await orivanta.venue(entry.slug);
  assert.deepEqual(venue.problems, []);
  assert.deepEqual(venue.floors.map((floor) => floor.shortName).sort(), ["1", "2", "B1", "G", "R"]);
  const kestrel = venue.placeNamed("paper-kestrel");
  assert.ok(Object.isFrozen(kestrel) && Object.isFrozen(kestrel.nodes));
  assert.equal(kestrel.name, "The Paper Kestrel");
  assert.ok(kestrel.categories[0].places.includes(kestrel));
  assert.equal(venue.search("paper kestrl")[0].place, kestrel);
  assert.equal(venue.search("TOILETTE")[0].kind, "toilet");
  assert.deepEqual(venue.search("xyzzyx"), []);

  const nebula = venue.placeNamed("popcorn-nebula");
  const guidance = venue.guide({ from: kestrel, to: nebula, alternatives: 2 });
  assert.equal(guidance.steps[0].floor.shortName, "G");
  assert.ok(nebula.nodes.includes(guidance.nodes.at(-1)));
  assert.throws(() => venue.guide({ from: "no such place", to: kestrel }), { kind: "notFound" });
  assert.throws(() => venue.guide({ from: kestrel, to: kestrel, alternatives: "many" }), { kind: "invalid" });
  assert.equal(venue.guide({ from: kestrel, to: kestrel, closed: [kestrel.id] }).problem?.kind, "closed");
  assert.equal(venue.route(kestrel, []), null);

  venue.destroy();
  assert.throws(() => venue.route(kestrel, kestrel), { kind: "invalid" });
  orivanta.destroy();
  assert.throws(() => venue.search("x"), { name: "OrivantaError" });
});
