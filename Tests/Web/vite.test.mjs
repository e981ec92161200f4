// The package as `npm pack` makes it, in a new project of Vite: Examples/Web. Its types, and those of all
// TypeScript examples in the documentation, are checked against the package as well.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { cpSync, mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import path from "node:path";
import test from "node:test";

import { build, createServer, preview } from "../../web/node_modules/vite/dist/node/index.js";
import { launchBrowser } from "./browser.mjs";
import { nativeBuild, root, serve } from "./support.mjs";

const web = path.join(root, "web");
const guides = path.join(root, "Docs/guides");

/** The TypeScript examples of a text, with the files and lines where they begin. */
function examplesOf(file) {
  const text = readFileSync(file, "utf8");
  return [...text.matchAll(/^```ts\n(.*?)^```/gms)].map((match) => ({
    name: `${path.basename(file, ".md")}-${text.slice(0, match.index).split("\n").length}.ts`,
    code: match[1],
  }));
}

// What the examples may use without declaring it.
const context = `import type * as package_ from "orivanta";
declare global {
  const orivanta: package_.Orivanta;
  const venue: package_.Venue;
}
`;

test("the package in a project of Vite", { timeout: 180_000 }, async (t) => {
  const project = mkdtempSync(path.join(tmpdir(), "orivanta-vite-"));
  t.after(() => rmSync(project, { recursive: true, force: true, maxRetries: 10 }));
  const run = (folder, program, ...options) =>
    execFileSync(program, options, { cwd: folder, encoding: "utf8", stdio: ["ignore", "pipe", "inherit"] });

  cpSync(path.join(root, "Examples/Web"), project, { recursive: true });
  const packed = JSON.parse(run(web, "npm", "pack", "--json", "--pack-destination", project))[0];
  writeFileSync(
    path.join(project, "package.json"),
    JSON.stringify({ private: true, type: "module", dependencies: { orivanta: `file:${packed.filename}` } }),
  );
  run(project, "npm", "install", "--offline", "--no-audit", "--no-fund", "--silent");

  await t.test("types of the examples", () => {
    const documents = readdirSync(guides).filter((name) => name.startsWith("web"));
    const files = [path.join(web, "README.md"), ...documents.map((name) => path.join(guides, name))];
    for (const { name, code } of files.flatMap(examplesOf))
      writeFileSync(path.join(project, name), `${code}\nexport {};\n`);
    writeFileSync(path.join(project, "context.d.ts"), context);
    execFileSync(process.execPath, [path.join(web, "node_modules/typescript/bin/tsc")], {
      cwd: project,
      stdio: "inherit",
    });
  });

  await build({ root: project, logLevel: "warn" });
  const built = await preview({ root: project, preview: { port: 0 }, logLevel: "warn" });
  const developed = await createServer({ root: project, server: { port: 0 }, logLevel: "warn" });
  await developed.listen();
  t.after(() => Promise.all([built.close(), developed.close()]));
  const origins = [built, developed].map((server) => new URL(server.resolvedUrls.local[0]).origin);
  const server = await serve(nativeBuild().demo, ...origins.flatMap((origin) => ["--allow-origin", origin]));
  t.after(server.stop);
  const browser = await launchBrowser();
  t.after(() => browser.close());

  const expected = readFileSync(path.join(root, "Tests/Golden/guide.en.txt"), "utf8").split("\n\n")[0].split("\n");
  for (const origin of origins)
    await t.test(origin === origins[0] ? "as it is built" : "as it is developed", async () => {
      const page = await browser.newPage();
      const faults = [];
      page.on("pageerror", (error) => faults.push(String(error)));
      await page.goto(`${origin}/?endpoint=${encodeURIComponent(server.endpoint)}`);
      await page.waitForFunction(() => document.querySelector("li"), { timeout: 30_000 }).catch(() => {});
      assert.deepEqual(faults, []);
      const steps = await page.$$eval("li", (items) => items.map((item) => `  ${item.textContent}`));
      const summary = await page.$eval("#summary", (each) => `  ${each.textContent}`);
      assert.deepEqual([...steps, summary], expected.slice(1));
      const canvas = await page.$("#map");
      await page.waitForFunction(() => document.querySelector("#map").width > 300);
      assert.ok((await canvas.screenshot()).length > 10_000, "the map is empty");
      await page.close();
    });
});
