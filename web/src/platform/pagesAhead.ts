// The pages of a collection are linked by the header `Link`. The C++ code asks for the next page when it has read one;
// here, the request for it is sent as soon as the header is there.

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

/** Returns the address of the next page, if it has the origin of this one. */
function nextOf(response: Response): string | undefined {
  if (response.status !== 200 || !/\bjson\b/i.test(response.headers.get("Content-Type") ?? "")) return undefined;
  const link = /<([^>]*)>\s*;[^,]*\brel="?next\b/i.exec(response.headers.get("Link") ?? "")?.[1];
  if (link === undefined) return undefined;
  try {
    const url = new URL(link, response.url);
    return url.origin === new URL(response.url).origin ? url.href : undefined;
  } catch {
    return undefined;
  }
}

/** The requests for further pages. Those that nobody takes end after some seconds. */
export class PagesAhead {
  readonly #pages = new Map<string, Page>();

  /** Sends the requests for the pages after a response, with the same header fields. */
  follow(response: Response, fields: [string, string][], most = mostAhead): void {
    const url = most > 0 ? nextOf(response) : undefined;
    if (url === undefined) return;
    const key = keyOf(url, fields);
    const page = this.#pages.get(key) ?? this.#send(key, url, fields);
    page.response.then(
      (next) => this.follow(next, fields, most - 1),
      () => {},
    );
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
    const end = () => (this.#pages.delete(key), controller.abort());
    const page: Page = {
      response: fetch(url, { headers: fields, credentials: "omit", signal: controller.signal }),
      abort: () => controller.abort(),
      timer: setTimeout(end, patienceMilliseconds),
    };
    this.#pages.set(key, page);
    return page;
  }
}
