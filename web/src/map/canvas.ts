// The canvas of a map: its size, its frames, and its context, which the browser may take away.

import { OrivantaError } from "../errors.js";
import { releaseContext } from "../platform/surfaces.js";

// The canvases of pages that have a map.
const taken = new WeakSet<HTMLCanvasElement>();

/** What the canvas asks of the map. */
export interface CanvasUser {
  /** Draws a frame. The size is in CSS pixels, `scale` in pixels per CSS pixel, the time in seconds. */
  draw(width: number, height: number, scale: number, time: number): void;
  /** The context was lost, or is there again. */
  contextChanged(isThere: boolean): void;
}

/** Draws a map when it has changed, once for each picture of the screen. */
export class MapCanvas {
  readonly element: HTMLCanvasElement;
  #user: CanvasUser | null = null;
  readonly #isOwn: boolean;
  readonly #ending = new AbortController();
  readonly #sizes = new ResizeObserver(() => this.requestFrame());
  #frame = 0;
  #isLost = false;

  /** `target`: the canvas, or the element to which that of `make` is added. */
  constructor(target: HTMLElement, make: () => HTMLCanvasElement) {
    if (taken.has(target as HTMLCanvasElement)) throw new OrivantaError("invalid", "the canvas shows a map already");
    this.#isOwn = !(target instanceof HTMLCanvasElement);
    this.element = this.#isOwn ? make() : (target as HTMLCanvasElement);
    taken.add(this.element);
    if (this.#isOwn) {
      this.element.style.cssText = "display:block;width:100%;height:100%";
      target.append(this.element);
    }
  }

  /** Begins to draw, and to tell about the context. */
  start(user: CanvasUser): void {
    this.#user = user;
    this.#sizes.observe(this.element);
    const { signal } = this.#ending;
    this.element.addEventListener("webglcontextlost", (event) => (event.preventDefault(), this.#lose()), { signal });
    this.element.addEventListener("webglcontextrestored", () => this.#restore(), { signal });
    addEventListener("resize", () => this.requestFrame(), { signal }); // also when only the density changes
  }

  /** Draws a frame soon. */
  requestFrame(): void {
    if (this.#frame === 0 && !this.#ending.signal.aborted) {
      this.#frame = requestAnimationFrame((time) => this.drawNow(time));
    }
  }

  /** Draws a frame. `time`: milliseconds. */
  drawNow(time = performance.now()): void {
    cancelAnimationFrame(this.#frame);
    this.#frame = 0;
    if (this.#isLost) return;
    const { element } = this;
    const scale = devicePixelRatio;
    const width = Math.round(element.clientWidth * scale);
    const height = Math.round(element.clientHeight * scale);
    if (width > 0 && height > 0 && (element.width !== width || element.height !== height)) {
      element.width = width; // also makes the canvas empty
      element.height = height;
    }
    this.#user?.draw(width / scale, height / scale, scale, time / 1000);
  }

  /** Ends the drawing. Removes the canvas if it was added to an element. */
  destroy(): void {
    this.#ending.abort();
    this.#sizes.disconnect();
    cancelAnimationFrame(this.#frame);
    taken.delete(this.element);
    if (!this.#isOwn) return;
    releaseContext(this.element);
    this.element.remove();
  }

  #lose(): void {
    this.#isLost = true;
    this.#user?.contextChanged(false);
  }

  #restore(): void {
    this.#isLost = false;
    this.#user?.contextChanged(true);
    this.requestFrame();
  }
}
