// Data of venue servers: the server is asked first, and a stored response is used if it does not answer soon.

import { isUnavailable, LateError, withinTime } from "./network.js";
import { quiet } from "./quiet.js";
import { findStored, findStoredInAnyLanguage, keep, type Stored } from "./store.js";

declare const self: ServiceWorkerGlobalScope;

// How long the server may take to begin if there is a stored response, in milliseconds: usually, and after the page
// has seen that it answers, so that a slow server is not taken for one that is not there.
const usualPatience = 5_000;
const longPatience = 15_000;
// How long it may take altogether.
const patienceToEnd = 20_000;
// How long a server that did not answer is not asked again, as long as stored responses suffice.
const pause = 10_000;

const silentUntil = new Map<string, number>(); // by origin
let patience = usualPatience;

/** The page has seen that the server answers again. */
export function serverAnswered(): void {
  silentUntil.clear();
  patience = longPatience;
}

/** Whether a request is one for data, and not for a video, a font and so on of the page. */
export function dataRequest({ url, destination }: Request): boolean {
  return url.startsWith("http") && (destination === "" || destination === "image");
}

/** Answers a request for data, and tells the page if the answer is a stored one. */
export async function answerData(event: FetchEvent): Promise<Response> {
  const { request } = event;
  const page = await self.clients.get(event.clientId);
  if (!page || !isPage(page.url)) return fetch(request);
  const { origin } = new URL(request.url);
  // The page waits for `failed`, a request that was not answered.
  const use = ({ response, time }: Stored, failed: string | null) => {
    page.postMessage({ storedAt: time, failed });
    return response;
  };
  const find = async () => (await findStored(request)) ?? (await findStoredInAnyLanguage(request));
  if (Date.now() < (silentUntil.get(origin) ?? 0)) {
    const stored = await find();
    if (stored) return use(stored, null);
  }
  // Requests that are not answered are ended, since browsers limit their number.
  const ending = new AbortController();
  request.signal.addEventListener("abort", () => ending.abort(request.signal.reason));
  const answer = fetch(request, { signal: ending.signal });
  const complete = answer.then(async (response) => {
    const body = await response.clone().arrayBuffer();
    const time = Date.now();
    return { response, kept: quiet().then(() => keep(request, response, body, time)) };
  });
  event.waitUntil(complete.then(({ kept }) => kept).catch(() => {}));
  const stored = await find();
  if (!stored) return answer;
  try {
    const response = await withinTime(patience, answer);
    if (isUnavailable(response)) return use(stored, request.url);
    return (await withinTime(patienceToEnd, complete)).response;
  } catch (error) {
    if (request.signal.aborted) throw error;
    ending.abort();
    if (error instanceof LateError) silentUntil.set(origin, Date.now() + pause);
    patience = usualPatience;
    return use(stored, request.url);
  }
}

// Other pages may lie in folders below the page.
function isPage(address: string): boolean {
  const { origin, pathname } = new URL(address);
  const path = (origin + pathname).slice(self.registration.scope.length);
  return (origin + pathname).startsWith(self.registration.scope) && ["", "index.html", "examples.html"].includes(path);
}
