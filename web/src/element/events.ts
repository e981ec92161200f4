// The events of an element.

import type { OrivantaError } from "../errors.js";
import type { MapTap } from "../map/types.js";
import type { MapView } from "../map/view.js";
import type { Floor } from "../records.js";
import type { Venue } from "../venue.js";
import type { ShownRoute } from "./shown.js";

/** What an element has loaded. The element owns both; they are destroyed when it is removed. */
export interface LoadedMap {
  readonly venue: Venue;
  readonly map: MapView;
}

/** The events of an element. They do not bubble. */
export interface OrivantaMapEventMap {
  /** The map is shown. */
  load: CustomEvent<LoadedMap>;
  /** The map cannot be shown, or an attribute names something that the venue does not have. */
  error: CustomEvent<OrivantaError>;
  tap: CustomEvent<MapTap>;
  /** The map shows another floor. */
  floor: CustomEvent<Floor>;
  route: CustomEvent<ShownRoute>;
}
