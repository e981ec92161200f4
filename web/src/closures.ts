// What is closed in a venue at the moment, as its server says.

import { OrivantaError, type ErrorKind } from "./errors.js";
import { BodyStart, hiddenLinkProblem, mayHideLink } from "./platform/hiddenLink.js";
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
  if (server.username) {
    first.username = encodeURIComponent(server.username); // a percent sign in it, too
    first.password = encodeURIComponent(server.password ?? "");
  }
  const { url, fields } = requestOf([first.href]);
  const failed = (kind: ErrorKind) => (error: unknown) => {
    signal?.throwIfAborted();
    throw new OrivantaError(kind, `the closures of ${slug}: ${String(error)}`);
  };
  const closed: string[] = [];
  let next: string | undefined = url;
  for (let page = 0; next !== undefined && page < mostPages; ++page) {
    const request: RequestInit = { headers: fields, credentials: "omit", cache: "no-cache", signal: signal ?? null };
    const response: Response = await fetch(next, request).catch(failed("noAnswer"));
    const { status } = response;
    if (status === 404) return [];
    const kind = status === 401 || status === 403 ? "refused" : "otherStatus";
    if (!response.ok) throw new OrivantaError(kind, `the closures of ${slug}: ${status}`, status);
    const copy = mayHideLink(response) ? response.clone() : null;
    const records = (await response.json().catch(failed("unusable"))) as unknown;
    if (!Array.isArray(records)) return failed("unusable")("no list");
    if (copy) {
      const start = new BodyStart();
      start.add(new Uint8Array(await copy.arrayBuffer().catch(failed("noAnswer"))));
      const hidden = await hiddenLinkProblem(copy, start, new Headers(fields), signal);
      if (hidden) return failed("unusable")(hidden);
    }
    closed.push(...records.flatMap((record: { id?: unknown } | null) => (typeof record?.id === "string" ? [record.id] : [])));
    next = linkOf(response, "next", url);
  }
  return closed;
}
