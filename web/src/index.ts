export { Orivanta } from "./orivanta.js";
export type { ServerSettings, VenueEntry, VenueOptions, VenuePackage } from "./orivanta.js";
export { OrivantaError } from "./errors.js";
export type { ErrorKind } from "./errors.js";
export { bestLanguage } from "./languages.js";
export type { LoadProgress } from "./loads.js";
export type { ModuleFiles, WasmSource } from "./wasm.js";
export { MapView } from "./map/view.js";
export type {
  CameraPose,
  FloorLoad,
  Insets,
  MapEvents,
  MapLook,
  MapProblem,
  MapTap,
  MapTheme,
  Marker,
  MarkerOptions,
  Motion,
  Position,
  RefusedGesture,
  RouteLook,
  ShowOptions,
  VisitorPosition,
} from "./map/types.js";
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
