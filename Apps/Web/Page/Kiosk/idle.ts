// Notices that nobody uses the page any more.

/** What happens when nobody uses the page. */
export interface IdleHandlers {
  /** Called every second before the end, with the seconds that are left, and whether screen readers shall say so. */
  readonly counting: (seconds: number, isSaid: boolean) => void;
  /** Somebody has touched the page while it was counting. */
  readonly stayed: () => void;
  readonly ended: () => void;
}

const starts = ["pointerdown", "pointermove", "keydown", "wheel"] as const;
const longestNotice = 20; // seconds; visitors need time to read the notice and to reach its button

/** Calls `ended` when nothing has been touched for a time, and counts before it. */
export class IdleTimer {
  readonly #seconds: number;
  readonly #notice: number;
  readonly #handlers: IdleHandlers;
  #left: number;
  #isRunning = false;

  /** `seconds` is the whole time; the last twenty of them, or the last half of a shorter time, are counted. */
  constructor(seconds: number, handlers: IdleHandlers) {
    this.#seconds = this.#left = seconds;
    this.#notice = Math.min(longestNotice, Math.floor(seconds / 2));
    this.#handlers = handlers;
    const start = () => (this.touch(), this.run());
    for (const name of starts) addEventListener(name, start, { capture: true, passive: true });
    // The page also scrolls by itself.
    addEventListener("scroll", () => this.touch(), { capture: true, passive: true });
    setInterval(() => this.#tick(), 1000);
  }

  get isRunning(): boolean {
    return this.#isRunning;
  }

  /** Starts to wait, if it does not wait yet. */
  run(): void {
    if (this.#isRunning) return;
    this.#isRunning = true;
    this.#left = this.#seconds;
  }

  /** Somebody is there. */
  touch(): void {
    if (this.#isRunning && this.#left <= this.#notice) this.#handlers.stayed();
    this.#left = this.#seconds;
  }

  #tick(): void {
    if (!this.#isRunning) return;
    this.#left -= 1;
    if (this.#left > this.#notice) return;
    if (this.#left > 0) return this.#handlers.counting(this.#left, [this.#notice, Math.ceil(this.#notice / 2)].includes(this.#left));
    this.#isRunning = false;
    this.#handlers.ended();
  }
}
