// The floors and the look of a map.

import { OrivantaError } from "../errors.js";
import type { Floor } from "../records.js";
import type { Venue } from "../venue.js";
import type { MapModule } from "./module.js";
import type { Insets, MapLook, MapTheme } from "./types.js";

/** The functions of a map for its floors and its look. */
export class LookFunctions {
  /** The map of the module. */
  protected readonly module: MapModule;
  /** The venue that is shown. */
  protected readonly venue: Venue;
  #look: MapLook = {};
  #insets: Insets = {};

  protected constructor(module: MapModule, venue: Venue) {
    this.module = module;
    this.venue = venue;
  }

  /** The floor that is shown. If another one is set, it is shown as soon as it is loaded. */
  get floor(): Floor {
    return this.venue.floors[this.module.state.floor]!;
  }

  set floor(floor: Floor) {
    const index = this.venue.floors.indexOf(floor);
    if (index < 0) throw new OrivantaError("invalid", "the venue has no such floor");
    this.module.do({ floor: index });
  }

  /** The floor that is shown now or, if another one is waited for, then. */
  get wantedFloor(): Floor {
    const { floor, awaited } = this.module.state;
    return this.venue.floors[awaited] ?? this.venue.floors[floor]!;
  }

  /** Whether all floors are shown above each other. */
  get stacked(): boolean {
    return this.module.state.stacked;
  }

  set stacked(stacked: boolean) {
    this.module.do({ stacked });
  }

  /** Loads the floors again, after a problem. */
  reload(): void {
    this.module.do({ reload: true });
  }

  /** Whether the shown floor is drawn completely. */
  get isReady(): boolean {
    return this.module.state.ready;
  }

  /** Changes parts of the look; the others stay as they are. */
  setLook(look: MapLook): void {
    this.#look = { ...this.#look, ...look };
    const wants = matchMedia("(prefers-reduced-motion: reduce)").matches;
    this.module.do({ look: { ...this.#look, reducedMotion: this.#look.reducedMotion ?? wants } });
  }

  get theme(): MapTheme {
    return this.#look.theme ?? "light";
  }

  set theme(theme: MapTheme) {
    this.setLook({ theme });
  }

  get language(): string {
    return this.#look.language ?? "en";
  }

  set language(language: string) {
    this.setLook({ language });
  }

  get textSize(): number {
    return this.#look.textSize ?? 1;
  }

  set textSize(textSize: number) {
    this.setLook({ textSize });
  }

  /** The covered margins. The camera frames what it shows within them. */
  get insets(): Insets {
    return this.#insets;
  }

  set insets(insets: Insets) {
    this.#insets = { ...insets };
    this.module.do({ insets: this.#insets });
  }

  /** Sets which parts of the map are covered, in CSS pixels: no name is placed there. */
  setCovered(rectangles: readonly { x: number; y: number; width: number; height: number }[]): void {
    this.module.do({ covered: rectangles.map(({ x, y, width, height }) => [x, y, width, height]) });
  }
}
