// What is closed in a venue at the moment, as its server says.

import { OrivantaError } from "./errors.js";
import { linkOf } from "./platform/pagesAhead.js";
import { requestOf } from "./platform/requestTexts.js";

/** Where a venue was loaded from. */
export interface VenueServer {
  readonly endpoint: string;
  readonly username?: string | undefined;
  readonly password?: string | undefined;
}

const mostPages = 100;

/** Returns the identifiers of a venue's closures. A server without such a list has none. */
export async function closuresOf(server: VenueServer, slug: string, signal?: AbortSignal): Promise<string[]> {
  const first = new URL(`closure?venue=${encodeURIComponent(slug)}`, server.endpoint);
  if (server.username) Object.assign(first, { username: server.username, password: server.password ?? "" });
  const { url, fields } = requestOf([first.href]);
  const closed: string[] = [];
  let next: string | undefined = url;
  // The links are those of the same server, so that no other one gets the account.
  for (let page = 0; next !== undefined && page < mostPages; ++page) {
    const response: Response = await answerTo(next, { headers: fields, credentials: "omit", cache: "no-cache", signal: signal ?? null });
    if (response.status === 404) return [];
    if (!response.ok) {
      const kind = response.status === 401 || response.status === 403 ? "refused" : "otherStatus";
      throw new OrivantaError(kind, `${response.status} from ${next}`, response.status);
    }
    closed.push(...(await identifiersIn(response)));
    next = linkOf(response, "next");
  }
  return closed;
}

async function answerTo(url: string, request: RequestInit): Promise<Response> {
  try {
    return await fetch(url, request);
  } catch (error) {
    request.signal?.throwIfAborted();
    throw new OrivantaError("noAnswer", `no response from ${url}: ${String(error)}`);
  }
}

async function identifiersIn(response: Response): Promise<string[]> {
  try {
    const records = (await response.json()) as { id?: unknown }[];
    return records.flatMap(({ id }) => (typeof id === "string" ? [id] : []));
  } catch (error) {
    if (error instanceof DOMException) throw error; // aborted
    throw new OrivantaError("unusable", `the list from ${response.url} cannot be read: ${String(error)}`);
  }
}
