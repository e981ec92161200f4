// The requests of the C++ code, sent by the browser. The other side is Platform/Network/Fetch, whose
// PageFunctions.hpp describes the functions.

import { BodyStart, hiddenLinkProblem, mayHideLink, ownOrigin } from "./hiddenLink.js";

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

interface Request {
  url: string;
  fields: [string, string][];
}

/** The functions that PageFunctions.js calls, as `Module.platform.network`. */
export class Network {
  private readonly module: NetworkModule;
  private readonly running = new Map<number, AbortController>();

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
      const response = await fetch(url, { headers, credentials: "omit", signal: controller.signal });
      limit.begin();
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

/**
 * Ends a request if too few bytes arrive within a window. The first window begins with the request,
 * and again with its response; each further one begins when the previous one ends.
 */
class RateLimit {
  /** Why the request was ended; empty if it was not. */
  problem = "";

  private readonly bytesPerSecond: number;
  private readonly seconds: number;
  private readonly controller: AbortController;
  private bytes = 0;
  private timer: ReturnType<typeof setInterval> | undefined;

  constructor(bytesPerSecond: number, seconds: number, controller: AbortController) {
    this.bytesPerSecond = bytesPerSecond;
    this.seconds = Math.max(seconds, 1);
    this.controller = controller;
    controller.signal.addEventListener("abort", () => this.end());
    this.begin();
  }

  begin(): void {
    this.end();
    this.bytes = 0;
    this.timer = setInterval(() => this.judge(), this.seconds * 1000);
  }

  count(bytes: number): void {
    this.bytes += bytes;
  }

  end(): void {
    clearInterval(this.timer);
  }

  private judge(): void {
    const isTooSlow = this.bytes < this.bytesPerSecond * this.seconds;
    this.bytes = 0;
    if (!isTooSlow) return;
    this.problem = `Operation too slow. Less than ${this.bytesPerSecond} bytes/sec transferred the ` +
      `last ${this.seconds} seconds`;
    this.controller.abort();
  }
}

/** Browsers reject URLs with credentials, so they are sent as a header field. */
function requestOf([address = "", ...texts]: string[]): Request {
  if (!/^https?:\/\/./i.test(address)) throw new TypeError(`${address} is not an http or https URL`);
  const fields: [string, string][] = [];
  for (let i = 0; i + 1 < texts.length; i += 2) fields.push([texts[i]!, texts[i + 1]!]);
  const url = new URL(address);
  const { username, password } = url;
  url.username = url.password = "";
  if ((username || password) && !fields.some(([name]) => /^authorization$/i.test(name))) {
    const pair = new TextEncoder().encode(decodeURIComponent(`${username}:${password}`));
    fields.push(["Authorization", `Basic ${btoa(latin1(pair))}`]);
  }
  return { url: url.href, fields };
}

/** The URL, then names and values, each ended by "\0". Header fields have a byte for each character. */
function headOf(url: string, fields: [string, string][]): Uint8Array {
  const texts = [url, ...fields.flat()].map((text) => `${text}\0`).join("");
  return Uint8Array.from(texts, (letter) => letter.charCodeAt(0));
}

/** The bytes of a text that was received as "x-user-defined". */
function bytesOf(text: string): Uint8Array {
  const bytes = new Uint8Array(text.length);
  for (let i = 0; i < text.length; ++i) {
    const code = text.charCodeAt(i);
    // The text begins with a byte order mark, which takes precedence.
    if (code > 0x7f && (code < 0xf780 || code > 0xf7ff)) return new TextEncoder().encode(text);
    bytes[i] = code; // the lower byte
  }
  return bytes;
}

function latin1(bytes: Uint8Array): string {
  return Array.from(bytes, (byte) => String.fromCharCode(byte)).join("");
}

/** Browsers do not say that a server of another origin forbids a request. */
function messageOf(error: unknown, address = ""): string {
  const message = (error instanceof Error && error.message) || String(error);
  const own = ownOrigin();
  const isForeign = own && /^https?:/i.test(address) && !address.startsWith(`${own}/`);
  return isForeign
    ? `${message} (there is no connection, or the server does not allow requests from ${own})`
    : message;
}
