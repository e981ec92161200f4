// Shared by the tests of pages: a server with the built page, Debian's Chromium, and pictures.

import assert from "node:assert/strict";
import { mkdirSync } from "node:fs";
import { createRequire } from "node:module";
import path from "node:path";

import { nativeBuild, root, serve } from "./support.mjs";

const require = createRequire(path.join(root, "web/package.json"));
const { default: puppeteer } = await import(require.resolve("puppeteer-core"));

/** Where the pictures of the tests are. */
export const pictures = path.join(root, "build/web/pictures");

/** The folder of the built page. */
export const pageFolder = path.join(root, "build/web/page");

/** Serves the demo venue, or other packages, with the page. See `serve`. */
export function servePage(...options) {
  const hasPackage = options.some((option, index) => !option.startsWith("--") && !options[index - 1]?.startsWith("--"));
  return serve("--web", pageFolder, ...options, ...(hasPackage ? [] : [nativeBuild().demo]));
}

/** Starts Chromium, without a window. The caller closes it. */
export function launchBrowser(...options) {
  return puppeteer.launch({
    executablePath: process.env.ORIVANTA_CHROMIUM ?? "/usr/bin/chromium",
    headless: true,
    args: ["--no-sandbox", "--use-angle=swiftshader", "--enable-unsafe-swiftshader", "--lang=en-US", ...options],
  });
}

/** A window of the browser. Errors of its page are kept and make `check` fail. */
export class Tab {
  #expected = [];

  constructor(page) {
    this.page = page;
    this.errors = [];
    const keep = (text) => {
      if (!this.#expected.some((pattern) => pattern.test(text))) this.errors.push(text);
    };
    page.on("pageerror", (error) => keep(`${error.message}\n${error.stack}`));
    page.on("console", (message) => {
      if (message.type() === "error") keep(`${message.text()} (${message.location().url})`);
    });
  }

  /** Opens a tab in a context of its own, without what other tabs have stored. Languages: "en" unless given. */
  static async open(browser, { width = 1280, height = 800, density = 1, isTouch = false, media = {}, language = "en" } = {}) {
    const context = await browser.createBrowserContext();
    const page = await context.newPage();
    await page.setViewport({ width, height, deviceScaleFactor: density, hasTouch: isTouch, isMobile: isTouch });
    await page.setExtraHTTPHeaders({ "Accept-Language": language });
    await page.evaluateOnNewDocument((tag) => {
      Object.defineProperty(navigator, "languages", { get: () => [tag] });
      Object.defineProperty(navigator, "language", { get: () => tag });
    }, language);
    await page.emulateMediaFeatures(Object.entries(media).map(([name, value]) => ({ name, value })));
    page.setDefaultTimeout(30_000);
    return new Tab(page);
  }

  /** Errors that the test causes on purpose. */
  expect(...patterns) {
    this.#expected.push(...patterns);
  }

  /** Fails if the page has reported errors. */
  check() {
    assert.deepEqual(this.errors, []);
  }

  /** Checks, and closes the tab with all that it has stored. */
  async close() {
    this.check();
    await this.page.browserContext().close();
  }

  /** Writes a picture of the page and returns its path. */
  async picture(name) {
    mkdirSync(pictures, { recursive: true });
    const file = path.join(pictures, `${name}.png`);
    await this.page.screenshot({ path: file });
    return file;
  }

  /** Waits until an element with a selector contains a text. */
  async waitForText(selector, text) {
    await this.page.waitForFunction(
      (where, what) => [...document.querySelectorAll(where)].some((element) => element.textContent.includes(what)),
      {},
      selector,
      text,
    );
  }

  /** Returns the texts of all elements with a selector. */
  texts(selector) {
    return this.page.$$eval(selector, (elements) => elements.map((element) => element.textContent.trim()));
  }

  /** Clicks the first visible element with a selector that contains a text. */
  async clickText(selector, text) {
    await this.waitForText(selector, text);
    await this.page.$$eval(
      selector,
      (elements, what) => elements.find((element) => element.textContent.includes(what)).click(),
      text,
    );
  }

  /** Returns the violations of WCAG 2.2 A and AA that axe-core finds, each as a line. */
  async violations() {
    await this.page.evaluate(axeSource());
    return this.page.evaluate(async () => {
      const { violations } = await axe.run(document, {
        runOnly: ["wcag2a", "wcag2aa", "wcag21a", "wcag21aa", "wcag22aa", "best-practice"],
      });
      return violations.flatMap(({ id, nodes }) => nodes.map((node) => `${id}: ${node.html.slice(0, 200)}: ${node.failureSummary}`));
    });
  }
}

let axe = null;

// The page's policy forbids scripts from elsewhere, but not those of the test.
function axeSource() {
  axe ??= require("axe-core").source;
  return axe;
}
