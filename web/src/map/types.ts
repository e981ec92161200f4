// The types of maps.

import type { Floor, Place } from "../records.js";

/** x, y and z in the venue's units. z is up and does not include the floor's elevation. */
export type Position = readonly [x: number, y: number, z: number];

/** The look of a map. "plain" has the colors of the floors' models. */
export type MapTheme = "light" | "dark" | "plain";

/** How a map looks; all members can be changed later with `MapView.setLook`. */
export interface MapLook {
  /** "light" unless set. */
  theme?: MapTheme;
  /** The language of texts on the map that are no names: a tag such as "de", or a list of tags. */
  language?: string;
  /** A factor of the sizes of texts, from 0.5 to 4. */
  textSize?: number;
  /** Whether outlines are stronger. */
  highContrast?: boolean;
  /** Whether the camera moves at once and arrows stand still. Follows the system's setting unless set. */
  reducedMotion?: boolean;
  /** Whether names and icons are shown; true unless set. */
  labels?: boolean;
  /** Whether a compass is shown while the map is turned; true unless set. */
  compass?: boolean;
  /** Whether a scale bar is shown; true unless set. */
  scaleBar?: boolean;
  /** Whether the venue's attribution is shown on the map; true unless set. A page that hides it shows it itself. */
  attribution?: boolean;
  /** For single pictures: names appear without fading, and arrows stand still. */
  still?: boolean;
}

/** The options of `Venue.show`. */
export interface ShowOptions extends MapLook {
  /** The first floor. Unless set, it is the one where most places are. */
  floor?: Floor;
  /**
   * Whether one finger and the wheel scroll the page: two fingers move the map, and the wheel zooms while Ctrl or ⌘ is
   * pressed. For maps within long pages; false unless set.
   */
  cooperative?: boolean;
  /** Ends the loading: the promise is rejected and the map is destroyed. */
  signal?: AbortSignal;
}

/** A view of the map. */
export interface CameraPose {
  /** What is in the middle of the view: x and y in the venue's units. */
  readonly center: readonly [x: number, y: number];
  /** From the camera to the center, in the venue's units. */
  readonly distance: number;
  /** The direction that is up in the view: degrees, clockwise from the y axis, 0 to 360. */
  readonly yaw: number;
  /** Degrees: 0 looks straight down; less than 60. */
  readonly tilt: number;
}

/** How a change of the camera happens. */
export interface Motion {
  /** Whether the camera glides for a quarter of a second, as it does unless set, or moves at once. */
  readonly animated?: boolean;
}

/** The names at the ends of a route, and its color. */
export interface RouteLook {
  /** Without it, the start of a `Guidance` has its own name; null shows none. */
  readonly from?: Place | null;
  readonly to?: Place | null;
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

/** A tap on the map. */
export interface MapTap {
  /** The place or connector that was hit. */
  readonly place: Place | null;
  readonly floor: Floor | null;
  /** In CSS pixels from the upper left corner of the map. */
  readonly x: number;
  readonly y: number;
  /** The point of the ground; null above the horizon. */
  readonly position: Position | null;
}

/** What is wrong with a map. */
export interface MapProblem {
  /** "floor": a floor cannot be shown; "noFloor": none can; "context": the browser took the graphics away. */
  readonly kind: "floor" | "noFloor" | "context";
  readonly floor: Floor | null;
  /** A sentence without a final period. */
  readonly text: string;
}

/** The progress of a floor's files. */
export interface FloorLoad {
  readonly floor: Floor;
  readonly state: "waiting" | "fetching" | "reading" | "ready" | "withoutModel" | "failed";
  readonly filesDone: number;
  readonly fileCount: number;
}

/** What a `cooperative` map has left to the page: one finger, or the wheel. */
export type RefusedGesture = "touch" | "wheel";

/** The events of a map, by type. */
export interface MapEvents {
  /** A tap or a click. */
  tap: MapTap;
  /** Another floor is shown. */
  floor: Floor;
  /** The camera has moved. */
  camera: CameraPose;
  problem: MapProblem;
  /** The map is `cooperative`, and the visitor has perhaps tried to move it. */
  refused: RefusedGesture;
  /** The files of a floor are being loaded. */
  load: FloorLoad;
  /** The shown floor is drawn completely, with its names. */
  ready: void;
}

/** A visitor's position. */
export interface VisitorPosition {
  readonly position: Position;
  readonly floor: Floor;
  /** The radius in meters of the disc in which the visitor is. */
  readonly accuracy?: number;
  /** Where the visitor looks: degrees, clockwise from the y axis. */
  readonly heading?: number;
}

/** What a marker shows, and where: at a place, or at a position of one floor or of all floors. */
export interface MarkerOptions {
  readonly place?: Place;
  readonly position?: Position;
  readonly floor?: Floor;
  /** Below the pin. */
  readonly text?: string;
  /** Of the pin: a CSS color. */
  readonly color?: string;
}

/** A marker that was added to a map. */
export interface Marker {
  remove(): void;
}
