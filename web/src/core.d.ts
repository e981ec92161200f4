// The module that emscripten makes of Apps/Web. Its functions are described in Apps/Web/Exports.cpp.
// Addresses and lengths are numbers.

import type { Network } from "./platform/network.js";

/** The code of the page that the module calls. */
export interface Platform {
  requestTurn(): void;
  loadProgressed(load: number, done: number, count: number, pages: number, bytes: number): void;
  loadEnded(load: number, text: number, length: number): void;
  /** The functions of Platform/Network/Fetch/PageFunctions.js. */
  network: Network;
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
  _orivantaResultLength(): number;
  _orivantaAddToPackage(name: number, nameLength: number, text: number, length: number): number;
  _orivantaDropPackage(): void;
  _orivantaStartLoad(settings: number, length: number): number;
  _orivantaCancelLoad(load: number): void;
  _orivantaRemoveVenue(venue: number): void;
  _orivantaRecords(venue: number): number;
  _orivantaNodes(venue: number): number;
  _orivantaRoute(venue: number, from: number, fromCount: number, to: number, toCount: number): number;
  _orivantaAddLanguage(tag: number, tagLength: number, file: number, length: number): number;
  _orivantaPlan(venue: number, text: number, length: number): number;
  _orivantaSearch(venue: number, text: number, length: number): number;
}

export interface CoreOptions {
  platform: Platform;
  instantiateWasm(
    imports: WebAssembly.Imports,
    received: (instance: WebAssembly.Instance) => void,
  ): object;
  print?(line: string): void;
  printErr?(line: string): void;
}

export default function createCore(options: CoreOptions): Promise<Core>;
