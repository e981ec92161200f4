// The lowest rate at which the bytes of a response must arrive.

/**
 * Ends a request if too few bytes arrive within a window. The first window begins with the request,
 * and again with its response; each further one begins when the previous one ends.
 */
export class RateLimit {
  /** Why the request was ended; empty if it was not. */
  problem = "";

  readonly #bytesPerSecond: number;
  readonly #seconds: number;
  readonly #controller: AbortController;
  #bytes = 0;
  #timer: ReturnType<typeof setInterval> | undefined;

  constructor(bytesPerSecond: number, seconds: number, controller: AbortController) {
    this.#bytesPerSecond = bytesPerSecond;
    this.#seconds = Math.max(seconds, 1);
    this.#controller = controller;
    controller.signal.addEventListener("abort", () => this.end());
    this.begin();
  }

  begin(): void {
    this.end();
    this.#bytes = 0;
    this.#timer = setInterval(() => this.#judge(), this.#seconds * 1000);
  }

  count(bytes: number): void {
    this.#bytes += bytes;
  }

  end(): void {
    clearInterval(this.#timer);
  }

  #judge(): void {
    const isTooSlow = this.#bytes < this.#bytesPerSecond * this.#seconds;
    this.#bytes = 0;
    if (!isTooSlow) return;
    this.problem = `Operation too slow. Less than ${this.#bytesPerSecond} bytes/sec transferred the ` +
      `last ${this.#seconds} seconds`;
    this.#controller.abort();
  }
}
