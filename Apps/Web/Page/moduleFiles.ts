// The files of the module, whose names have hashes here.

import type { ModuleFiles } from "orivanta";
import data from "orivanta/core.data";
import wasm from "orivanta/core.wasm";

/** Where the page has the files of the module. */
export const moduleFiles: ModuleFiles = { wasm: new URL(wasm, document.baseURI), data: new URL(data, document.baseURI) };
