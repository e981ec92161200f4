// Notices that nobody uses the page any more.

/** What happens when nobody uses the page. */
export interface IdleHandlers {
  /** Called every second before the end, with the seconds that are left. */
  readonly counting: (seconds: number) => void;
  /** Somebody has touched the page while it was counting. */
  readonly stayed: () => void;
  readonly ended: () => void;
}

const events = ["pointerdown", "pointermove", "keydown", "wheel", "scroll"] as const;

/** Calls `ended` when nothing has been touched for a time, and counts before it. */
export class IdleTimer {
  readonly #seconds: number;
  readonly #notice: number;
  readonly #handlers: IdleHandlers;
  #left: number;
  #isRunning = false;

  /** `seconds` is the whole time; the last ten of them, or the last half of a shorter time, are counted. */
  constructor(seconds: number, handlers: IdleHandlers) {
    this.#seconds = this.#left = seconds;
    this.#notice = Math.min(10, Math.floor(seconds / 2));
    this.#handlers = handlers;
    for (const name of events) addEventListener(name, () => this.touch(), { capture: true, passive: true });
    setInterval(() => this.#tick(), 1000);
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
    if (this.#left > 0) return this.#handlers.counting(this.#left);
    this.#isRunning = false;
    this.#handlers.ended();
  }
}
