// The fingers on a map that leaves one finger to the page.

const slack = 10; // CSS pixels that a tap may move

interface Finger {
  readonly start: PointerEvent;
  last: PointerEvent;
  /** Whether the map knows of it. */
  isPassed: boolean;
  /** Whether there was another finger at the same time. */
  wasGesture: boolean;
}

/** Passes taps of one finger and all that two or more do. The page scrolls with one that moves. */
export class CooperativeFingers {
  readonly #send: (type: string, event: PointerEvent) => void;
  readonly #refused: () => void;
  readonly #fingers = new Map<number, Finger>();

  /** `send` passes an event of a type; `refused` is called when a finger that moves is left to the page. */
  constructor(send: (type: string, event: PointerEvent) => void, refused: () => void) {
    this.#send = send;
    this.#refused = refused;
  }

  /** Takes the events of a finger from "pointerdown" on. */
  pass(event: PointerEvent): void {
    switch (event.type) {
      case "pointerdown":
        return this.#add(event);
      case "pointermove":
        return this.#move(event);
      default:
        return this.#remove(event);
    }
  }

  /** Forgets all fingers. */
  clear(): void {
    this.#fingers.clear();
  }

  #add(event: PointerEvent): void {
    this.#fingers.set(event.pointerId, { start: event, last: event, isPassed: false, wasGesture: false });
    const isGesture = this.#fingers.size > 1;
    for (const finger of this.#fingers.values()) {
      finger.wasGesture ||= isGesture;
      if (finger.isPassed) continue;
      finger.isPassed = true;
      this.#send("pointerdown", finger.last);
    }
  }

  #move(event: PointerEvent): void {
    const finger = this.#fingers.get(event.pointerId);
    if (!finger) return;
    finger.last = event;
    if (this.#fingers.size > 1) return this.#send("pointermove", event);
    const { offsetX, offsetY } = finger.start;
    if (Math.hypot(event.offsetX - offsetX, event.offsetY - offsetY) > slack) this.#leave(finger);
  }

  #remove(event: PointerEvent): void {
    const finger = this.#fingers.get(event.pointerId);
    if (!finger) return;
    // The browser cancels a finger with which it scrolls.
    if (event.type === "pointercancel") this.#leave(finger);
    else if (finger.isPassed) this.#send(event.type, event);
    this.#fingers.delete(event.pointerId);
  }

  #leave(finger: Finger): void {
    if (!finger.isPassed) return;
    finger.isPassed = false;
    this.#send("pointercancel", finger.last);
    if (!finger.wasGesture) this.#refused();
  }
}
