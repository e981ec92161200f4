// The page's own files. Their names contain hashes, except for those of the HTML pages, so a stored file is never
// outdated, and files of different versions do not replace each other.

import { withinTime } from "./network.js";
import { quiet } from "./quiet.js";

declare const self: ServiceWorkerGlobalScope;

/**
 * The hashes of the files as in `RequestInit.integrity`, by their paths relative to the page, HTML pages last; and what
 * changes with them. See web/build-worker.mjs.
 */
declare const pageFiles: Readonly<Record<string, string>>;
declare const pageVersion: string;

const prefix = "orivanta-page-";
const cacheName = prefix + pageVersion;
const patience = 3_000;

const scope = () => self.registration.scope;
const hashes = () => Object.entries(pageFiles).map(([path, hash]) => [new URL(path, scope()).href, hash] as const);

let completion: Promise<void> | null = null;

/** Stores the files that are missing, and removes those of versions before the last one. */
export function completePage(): Promise<void> {
  completion ??= complete().catch(() => void (completion = null)); // the next request tries it again
  return completion;
}

async function complete(): Promise<void> {
  await quiet();
  const cache = await caches.open(cacheName);
  const stored = new Set((await cache.keys()).map((request) => request.url));
  for (const [url, integrity] of hashes()) {
    if (stored.has(url)) continue;
    // HTML pages have the same name in each version, so those of other versions do not count. They are stored when all
    // other files are there, and operators may change them. Another answer in place of a file, such as the start page of
    // a site whose files are being replaced, would be kept forever.
    const isFile = isPageFile(url);
    const former = isFile ? await caches.match(url) : undefined;
    const response = former ?? (await fetch(url, { cache: "no-cache", ...(isFile && { integrity }) }));
    if (!response.ok) throw new Error(`${url}: ${response.status}`);
    await cache.put(url, response);
  }
  // Open pages of the version before may still load some of their files.
  const versions = (await caches.keys()).filter((name) => name.startsWith(prefix) && name !== cacheName);
  for (const version of versions.slice(0, -1)) await caches.delete(version);
}

/** Whether a URL is one of the page's files with a hash in its name. */
export function isPageFile(url: string): boolean {
  return url.startsWith(scope()) && /^[^/?]+-[A-Za-z0-9_]{8}\.\w+$/.test(url.slice(scope().length));
}

/** Answers a request for such a file: with the stored one if there is one. */
export async function answerFile(request: Request): Promise<Response> {
  return (await caches.match(request.url)) ?? fetch(request);
}

/** Answers a request for an HTML page: with that of the server, or without an answer, with the stored one. */
export async function answerPage(request: Request): Promise<Response> {
  const url = new URL(request.url);
  url.search = url.hash = "";
  if (url.href === scope()) url.pathname += "index.html";
  // Until this version is complete, and so has an HTML page, the version before is used.
  const stored = (await (await caches.open(cacheName)).match(url.href)) ?? (await caches.match(url.href));
  if (!stored) return fetch(request);
  try {
    const response = await withinTime(patience, fetch(request));
    return response.status >= 500 ? stored : response;
  } catch {
    return stored;
  }
}
