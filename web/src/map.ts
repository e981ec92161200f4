// A map of a venue on a canvas.

import { parseColor } from "./colors.js";
import type { Core } from "./core.js";
import type { Engine } from "./engine.js";
import { OrivantaError } from "./errors.js";
import type { Guidance } from "./guidance.js";
import { MapCanvas } from "./mapCanvas.js";
import { listen } from "./mapInput.js";
import { keyCommands } from "./mapKeys.js";
import { cameraPose, radians, rawPose } from "./mapPoses.js";
import type {
  CameraPose,
  MapEvent,
  MapEvents,
  MapLook,
  MapState,
  Marker,
  MarkerOptions,
  Position,
  ShowOptions,
  VisitorPosition,
} from "./mapTypes.js";
import type { Floor, Node, Place } from "./records.js";
import type { Route, Venue } from "./venue.js";

export type * from "./mapTypes.js";

type Handler<Type extends keyof MapEvents> = (event: MapEvents[Type]) => void;

/** How a change of the camera happens. */
export interface Motion {
  /** Whether the camera glides for a quarter of a second, as it does unless set, or moves at once. */
  readonly animated?: boolean;
}

/** The names at the ends of a route that has none itself, and its color. */
export interface RouteLook {
  readonly from?: Place;
  readonly to?: Place;
  /** A CSS color; unless set, that of the theme. */
  readonly color?: string;
}

/** The covered margins of a map, in CSS pixels. */
export interface Insets {
  readonly top?: number;
  readonly right?: number;
  readonly bottom?: number;
  readonly left?: number;
}

const glides = (motion: Motion) => ({ glide: motion.animated ?? true });

/** A map. Made by `Venue.show`. */
export class MapView {
  /** The canvas, for its attributes and for other listeners. */
  readonly canvas: HTMLCanvasElement;

  /** For `Venue.show`: fulfilled when the first floor is shown. */
  readonly loaded: Promise<void>;

  readonly #engine: Engine;
  readonly #venue: Venue;
  readonly #canvas: MapCanvas;
  readonly #number: number;
  readonly #canvasNumber: number;
  readonly #destroyed: () => void;
  readonly #ending = new AbortController();
  readonly #handlers = new Map<keyof MapEvents, Set<Handler<never>>>();
  #look: MapLook = {};
  #insets: Insets = {};
  #position: VisitorPosition | null = null;
  #guidance: Guidance | null = null;
  #lastMarker = 0;
  #settle: { loaded(): void; failed(error: unknown): void } | null = null;

