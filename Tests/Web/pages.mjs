// Shared by the tests of the page that the server hands out.

import assert from "node:assert/strict";
import { after, before } from "node:test";

import { launchBrowser, servePage, Tab } from "./browser.mjs";

/** The browser and the address of the page while the tests of a file run. */
export const shared = { browser: null, home: "" };

/** Starts the browser and the server of the demo venue for the tests of a file. */
export function shareBrowser() {
  let server;
  before(async () => {
    shared.browser = await launchBrowser();
    server = await servePage();
    shared.home = new URL("/", server.endpoint).href;
  });
  after(async () => {
    await shared.browser?.close();
    server?.stop();
  });
}

/** Opens the page, in a tab that the end of the test checks and closes. `prepare` runs in the tab before the page. */
export async function open(t, query = "", { prepare, ...options } = {}) {
  const tab = await Tab.open(shared.browser, options);
  t.after(() => tab.close());
  if (prepare) await tab.page.evaluateOnNewDocument(prepare);
  await tab.page.goto(new URL(query, shared.home).href);
  return tab;
}

/** Opens the page and waits for the panel of a venue. */
export async function openVenue(t, query, options) {
  const tab = await open(t, query, options);
  await tab.page.waitForSelector("[data-view=map] .panel-content > *");
  return tab;
}

/** Waits until the map shows its first floor. */
export const mapIsShown = ({ page }) =>
  page.waitForFunction(() => document.querySelector(".map canvas") && document.querySelector(".veil").hidden);

/** Fails if axe-core finds violations of WCAG 2.2 AA. */
export const accessible = async (tab, state) => assert.deepEqual(await tab.violations(), [], state);

/** The parameters of the page's address. */
export const query = (tab) => Object.fromEntries(new URL(tab.page.url()).searchParams);

/** Waits until the address has a parameter with a value; null if it has none. */
export const waitForAddress = (tab, name, value) =>
  tab.page.waitForFunction((n, v) => new URL(location.href).searchParams.get(n) === v, {}, name, value);
