// The module that emscripten makes of Apps/Web. Its functions are described in Apps/Web/Exports.cpp.
// Addresses and lengths are numbers.

import type { Files } from "./platform/files.js";
import type { Graphics } from "./platform/graphics.js";
import type { Network } from "./platform/network.js";
import type { Surfaces } from "./platform/surfaces.js";

/** The code of the page that the module calls. */
export interface Platform {
  requestTurn(): void;
  loadProgressed(load: number, done: number, count: number, pages: number, bytes: number): void;
  loadEnded(load: number, text: number, length: number): void;
  /** The functions of Platform/Foundation/Browser/FileFunctions.js. */
  files: Files;
  /** The functions of Platform/Network/Fetch/PageFunctions.js. */
  network: Network;
  /** The functions of Platform/Graphics/Canvas/PageFunctions.js. */
  graphics: Graphics;
  /** The functions of Platform/Render/WebCanvas/PageFunctions.js. */
  surfaces: Surfaces;
  /** The functions of Apps/Web/Map/PageFunctions.js. */
  maps: {
    wantsFrame(map: number): void;
    event(map: number, text: number, length: number): void;
  };
}

export interface Core {
  readonly HEAPU8: Uint8Array;
  readonly HEAP32: Int32Array;
  readonly HEAPF64: Float64Array;
  _malloc(bytes: number): number;
  _free(address: number): void;
  _orivantaFetchRoom(request: number, part: number, count: number): number;
  _orivantaFetchEnded(request: number, status: number): void;
  _orivantaBegin(): void;
  _orivantaRunTurn(): void;
  _orivantaTrap(): void;
  _orivantaResultLength(): number;
  _orivantaAddToPackage(name: number, nameLength: number, text: number, length: number): number;
  _orivantaDropPackage(): void;
  _orivantaStartLoad(settings: number, length: number): number;
  _orivantaCancelLoad(load: number): void;
  _orivantaRemoveVenue(venue: number): void;
  _orivantaRecords(venue: number): number;
  _orivantaNodes(venue: number): number;
  _orivantaRoute(venue: number, from: number, fromCount: number, to: number, toCount: number): number;
  _orivantaAddResources(file: number, length: number): number;
  _orivantaAddLanguage(tag: number, tagLength: number, file: number, length: number): number;
  _orivantaPlan(venue: number, text: number, length: number): number;
  _orivantaSearch(venue: number, text: number, length: number): number;
  _orivantaOpenMap(venue: number, canvas: number): number;
  _orivantaLoadMap(map: number, first: number): void;
  _orivantaCloseMap(map: number): void;
  _orivantaMapFrame(map: number, width: number, height: number, scale: number, time: number): void;
  _orivantaMapPointer(
    map: number,
    device: number,
    phase: number,
    pointer: number,
    clicks: number,
    x: number,
    y: number,
    time: number,
  ): void;
  _orivantaMapWheel(map: number, x: number, y: number, steps: number, isPinch: number): void;
  _orivantaMapCancel(map: number, time: number): void;
  _orivantaMapContext(map: number, isThere: number): void;
  _orivantaMapRedrawTexts(map: number): void;
  _orivantaMapDo(map: number, text: number, length: number): number;
  _orivantaMapFinish(map: number): void;
  _orivantaMapPoint(map: number, x: number, y: number, z: number): number;
  _orivantaVisitor(venue: number, text: number, length: number): number;
}

export interface CoreOptions {
  platform: Platform;
  instantiateWasm(
    imports: WebAssembly.Imports,
    received: (instance: WebAssembly.Instance) => void,
  ): object;
  printErr?(line: string): void;
  onAbort?(): void;
}

export default function createCore(options: CoreOptions): Promise<Core>;