  /** For `Venue.show`. */
  constructor(
    engine: Engine,
    venue: Venue,
    venueNumber: number,
    target: HTMLElement,
    options: ShowOptions,
    destroyed: () => void,
  ) {
    const { floor, signal, ...look } = options;
    signal?.throwIfAborted();
    this.#engine = engine;
    this.#venue = venue;
    this.#destroyed = destroyed;
    this.#canvas = new MapCanvas(target, {
      draw: (...frame) => engine.enter((core) => core._orivantaMapFrame(this.#number, ...frame)),
      contextChanged: (isThere) => this.#contextChanged(isThere),
    });
    this.canvas = this.#canvas.element;
    this.#canvasNumber = engine.canvases.add(this.canvas);
    this.#number = engine.call((core) => core._orivantaOpenMap(venueNumber, this.#canvasNumber));
    this.loaded = new Promise((resolve, reject) => (this.#settle = { loaded: resolve, failed: reject }));
    this.loaded.catch(() => {});
    if (this.#number <= 0) {
      this.#fail(new OrivantaError("unsupported", "the browser does not support WebGL 2"));
      return;
    }
    signal?.addEventListener("abort", () => this.#fail(signal.reason), { signal: this.#ending.signal });
    engine.maps.set(this.#number, {
      wantsFrame: () => this.#canvas.requestFrame(),
      event: (event) => this.#received(event),
    });
    this.#listen();
    this.setLook(look);
    const first = floor ? venue.floors.indexOf(floor) : -1;
    engine.call((core) => core._orivantaLoadMap(this.#number, first));
  }

  /** Calls a function for each event of a type. Returns a function that ends this. */
  on<Type extends keyof MapEvents>(type: Type, handler: Handler<Type>): () => void {
    const handlers = this.#handlers.get(type) ?? new Set();
    this.#handlers.set(type, handlers.add(handler as Handler<never>));
    return () => void handlers.delete(handler as Handler<never>);
  }

  // --- Floors

  /** The floor that is shown. If another one is set, it is shown as soon as it is loaded. */
  get floor(): Floor {
    return this.#venue.floors[this.#state().floor]!;
  }

  set floor(floor: Floor) {
    this.#do({ floor: this.#venue.floors.indexOf(floor) });
  }

  /** Whether all floors are shown above each other. */
  get stacked(): boolean {
    return this.#state().stacked;
  }

  set stacked(stacked: boolean) {
    this.#do({ stacked });
  }

  /** Loads the floors again, after a problem. */
  reload(): void {
    this.#do({ reload: true });
  }

  // --- Look

  /** Whether the shown floor is drawn completely. */
  get isReady(): boolean {
    return this.#state().ready;
  }

  /** Changes parts of the look; the others stay as they are. */
  setLook(look: MapLook): void {
    this.#look = { ...this.#look, ...look };
    const wants = matchMedia("(prefers-reduced-motion: reduce)").matches;
    this.#do({ look: { ...this.#look, reducedMotion: this.#look.reducedMotion ?? wants } });
  }

  get theme(): NonNullable<MapLook["theme"]> {
    return this.#look.theme ?? "light";
  }

  set theme(theme: NonNullable<MapLook["theme"]>) {
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
    this.#do({ insets: this.#insets });
  }

  /** Sets which parts of the map are covered, in CSS pixels: no name is placed there. */
  setCovered(rectangles: readonly { x: number; y: number; width: number; height: number }[]): void {
    this.#do({ covered: rectangles.map(({ x, y, width, height }) => [x, y, width, height]) });
  }

  // --- Camera

  get camera(): CameraPose {
    return cameraPose(this.#state().pose);
  }

  set camera(pose: CameraPose) {
    this.moveTo(pose, { animated: false });
  }

  /** Moves the camera to the nearest possible pose; members that are missing stay as they are. */
  moveTo(pose: Partial<CameraPose>, motion: Motion = {}): void {
    this.#do({ pose: { ...rawPose(pose), ...glides(motion) } });
  }

  /** Shows a place, a floor, a route, or points of the shown floor; without an argument, the whole floor. */
  fit(what?: Place | Floor | Route | Guidance | readonly Position[], motion: Motion = {}): void {
    const glide = glides(motion);
    if (what === undefined) {
      this.#do({ fit: glide });
    } else if (Array.isArray(what)) {
      this.#do({ fit: { points: what, ...glide } });
    } else if ("elevation" in what) {
      this.#do({ floor: this.#venue.floors.indexOf(what), fit: glide });
    } else if ("categories" in what) {
      const floors = what.floors.length === 0 || what.floors.includes(this.floor) ? [] : [what.floors[0]!];
      for (const floor of floors) this.floor = floor;
      this.#do({ fit: { place: what.id, ...glide } });
    } else {
      const { nodes } = what as Route | Guidance;
      const floor = nodes.some((node) => node.floor === this.floor) ? this.floor : nodes[0]?.floor;
      if (!floor) return;
      this.floor = floor;
      const points = nodes.filter((node) => node.floor === floor).map((node) => [node.x, node.y, node.z]);
      this.#do({ fit: { points, ...glide } });
    }
  }

  /** Shows the part of the floor where most places are, as at the beginning. */
  showFirstView(motion: Motion = {}): void {
    this.#do({ firstView: glides(motion) });
  }

  /** Zooms in, or out if the factor is below 1. The point, in CSS pixels, keeps its place. */
  zoomBy(factor: number, at?: { x: number; y: number }, motion: Motion = {}): void {
    this.#do({ zoomBy: { factor, ...at, ...glides(motion) } });
  }

  /** Turns the view clockwise. */
  turnBy(degrees: number, motion: Motion = {}): void {
    this.#do({ turnBy: { angle: -radians(degrees), ...glides(motion) } });
  }

  /** Tilts the view. */
  tiltBy(degrees: number, motion: Motion = {}): void {
    this.#do({ tiltBy: { angle: radians(degrees), ...glides(motion) } });
  }

  /** Turns the view so that the y axis points up. */
  northUp(motion: Motion = {}): void {
    this.#do({ north: glides(motion) });
  }

  /** How many CSS pixels one of the venue's units has in the middle of the view. */
  get pixelsPerUnit(): number {
    return this.#state().pointsPerUnit;
  }

  /** Where a position of the shown floor appears, in CSS pixels. */
  pointOf(position: Position): { x: number; y: number } {
    const [x, y] = this.#engine.call((core) =>
      this.#engine.numbers(core._orivantaMapPoint(this.#number, ...position)),
    );
    return { x: x!, y: y! };
  }

  // --- Routes

  /** Shows a route instead of the current one; null removes it. The camera does not move. */
  showRoute(route: Route | Guidance | null, look: RouteLook = {}): void {
    this.#guidance = route && "steps" in route ? route : null;
    if (!route) return void this.#do({ route: null });
    const visits = "visits" in route ? route.visits : [];
    const stops = visits.slice(1, -1).map(({ index, place }) => ({ index, place: place?.id }));
    this.#do({
      route: {
        nodes: this.#venue.indicesOf(route.nodes),
        from: (look.from ?? visits.at(0)?.place)?.id,
        to: (look.to ?? visits.at(-1)?.place)?.id,
        stops,
        color: look.color === undefined ? undefined : parseColor(look.color),
      },
    });
  }

  /** Shows the route as passed up to a position, in another color; null shows none of it as passed. */
  showProgress(at: Node | VisitorPosition | null): void {
    if (!at) return void this.#do({ passed: null });
    const position = "position" in at ? at.position : [at.x, at.y, at.z];
    this.#do({ passed: { floor: this.#venue.floors.indexOf(at.floor!), position } });
  }

  /**
   * Shows where an instruction of the shown `Guidance` begins, and the way to the next one. Null removes the
   * position.
   */
  showStep(index: number | null, motion: Motion = {}): void {
    const { steps = [], nodes = [] } = this.#guidance ?? {};
    const step = index === null ? undefined : steps[index];
    if (!step?.node?.floor) return void (this.position = null);
    const next = steps[index! + 1]?.node;
    const start = nodes.indexOf(step.node);
    const end = next ? nodes.indexOf(next, start) : -1;
    const way = nodes.slice(start, step.kind === "ride" || end < start ? start + 1 : end + 1);
    const { x, y, z, floor } = step.node;
    this.floor = floor;
    this.position = { position: [x, y, z], floor };
    const points = way.filter((node) => node.floor === floor).map((node) => [node.x, node.y, node.z]);
    this.#do({ fit: { points, ...glides(motion) } });
  }

  // --- Marks

  /** Outlines a place and marks it with a pin; null selects nothing. The camera does not move. */
  select(place: Place | null): void {
    this.#do({ select: place?.id ?? null });
  }

  /** Colors the areas of a place with a CSS color. */
  highlight(place: Place, color: string): void {
    this.#do({ highlight: { place: place.id, color: parseColor(color) } });
  }

  /** Gives all areas their own colors again. */
  clearHighlights(): void {
    this.#do({ clearHighlights: true });
  }

  /** Marks what is closed, by identifiers of places and connectors. */
  setClosures(closed: readonly string[]): void {
    this.#do({ closures: closed });
  }

  /** Adds a pin, which is shown on its floors. */
  addMarker(options: MarkerOptions): Marker {
    const number = ++this.#lastMarker;
    const { place, position, floor, text, color } = options;
    if (!place && !position) throw new OrivantaError("invalid", "a marker needs a place or a position");
    this.#do({
      marker: {
        number,
        place: place?.id,
        position,
        floor: floor ? this.#venue.floors.indexOf(floor) : undefined,
        text,
        color: color === undefined ? undefined : parseColor(color),
      },
    });
    return { remove: () => void (this.#ending.signal.aborted || this.#do({ removeMarker: number })) };
  }

  /** A visitor's position, or null. */
  get position(): VisitorPosition | null {
    return this.#position;
  }

  set position(position: VisitorPosition | null) {
    this.#position = position;
    const { floor, heading } = position ?? {};
    this.#do({
      position: position && {
        ...position,
        floor: this.#venue.floors.indexOf(floor!),
        heading: heading === undefined ? undefined : -radians(heading),
      },
    });
  }

