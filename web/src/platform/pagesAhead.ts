// The pages of a collection are linked by the header `Link`. The C++ code asks for the next page when it has read one;
// here, the requests for further pages are sent as soon as the header is there.

/** How many pages are requested that the C++ code has not asked for. */
const mostAhead = 4;
const patienceMilliseconds = 10_000;

/** A request that was sent already. */
export interface SentRequest {
  readonly response: Promise<Response>;
  abort(): void;
}

interface Page extends SentRequest {
  readonly timer: ReturnType<typeof setTimeout>;
}

const keyOf = (url: string, fields: readonly [string, string][]): string => JSON.stringify([url, fields]);

/**
 * Returns the address of a link, if it has the origin of the request: a server to which a response was redirected gets
 * no account.
 */
export function linkOf(response: Response, relation: string, requested: string): string | undefined {
  const pattern = new RegExp(`<([^>]*)>\\s*;[^,]*\\brel="?${relation}\\b`, "i");
  const link = pattern.exec(response.headers.get("Link") ?? "")?.[1];
  if (link === undefined) return undefined;
  try {
    const url = new URL(link, response.url);
    return url.origin === new URL(requested).origin ? url.href : undefined;
  } catch {
    return undefined;
  }
}

const pageNumber = /(?<=[?&]page=)\d+(?=&|$)/;

/** Returns the addresses of pages, the next one first: more than that one if they differ only in a number. */
function pagesFrom(next: string, last: string | undefined): string[] {
  const at = (number: number) => next.replace(pageNumber, String(number));
  const [first, end] = [next, last ?? ""].map((url) => Number(pageNumber.exec(url)?.[0] ?? NaN)) as [number, number];
  if (at(end) !== last || !(first <= end)) return [next];
  return Array.from({ length: Math.min(end - first + 1, mostAhead) }, (_, index) => at(first + index));
}

/** The requests for further pages. Those that nobody takes end after some seconds. */
export class PagesAhead {
  readonly #pages = new Map<string, Page>();
  #isRight = true; // no page was requested in vain

  /** Sends the requests for the pages after the response to a request, with the same header fields. */
  follow(requested: string, response: Response, fields: [string, string][]): void {
    if (!this.#isRight || response.status !== 200 || !/\bjson\b/i.test(response.headers.get("Content-Type") ?? "")) return;
    const next = linkOf(response, "next", requested);
    if (next === undefined) return;
    for (const url of pagesFrom(next, linkOf(response, "last", requested))) {
      const key = keyOf(url, fields);
      if (!this.#pages.has(key)) this.#pages.set(key, this.#send(key, url, fields));
    }
  }

  /** Returns the request for a page, if it was sent, and leaves it to the caller. */
  take(url: string, fields: [string, string][]): SentRequest | undefined {
    const key = keyOf(url, fields);
    const page = this.#pages.get(key);
    if (page) clearTimeout(page.timer);
    this.#pages.delete(key);
    return page;
  }

  /** Ends all requests that nobody has taken. */
  clear(): void {
    for (const page of this.#pages.values()) {
      clearTimeout(page.timer);
      page.abort();
    }
    this.#pages.clear();
  }

  #send(key: string, url: string, fields: [string, string][]): Page {
    const controller = new AbortController();
    const end = () => {
      this.#isRight = false;
      this.#pages.delete(key);
      controller.abort();
    };
    const response = fetch(url, { headers: fields, credentials: "omit", signal: controller.signal });
    response.catch(() => {}); // nobody may take it
    return { response, abort: () => controller.abort(), timer: setTimeout(end, patienceMilliseconds) };
  }
}
