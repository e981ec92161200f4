// The stored responses of venue servers, with their times. They belong to the account and the language of the
// requests.

const cacheName = "orivanta-data";
const timeField = "x-orivanta-stored";
const sizeField = "x-orivanta-size";

// Of all venues together.
const mostBytes = 300 * 1024 * 1024;
const mostResponses = 4_000;

/** A stored response. */
export interface Stored {
  readonly response: Response;
  /** When the server sent it, in milliseconds since 1970. */
  readonly time: number;
}

// A few bits are enough to tell accounts apart, and tell nothing about a password.
async function accountOf(request: Request): Promise<string> {
  const header = request.headers.get("Authorization") ?? "";
  const text = header === `Basic ${btoa(":")}` ? "" : header; // no account is as good as an empty one
  const digest = await crypto.subtle.digest("SHA-256", new TextEncoder().encode(text));
  return new Uint8Array(digest.slice(0, 2)).join("-");
}

const languageOf = (request: Request) => encodeURIComponent(request.headers.get("Accept-Language") ?? "");

async function addressOf(request: Request): Promise<string> {
  const account = await accountOf(request);
  return `https://stored.invalid/${account}/${encodeURIComponent(request.url)}?${languageOf(request)}`;
}

const storedOf = (response: Response | undefined): Stored | null =>
  response ? { response, time: Number(response.headers.get(timeField)) } : null;

/** Returns the stored response to a request. */
export async function findStored(request: Request): Promise<Stored | null> {
  const cache = await caches.open(cacheName);
  return storedOf(await cache.match(await addressOf(request)));
}

/** Returns the stored response to the same request with any languages. */
export async function findStoredInAnyLanguage(request: Request): Promise<Stored | null> {
  const cache = await caches.open(cacheName);
  return storedOf(await cache.match(await addressOf(request), { ignoreSearch: true }));
}

/** Stores the response to a request, and when it was sent, unless it must not be stored. */
export async function keep(request: Request, { status, type, headers }: Response, body: ArrayBuffer, time: number): Promise<void> {
  if (status !== 200 || type === "opaque" || /no-store/.test(headers.get("Cache-Control") ?? "")) return;
  const fields = new Headers(headers);
  fields.delete("Content-Encoding"); // the body is not compressed any more
  fields.delete("Content-Length");
  fields.set(timeField, String(time));
  fields.set(sizeField, String(body.byteLength));
  try {
    const cache = await caches.open(cacheName);
    await cache.put(await addressOf(request), new Response(body, { headers: fields }));
    scheduleRemoval();
  } catch (error) {
    if ((error as Error).name !== "QuotaExceededError") throw error;
    await removeOldest(mostBytes / 2);
  }
}

let removal: ReturnType<typeof setTimeout> | undefined;

function scheduleRemoval(): void {
  clearTimeout(removal);
  removal = setTimeout(() => void removeOldest(mostBytes), 2_000);
}

// A link can name any other server, whose data must not take the place of the page's own.
function isOwn({ url }: Request): boolean {
  const [, , address] = new URL(url).pathname.split("/");
  return address!.startsWith(encodeURIComponent(`${location.origin}/`));
}

/**
 * Removes responses until the others have at most this many bytes: those of other servers first, and the oldest first.
 */
export async function removeOldest(bytes: number): Promise<void> {
  const cache = await caches.open(cacheName);
  const entries = [];
  for (const request of await cache.keys()) {
    const headers = (await cache.match(request))?.headers;
    entries.push({ request, isOwn: Number(isOwn(request)), time: Number(headers?.get(timeField)), size: Number(headers?.get(sizeField)) });
  }
  entries.sort((one, other) => other.isOwn - one.isOwn || other.time - one.time);
  const { quota = Infinity } = await navigator.storage.estimate();
  let room = Math.min(bytes, quota / 2);
  for (const [index, { request, size }] of entries.entries()) {
    room -= size;
    if (room < 0 || index >= mostResponses) await cache.delete(request);
  }
}
