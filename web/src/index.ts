export { Orivanta } from "./orivanta.js";
export type { ServerSettings, VenueEntry, VenueOptions, VenuePackage } from "./orivanta.js";
export { OrivantaError } from "./errors.js";
export type { ErrorKind } from "./errors.js";
export type { LoadProgress, WasmSource } from "./engine.js";
export { MapView } from "./map.js";
export type { Insets, Motion, RouteLook } from "./map.js";
export type {
  CameraPose,
  FloorLoad,
  MapEvents,
  MapLook,
  MapProblem,
  MapTap,
  MapTheme,
  Marker,
  MarkerOptions,
  Position,
  ShowOptions,
  VisitorPosition,
} from "./mapTypes.js";
export type { Category, Connector, Floor, Node, Place } from "./records.js";
export type { FoundPlace, LoadProblem, Route, RouteEnd, Venue } from "./venue.js";
export type { Guidance, GuidanceProblem, GuideRequest, ProfileName, Step, Stop, Visit } from "./guidance.js";
export type {
  Card,
  CardOptions,
  Catalog,
  CatalogGroup,
  CatalogPlace,
  IconPart,
  KindIcon,
  Nearest,
  NearestOptions,
} from "./visitor.js";
