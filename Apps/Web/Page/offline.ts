// The page without a connection: starts the service worker, says when stored data is shown and from when, and
// loads again as soon as the server answers.

import type { App } from "./app.js";
import { showNotice, type Notice } from "./notices.js";

const firstPause = 4_000;
const longestPause = 60_000;
const mostAsked = 4; // of the requests that have failed

// Undefined if the page was loaded from a server without HTTPS.
const workers = navigator.serviceWorker as ServiceWorkerContainer | undefined;
const isFirst = !workers?.controller;

/** Starts the service worker. Resolves when it sees the page's requests, or cannot. */
export async function startWorker(): Promise<void> {
  if (!workers) return;
  const controlled = new Promise((resolve) => workers.addEventListener("controllerchange", resolve, { once: true }));
  // A registration waits for the server, so nothing waits for it once there is a worker. After a forced reload,
  // there is one that does not see the requests. Without a worker, the page needs a connection.
  const registered = workers
    .register("worker.js", { updateViaCache: "none" })
    .then(({ active }) => (active ? undefined : controlled), () => {});
  if (isFirst) await Promise.race([registered, new Promise((resolve) => setTimeout(resolve, 1_500))]);
}

/** Watches the connection. */
export class Connection {
  /** Whether a newer version of the page is stored, which a reload shows. */
  isPageOutdated = false;

  readonly #app: App;
  readonly #reload: () => Promise<void>;
  /** When the oldest of the shown data was sent; null if all comes from the server. */
  #shownSince: number | null = null;
  /** The requests that were not answered. */
  readonly #failed = new Set<string>();
  #notice: Notice | null = null;
  #pause = firstPause;
  #timer: ReturnType<typeof setTimeout> | undefined;

  /** `reload` loads the data again. */
  constructor(app: App, reload: () => Promise<void>) {
    this.#app = app;
    this.#reload = reload;
  }

  /** Watches the service worker. */
  start(): void {
    this.#app.on(() => this.#appChanged());
    addEventListener("online", () => void this.#ask());
    document.addEventListener("visibilitychange", () => document.hidden || void this.#ask());
    workers?.addEventListener("message", (event: MessageEvent<{ storedAt?: number; failed?: string | null }>) => {
      const { storedAt, failed } = event.data;
      if (failed) this.#failed.add(failed);
      if (storedAt !== undefined) this.#storedShown(storedAt);
    });
    workers?.addEventListener("controllerchange", () => (this.isPageOutdated ||= !isFirst));
  }

  /** Looks for a newer version of the page. */
  async lookForUpdate(): Promise<void> {
    const registration = await workers?.getRegistration();
    await registration?.update().catch(() => {});
  }

  #storedShown(time: number): void {
    this.#shownSince = Math.min(this.#shownSince ?? time, time);
    const date = new Date(this.#shownSince).toLocaleString(this.#app.texts.language, {
      dateStyle: "medium",
      timeStyle: "short",
    });
    const text = this.#app.t("connection.lost", { date });
    if (this.#notice) this.#notice.setText(text);
    else this.#notice = showNotice(text, { isStanding: true });
    this.#schedule();
  }

  #appChanged(): void {
    if (this.#isWaiting) this.#schedule();
  }

  #schedule(): void {
    if (this.#timer !== undefined) return;
    this.#timer = setTimeout(() => void this.#ask(), this.#pause);
    this.#pause = Math.min(this.#pause * 1.5, longestPause);
  }

  get #isWaiting(): boolean {
    return this.#shownSince !== null || this.#app.isOutdated || this.#app.failure?.way === "retry";
  }

  // Loads again as soon as one of the requests that have failed is answered: others may fail as long as they like.
  async #ask(): Promise<void> {
    clearTimeout(this.#timer);
    this.#timer = undefined;
    if (!this.#isWaiting) return;
    const urls = [...this.#failed].slice(-mostAsked);
    if (urls.length === 0) urls.push(new URL("venue", this.#app.server.endpoint).href);
    if ((await Promise.all(urls.map(isAnswered))).includes(true)) await this.#back();
    else this.#schedule();
  }

  async #back(): Promise<void> {
    workers?.controller?.postMessage("server answered");
    const hadStored = this.#shownSince !== null;
    this.#shownSince = null;
    this.#failed.clear();
    this.#notice?.remove();
    this.#notice = null;
    await this.#reload();
    if (this.#shownSince !== null || this.#app.isOutdated || this.#app.failure) return;
    this.#pause = firstPause;
    if (hadStored) showNotice(this.#app.t("connection.back"), { seconds: 6 });
  }
}

// Any answer is a sign of life, also "not found" or "unauthorized".
async function isAnswered(url: string): Promise<boolean> {
  try {
    const signal = AbortSignal.timeout(5_000);
    const { status } = await fetch(url, { method: "HEAD", cache: "no-store", credentials: "omit", signal });
    return ![502, 503, 504].includes(status);
  } catch {
    return false;
  }
}
