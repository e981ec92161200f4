// The handlers of a page for the events of a map.

import type { Venue } from "../venue.js";
import type { MapEvent } from "./reports.js";
import type { CameraPose, MapEvents } from "./types.js";

/** A handler of events. */
export type Handler<Type extends keyof MapEvents> = (event: MapEvents[Type]) => void;

/** Calls the handlers of a map. */
export class MapHandlers {
  readonly #venue: Venue;
  readonly #pose: () => CameraPose;
  readonly #handlers = new Map<keyof MapEvents, Set<Handler<never>>>();

  /** `pose` returns the current pose of the camera. */
  constructor(venue: Venue, pose: () => CameraPose) {
    this.#venue = venue;
    this.#pose = pose;
  }

  add<Type extends keyof MapEvents>(type: Type, handler: Handler<Type>): () => void {
    const handlers = this.#handlers.get(type) ?? new Set();
    this.#handlers.set(type, handlers.add(handler as Handler<never>));
    return () => void handlers.delete(handler as Handler<never>);
  }

  clear(): void {
    this.#handlers.clear();
  }

  /** Tells what the module reports. */
  report(event: MapEvent): void {
    const { floors } = this.#venue;
    switch (event.type) {
      case "tap": {
        const place = event.place === null ? null : (this.#venue.placeNamed(event.place) ?? null);
        const { x, y, position } = event;
        return this.tell("tap", { place, floor: floors[event.floor] ?? null, x, y, position });
      }
      case "floor":
        return this.tell("floor", floors[event.floor]!);
      case "camera":
        if (this.#handlers.get("camera")?.size) this.tell("camera", this.#pose());
        return;
      case "load": {
        const { state, filesDone, fileCount } = event;
        return this.tell("load", { floor: floors[event.floor]!, state, filesDone, fileCount });
      }
      case "ready":
        return this.tell("ready", undefined);
      case "problem":
        return this.tell("problem", { kind: event.kind, floor: floors[event.floor ?? -1] ?? null, text: event.text });
    }
  }

  // What a handler throws is reported as for any other event of the page.
  tell<Type extends keyof MapEvents>(type: Type, event: MapEvents[Type]): void {
    for (const handler of this.#handlers.get(type) ?? []) {
      try {
        (handler as Handler<Type>)(event);
      } catch (error) {
        reportError(error);
      }
    }
  }
}
