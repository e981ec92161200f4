// What the camera of the map shows: what the page has asked for last, until the visitor moves the map.

import type { CameraPose, Floor, MapView } from "orivanta";

const leastDrag = 8; // CSS pixels; less is a tap

/** Moves the camera. */
type Look = (motion: { animated: boolean }) => void;

/** The view of a venue before its map was made again, for example in another language. */
export interface FormerView {
  readonly slug: string;
  readonly floor: string;
  readonly camera: CameraPose;
  readonly hadRoute: boolean;
}

export class Framing {
  /** Set it before a map ends. */
  former: FormerView | null = null;
  /** Whether the view stays as it was before the map was made again, whatever the page asks for. */
  isKept = false;

  #view: MapView | null = null;
  #last: Look | null = null; // null after the visitor has moved the map
  #floor: Floor | null = null;
  #wasMoved = false; // by the visitor, in the map before

  /** Begins with a new map, and follows what the visitor does with it. */
  begin(view: MapView): void {
    this.#wasMoved = this.#view !== null && this.#last === null;
    this.#view = view;
    this.#last = null;
    this.isKept = false;
    let start: PointerEvent | null = null;
    const { canvas } = view;
    canvas.addEventListener("pointerdown", (event) => (start = event));
    canvas.addEventListener("pointermove", ({ buttons, x, y }) => {
      if (buttons && start && Math.hypot(x - start.x, y - start.y) > leastDrag) this.moved();
    });
    canvas.addEventListener("wheel", () => this.moved(), { passive: true });
    canvas.addEventListener("keydown", ({ key }) => key === "Tab" || this.moved());
  }

  /** Shows something, unless the view is kept. */
  show(look: Look, motion = { animated: true }): void {
    if (!this.#view || (this.isKept && this.#wasMoved)) return;
    if (!this.isKept) look(motion);
    this.#last = look;
    this.#floor = this.#view.wantedFloor;
  }

  /** Says that the visitor has moved the map. */
  moved(): void {
    this.#last = null;
  }

  /** Shows the same again in a map of another size, on the same floor. */
  resized(): void {
    if (this.#view?.wantedFloor === this.#floor) this.#last?.({ animated: false });
  }
}