  /** Whether the camera follows the position. This ends when the visitor moves the map. */
  get follow(): boolean {
    return this.#state().follow;
  }

  set follow(follow: boolean) {
    this.#do({ follow });
  }

  // --- Pictures, end

  /** Returns the map as a PNG picture. */
  picture(): Promise<Blob> {
    this.#call((core) => core._orivantaMapFinish(this.#number));
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
    if (this.#ending.signal.aborted) return;
    this.#ending.abort();
    this.#settle?.failed(error);
    this.#handlers.clear();
    this.#engine.maps.delete(this.#number);
    this.#engine.enter((core) => core._orivantaCloseMap(this.#number));
    this.#engine.canvases.remove(this.#canvasNumber);
    this.#canvas.destroy();
    this.#destroyed();
  }

  #listen(): void {
    const { canvas } = this;
    const { signal } = this.#ending;
    if (!canvas.hasAttribute("tabindex")) canvas.tabIndex = 0;
    if (!canvas.hasAttribute("role")) canvas.setAttribute("role", "application");
    if (!canvas.hasAttribute("aria-label")) canvas.setAttribute("aria-label", this.#venue.name);
    listen(
      canvas,
      {
        point: (...touch) => this.#engine.enter((core) => core._orivantaMapPointer(this.#number, ...touch)),
        wheel: (x, y, steps, isPinch) =>
          this.#engine.enter((core) => core._orivantaMapWheel(this.#number, x, y, steps, isPinch ? 1 : 0)),
        cancel: (time) => this.#engine.enter((core) => core._orivantaMapCancel(this.#number, time)),
        key: (key, shift) => this.#typed(key, shift),
      },
      signal,
    );
    // Names that were drawn before a font was there are drawn anew with it.
    const redraw = () =>
      void (signal.aborted || this.#engine.enter((core) => core._orivantaMapRedrawTexts(this.#number)));
    document.fonts.addEventListener("loadingdone", redraw, { signal });
  }

  #typed(key: string, shift: boolean): boolean {
    if (key === "PageUp" || key === "PageDown") {
      const floors = [...this.#venue.floors].sort((low, high) => low.elevation - high.elevation);
      const next = floors[floors.indexOf(this.floor) + (key === "PageUp" ? 1 : -1)];
      if (next) this.floor = next;
      return true;
    }
    const commands = keyCommands(key, shift);
    if (commands) this.#do(commands);
    return commands !== null;
  }

  #contextChanged(isThere: boolean): void {
    if (isThere) this.#engine.canvases.contextOf(this.#canvasNumber);
    this.#engine.enter((core) => core._orivantaMapContext(this.#number, isThere ? 1 : 0));
    if (!isThere) this.#tell("problem", { kind: "context", floor: null, text: "the browser took the graphics away" });
  }

  #received(event: MapEvent): void {
    const { floors } = this.#venue;
    switch (event.type) {
      case "tap": {
        const place = event.place === null ? null : (this.#venue.placeNamed(event.place) ?? null);
        const { x, y, position } = event;
        return this.#tell("tap", { place, floor: floors[event.floor] ?? null, x, y, position });
      }
      case "floor":
        return this.#tell("floor", floors[event.floor]!);
      case "camera":
        return this.#tell("camera", this.camera);
      case "load": {
        const { state, filesDone, fileCount } = event;
        return this.#tell("load", { floor: floors[event.floor]!, state, filesDone, fileCount });
      }
      case "ready":
        return this.#tell("ready", undefined);
      case "loaded":
        this.#settle?.loaded();
        this.#settle = null;
        return;
      case "problem":
        this.#tell("problem", { kind: event.kind, floor: floors[event.floor ?? -1] ?? null, text: event.text });
        if (event.kind === "noFloor" && this.#settle) this.#fail(new OrivantaError("noAnswer", event.text));
    }
  }

  // What a handler throws is reported as for any other event of the page.
  #tell<Type extends keyof MapEvents>(type: Type, event: MapEvents[Type]): void {
    for (const handler of this.#handlers.get(type) ?? []) {
      try {
        (handler as Handler<Type>)(event);
      } catch (error) {
        reportError(error);
      }
    }
  }

  #call<Result>(use: (core: Core) => Result): Result {
    if (this.#ending.signal.aborted) throw new OrivantaError("invalid", "the map was destroyed");
    return this.#engine.call(use);
  }

  #do(commands: object): MapState {
    return this.#call(() =>
      this.#engine.withTexts([JSON.stringify(commands)], (core, address, length) =>
        this.#engine.json(core._orivantaMapDo(this.#number, address!, length!)),
      ),
    ) as MapState;
  }

  #state(): MapState {
    return this.#do({});
  }
}
