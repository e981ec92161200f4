export { Orivanta } from "./orivanta.js";
export type { ServerSettings, VenueEntry, VenueOptions, VenuePackage } from "./orivanta.js";
export { OrivantaError } from "./errors.js";
export type { ErrorKind } from "./errors.js";
export type { LoadProgress, WasmSource } from "./engine.js";
export type { Category, Connector, Floor, Node, Place } from "./records.js";
export type { FoundPlace, LoadProblem, Route, RouteEnd, Venue } from "./venue.js";
export type { Guidance, GuidanceProblem, GuideRequest, ProfileName, Step, Stop } from "./guidance.js";
export type { Card, CardOptions, Catalog, CatalogGroup, CatalogPlace, Nearest, NearestOptions } from "./visitor.js";
