// Data of venue servers: the server is asked first, and a stored response is used if it does not answer soon.

import { isUnavailable, withinTime } from "./network.js";
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

let silentUntil = 0;
let patience = usualPatience;

/** The page has seen that the server answers again. */
export function serverAnswered(): void {
  silentUntil = 0;
  patience = longPatience;
}

/** Whether a request is one for data, and not for a video, a font and so on of the page. */
export function dataRequest({ url, destination }: Request): boolean {
  return url.startsWith("http") && (destination === "" || destination === "image");
}

/** Answers a request for data, and tells the page if the answer is a stored one. */
export async function answerData(event: FetchEvent): Promise<Response> {
  const { request } = event;
  const stored = await findStored(request);
  if (stored && Date.now() < silentUntil) return use(event, stored);
  // Requests that are not answered are ended, since browsers limit their number.
  const ending = new AbortController();
  request.signal.addEventListener("abort", () => ending.abort(request.signal.reason));
  const answer = fetch(request, { signal: ending.signal });
  const complete = answer.then(async (response) => {
    const body = await response.clone().arrayBuffer();
    return { whole: new Response(body, response), kept: keep(request, response, body) };
  });
  event.waitUntil(complete.then(({ kept }) => kept).catch(() => {}));
  try {
    if (!stored) return available(await answer);
    available(await withinTime(patience, answer));
    return (await withinTime(patienceToEnd, complete)).whole;
  } catch (error) {
    if (request.signal.aborted) throw error;
    const copy = stored ?? (await findStoredInAnyLanguage(request));
    if (!copy) return answer;
    ending.abort();
    silentUntil = Date.now() + pause;
    patience = usualPatience;
    return use(event, copy);
  }
}

function available(response: Response): Response {
  if (isUnavailable(response)) throw new Error(`the server answers with ${response.status}`);
  return response;
}

async function use(event: FetchEvent, { response, time }: Stored): Promise<Response> {
  const page = await self.clients.get(event.clientId);
  page?.postMessage({ storedAt: time });
  return response;
}
