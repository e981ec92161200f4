// Later turns of the event loop.

const longestHold = 500; // milliseconds

/** Asks the event loop for turns. Timers would be slowed down by browsers. */
export class Turns {
  readonly #post: () => void;
  #isWanted = false;
  #hold: ReturnType<typeof setTimeout> | null = null;

  /** `turn` is called in later turns, until `end`. */
  constructor(turn: () => void, end: AbortSignal) {
    const immediate = (globalThis as { setImmediate?: (callback: () => void) => unknown }).setImmediate;
    // Node.js: a message channel would keep the process running.
    if (immediate) {
      this.#post = () => void immediate(turn);
      return;
    }
    const channel = new MessageChannel();
    channel.port1.onmessage = turn;
    // Browsers keep the port, and all that `turn` uses, as long as it is open.
    end.addEventListener("abort", () => (channel.port1.close(), this.release()));
    this.#post = () => channel.port2.postMessage(null);
  }

  /** Asks for a turn. */
  request(): void {
    if (this.#hold === null) this.#post();
    else this.#isWanted = true;
  }

  /** Lets turns wait until `release`, but not for long: a browser draws nothing for a page that is not shown. */
  hold(): void {
    this.#hold ??= setTimeout(() => this.release(), longestHold);
  }

  /** Whether turns wait. */
  get isHeld(): boolean {
    return this.#hold !== null;
  }

  release(): void {
    if (this.#hold === null) return;
    clearTimeout(this.#hold);
    this.#hold = null;
    if (this.#isWanted) this.#post();
    this.#isWanted = false;
  }
}
