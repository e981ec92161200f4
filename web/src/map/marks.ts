// What is marked on a map.

import { parseColor } from "../colors.js";
import { OrivantaError } from "../errors.js";
import type { Place } from "../records.js";
import { CameraFunctions } from "./camera.js";
import { radians } from "./poses.js";
import type { Marker, MarkerOptions, VisitorPosition } from "./types.js";

/** The functions of a map for marks. */
export class MarkFunctions extends CameraFunctions {
  #position: VisitorPosition | null = null;
  #lastMarker = 0;

  /** Outlines a place and marks it with a pin; null selects nothing. The camera does not move. */
  select(place: Place | null): void {
    this.module.do({ select: place?.id ?? null });
  }

  /** Colors the areas of a place with a CSS color. */
  highlight(place: Place, color: string): void {
    this.module.do({ highlight: { place: place.id, color: parseColor(color) } });
  }

  /** Gives all areas their own colors again. */
  clearHighlights(): void {
    this.module.do({ clearHighlights: true });
  }

  /** Marks what is closed, by identifiers of places and connectors. */
  setClosures(closed: readonly string[]): void {
    this.module.do({ closures: closed });
  }

  /** Adds a pin, which is shown on its floors. */
  addMarker(options: MarkerOptions): Marker {
    const number = ++this.#lastMarker;
    const { place, position, floor, text, color } = options;
    if (!place && !position) throw new OrivantaError("invalid", "a marker needs a place or a position");
    this.module.do({
      marker: {
        number,
        place: place?.id,
        position,
        floor: floor ? this.venue.floors.indexOf(floor) : undefined,
        text,
        color: color === undefined ? undefined : parseColor(color),
      },
    });
    return { remove: () => void (this.module.ended.aborted || this.module.do({ removeMarker: number })) };
  }

  /** A visitor's position, or null. */
  get position(): VisitorPosition | null {
    return this.#position;
  }

  set position(position: VisitorPosition | null) {
    this.#position = position;
    const { floor, heading } = position ?? {};
    this.module.do({
      position: position && {
        ...position,
        floor: this.venue.floors.indexOf(floor!),
        heading: heading === undefined ? undefined : -radians(heading),
      },
    });
  }

  /** Whether the camera follows the position. This ends when the visitor moves the map. */
  get follow(): boolean {
    return this.module.state.follow;
  }

  set follow(follow: boolean) {
    this.module.do({ follow });
  }
}
