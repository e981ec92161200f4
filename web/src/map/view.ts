// A map of a venue on a canvas.

import type { Engine } from "../engine.js";
import { OrivantaError } from "../errors.js";
import { forgetFonts } from "../platform/layout.js";
import type { Venue } from "../venue.js";
import { MapCanvas } from "./canvas.js";
import { MapHandlers, type Handler } from "./events.js";
import { MapInput } from "./input.js";
import { keyCommands } from "./keys.js";
import { MapModule } from "./module.js";
import type { MapEvent } from "./reports.js";
import { RouteFunctions } from "./routes.js";
import type { MapEvents, ShowOptions } from "./types.js";

/** What a map is made of. For `Venue.show`. */
export interface MapParts {
  readonly engine: Engine;
  readonly venue: Venue;
  readonly venueNumber: number;
  /** The canvas, or the element that gets one. */
  readonly target: HTMLElement;
  readonly options: ShowOptions;
  /** Called when the map has ended. */
  readonly destroyed: () => void;
}

/** A map. Made by `Venue.show`. */
export class MapView extends RouteFunctions {
  /** The canvas, for its attributes and for other listeners. */
  readonly canvas: HTMLCanvasElement;

  /** For `Venue.show`: fulfilled when the first floor is shown. */
  readonly loaded: Promise<void>;

  readonly #canvas: MapCanvas;
  readonly #handlers: MapHandlers;
  #input: MapInput | null = null;
  readonly #destroyed: () => void;
  #settle: { loaded(): void; failed(error: unknown): void } | null = null;

  /** For `Venue.show`. */
  constructor({ engine, venue, venueNumber, target, options, destroyed }: MapParts) {
    const { floor, signal, cooperative = false, ...look } = options;
    signal?.throwIfAborted();
    const canvas = new MapCanvas(target, () => engine.canvases.take());
    super(new MapModule(engine, canvas.element), venue);
    this.#canvas = canvas;
    this.canvas = canvas.element;
    this.#destroyed = destroyed;
    this.#handlers = new MapHandlers(venue, () => this.camera);
    this.loaded = new Promise((resolve, reject) => (this.#settle = { loaded: resolve, failed: reject }));
    this.loaded.catch(() => {});
    try {
      this.module.open(venueNumber);
      canvas.start({
        draw: (...frame) => {
          this.module.enter((core, map) => core._orivantaMapFrame(map, ...frame));
          // Until the frame is on the screen. The next frame may begin before the browser has drawn this one.
          const released = () => requestAnimationFrame(() => engine.turns.release());
          if (engine.turns.isHeld) requestAnimationFrame(released);
        },
        contextChanged: (isThere) => this.#contextChanged(isThere),
      });
      // What is shown already stays.
      signal?.addEventListener("abort", () => this.#settle && this.#fail(signal.reason), { signal: this.module.ended });
      engine.maps.set(this.module.number, {
        wantsFrame: () => this.#canvas.requestFrame(),
        event: (event) => this.#received(event),
        stopped: (error) => this.#fail(error),
      });
      this.#input = this.#listen();
      this.#input.isCooperative = cooperative;
      this.setLook(look);
      const first = floor ? venue.floors.indexOf(floor) : -1;
      this.module.call((core, map) => core._orivantaLoadMap(map, first));
    } catch (error) {
      this.#fail(error);
    }
  }

  /** Calls a function for each event of a type. Returns a function that ends this. */
  on<Type extends keyof MapEvents>(type: Type, handler: Handler<Type>): () => void {
    return this.#handlers.add(type, handler);
  }

  /** Whether one finger and the wheel scroll the page, see `ShowOptions`. */
  get cooperative(): boolean {
    return this.#input?.isCooperative ?? false;
  }

  set cooperative(cooperative: boolean) {
    if (this.#input) this.#input.isCooperative = cooperative;
  }

  /** Returns the map as a PNG picture. */
  picture(): Promise<Blob> {
    this.module.call((core, map) => core._orivantaMapFinish(map));
    this.#canvas.drawNow();
    return new Promise((resolve, reject) =>
      this.canvas.toBlob((blob) =>
        blob ? resolve(blob) : reject(new OrivantaError("tooLarge", "there is not enough memory")),
      ),
    );
  }

  /** Ends the map. A canvas that was added to an element is removed. Every later call throws. */
  destroy(): void {
    this.#fail(new OrivantaError("invalid", "the map was destroyed"));
  }

  // Also ends the loading.
  #fail(error: unknown): void {
    if (this.module.ended.aborted) return;
    this.#settle?.failed(error);
    this.#handlers.clear();
    this.module.engine.maps.delete(this.module.number);
    this.module.close();
    this.#canvas.destroy();
    this.#destroyed();
  }

  #listen(): MapInput {
    const { canvas, module } = this;
    const { ended } = module;
    if (!canvas.hasAttribute("tabindex")) canvas.tabIndex = 0;
    if (!canvas.hasAttribute("role")) canvas.setAttribute("role", "application");
    if (!canvas.hasAttribute("aria-label")) canvas.setAttribute("aria-label", this.venue.name);
    // Names that were drawn before a font was there are drawn anew with it.
    const redraw = () => {
      forgetFonts();
      module.enter((core, map) => core._orivantaMapRedrawTexts(map));
    };
    document.fonts.addEventListener("loadingdone", redraw, { signal: ended });
    matchMedia("(prefers-reduced-motion: reduce)").addEventListener("change", () => this.setLook({}), { signal: ended });
    return new MapInput(
      canvas,
      {
        point: (...touch) => module.enter((core, map) => core._orivantaMapPointer(map, ...touch)),
        wheel: (x, y, steps, isPinch) =>
          module.enter((core, map) => core._orivantaMapWheel(map, x, y, steps, isPinch ? 1 : 0)),
        cancel: (time) => module.enter((core, map) => core._orivantaMapCancel(map, time)),
        key: (key, shift) => this.#typed(key, shift),
        refused: (gesture) => this.#handlers.tell("refused", gesture),
      },
      ended,
    );
  }

  #typed(key: string, shift: boolean): boolean {
    if (key === "PageUp" || key === "PageDown") {
      const floors = [...this.venue.floors].sort((low, high) => low.elevation - high.elevation);
      const next = floors[floors.indexOf(this.wantedFloor) + (key === "PageUp" ? 1 : -1)];
      if (next) this.floor = next;
      return true;
    }
    const commands = keyCommands(key, shift);
    if (commands) this.module.do(commands);
    return commands !== null;
  }

  #contextChanged(isThere: boolean): void {
    this.module.contextChanged(isThere);
    const text = "the browser took the graphics away";
    if (!isThere) this.#handlers.tell("problem", { kind: "context", floor: null, text });
  }

  #received(event: MapEvent): void {
    if (event.type === "loaded") {
      this.#settle?.loaded();
      this.#settle = null;
      // The first frame is drawn before names are placed and other floors are read.
      this.#canvas.requestFrame();
      this.module.engine.turns.hold();
      return;
    }
    this.#handlers.report(event);
    if (event.type === "problem" && event.kind === "noFloor" && this.#settle) {
      this.#fail(new OrivantaError("noAnswer", event.text));
    }
  }
}
