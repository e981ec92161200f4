// The pages of a collection are linked by the header `Link`. A server of another origin must allow pages to read
// it; otherwise, a collection would end after its first page, without an error.

const comparedBytes = 4096;
const patienceMilliseconds = 10_000;

/** The origin of the page; undefined where there is none, as in Node.js. */
export function ownOrigin(): string | undefined {
  return (globalThis as { location?: Location }).location?.origin;
}

/** Keeps the beginning of a body. */
export class BodyStart {
  readonly #bytes = new Uint8Array(comparedBytes);
  #count = 0;

  add(bytes: Uint8Array): void {
    if (this.isFull) return;
    const added = bytes.subarray(0, comparedBytes - this.#count);
    this.#bytes.set(added, this.#count);
    this.#count += added.length;
  }

  get isFull(): boolean {
    return this.#count === comparedBytes;
  }

  /** Returns whether the body is a JSON array with elements. */
  get hasElements(): boolean {
    return /^\s*\[\s*[^\]\s]/.test(new TextDecoder().decode(this.#bytes.subarray(0, this.#count)));
  }

  equals(other: BodyStart): boolean {
    return this.#count === other.#count && this.#bytes.every((byte, index) => byte === other.#bytes[index]);
  }
}

/** Returns whether a response may be the first page of several whose `Link` cannot be read. */
export function mayHideLink(response: Response): boolean {
  const own = ownOrigin();
  const url = new URL(response.url);
  return (
    own !== undefined && url.origin !== own && response.status === 200 && !response.headers.has("Link") &&
    !url.searchParams.has("page") && /\bjson\b/i.test(response.headers.get("Content-Type") ?? "")
  );
}

/**
 * Asks the server for the second page of a collection. If there is one that is not the first again, returns what
 * the server must change; otherwise, or if the server does not answer, an empty text. Servers that number their
 * pages in another way than with the parameter `page` are not noticed.
 */
export async function hiddenLinkProblem(
  response: Response, firstPage: BodyStart, headers: Headers, signal?: AbortSignal,
): Promise<string> {
  if (!firstPage.hasElements) return "";
  const controller = new AbortController();
  const end = () => controller.abort();
  const timer = setTimeout(end, patienceMilliseconds);
  signal?.addEventListener("abort", end);
  const secondPage = new BodyStart();
  try {
    const url = new URL(response.url);
    url.searchParams.set("page", "2");
    const second = await fetch(url, { headers, credentials: "omit", signal: controller.signal });
    const reader = second.status === 200 ? second.body?.getReader() : undefined;
    while (reader && !secondPage.isFull) {
      const { done, value } = await reader.read();
      if (done) break;
      secondPage.add(value);
    }
  } catch {
    return "";
  } finally {
    clearTimeout(timer);
    signal?.removeEventListener("abort", end);
    controller.abort();
  }
  if (!secondPage.hasElements || secondPage.equals(firstPage)) return "";
  return `${response.url} has more pages, but the browser hides the link to the next one: the server must send ` +
    `"Access-Control-Expose-Headers: Link" to pages of ${ownOrigin()}`;
}
