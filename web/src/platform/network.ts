// The requests of the C++ code, sent by the browser. The other side is Platform/Network/Fetch, whose
// PageFunctions.hpp describes the functions.

import { BodyStart, hiddenLinkProblem, mayHideLink, ownOrigin } from "./hiddenLink.js";
import { PagesAhead } from "./pagesAhead.js";
import { RateLimit } from "./rateLimit.js";
import { bytesOf, headOf, latin1, requestOf } from "./requestTexts.js";

/** What the network code uses of the WebAssembly module. */
export interface NetworkModule {
  HEAPU8: Uint8Array;
  _orivantaFetchRoom(request: number, part: number, count: number): number;
  _orivantaFetchEnded(request: number, status: number): void;
}

/** The parts of a response, as in Transfers.hpp. */
const head = 0;
const body = 1;
const problem = 2;

/** The functions that PageFunctions.js calls, as `Module.platform.network`. */
export class Network {
  private readonly module: NetworkModule;
  private readonly running = new Map<number, AbortController>();
  private readonly ahead = new PagesAhead();

  constructor(module: NetworkModule) {
    this.module = module;
  }

  /** Starts a request. The result is reported in a later turn. */
  start(request: number, texts: number, count: number, bytesPerSecond: number, seconds: number): void {
    const address = this.textsAt(texts, count);
    const controller = new AbortController();
    this.running.set(request, controller);
    void this.run(request, address, controller, new RateLimit(bytesPerSecond, seconds, controller));
  }

  /** Ends a request without a report. */
  abort(request: number): void {
    this.running.get(request)?.abort();
    this.running.delete(request);
    this.ahead.clear();
  }

  /** Sends a request and reports the result before the call returns. The page stands still meanwhile. */
  loadNow(request: number, texts: number, count: number): void {
    const address = this.textsAt(texts, count);
    let status = 0;
    try {
      const { url, fields } = requestOf(address);
      const sent = new XMLHttpRequest();
      sent.open("GET", url, false);
      for (const [name, value] of fields) sent.setRequestHeader(name, value);
      // A synchronous request on the page's thread cannot return bytes, so each becomes a character.
      sent.overrideMimeType("text/plain; charset=x-user-defined");
      sent.send();
      const received = sent.getAllResponseHeaders().trim().split(/[\r\n]+/).filter(Boolean);
      const pairs = received.map((line): [string, string] => {
        const colon = line.indexOf(":");
        return [line.slice(0, colon), line.slice(colon + 1).trim()];
      });
      if (this.give(request, head, headOf(sent.responseURL, pairs)))
        this.give(request, body, bytesOf(sent.responseText));
      status = sent.status;
    } catch (error) {
      this.give(request, problem, new TextEncoder().encode(messageOf(error, address[0])));
    }
    this.module._orivantaFetchEnded(request, status);
  }

  private async run(
    request: number, address: string[], controller: AbortController, limit: RateLimit,
  ): Promise<void> {
    let status = 0;
    try {
      await null; // the call that starts a request never reports it
      const { url, fields } = requestOf(address);
      const headers = new Headers(fields);
      const response = await this.responseTo(url, fields, controller.signal);
      limit.begin();
      this.ahead.follow(url, response, fields);
      const start = mayHideLink(response) ? new BodyStart() : null;
      let hasRoom = this.give(request, head, headOf(response.url, [...response.headers]));
      const reader = response.body?.getReader();
      while (reader && hasRoom) {
        const { done, value } = await reader.read();
        if (done) break;
        limit.count(value.length);
        start?.add(value);
        hasRoom = this.give(request, body, value);
      }
      limit.end();
      if (!hasRoom) controller.abort();
      if (start && hasRoom) {
        const hidden = await hiddenLinkProblem(response, start, headers, controller.signal);
        if (hidden) this.give(request, problem, new TextEncoder().encode(hidden));
      }
      status = response.status;
    } catch (error) {
      this.give(request, problem, new TextEncoder().encode(limit.problem || messageOf(error, address[0])));
    }
    limit.end();
    if (this.running.delete(request)) this.module._orivantaFetchEnded(request, status);
  }

  // A page that was requested ahead, unless that has failed.
  private async responseTo(url: string, fields: [string, string][], signal: AbortSignal): Promise<Response> {
    const page = this.ahead.take(url, fields);
    if (page) {
      signal.addEventListener("abort", () => page.abort());
      if (signal.aborted) page.abort();
      try {
        return await page.response;
      } catch {
        // Sent again.
      }
    }
    return fetch(url, { headers: fields, credentials: "omit", signal });
  }

  /** Copies bytes to the C++ code. Returns false if the request must end. */
  private give(request: number, part: number, bytes: Uint8Array): boolean {
    const room = this.module._orivantaFetchRoom(request, part, bytes.length) >>> 0;
    if (room !== 0) this.module.HEAPU8.set(bytes, room);
    return room !== 0;
  }

  private textsAt(pointer: number, count: number): string[] {
    return latin1(this.module.HEAPU8.subarray(pointer, pointer + count)).split("\0").slice(0, -1);
  }
}

/** Browsers do not say that a server of another origin forbids a request. */
function messageOf(error: unknown, address = ""): string {
  const message = (error instanceof Error && error.message) || String(error);
  const own = ownOrigin();
  return own !== undefined && isForeign(address, own)
    ? `${message} (there is no connection, or the server does not allow requests from ${own})`
    : message;
}

function isForeign(address: string, own: string): boolean {
  try {
    return /^https?:/i.test(address) && new URL(address).origin !== own;
  } catch {
    return false;
  }
}
