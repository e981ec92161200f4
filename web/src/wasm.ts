// Reads and compiles the files next to the package's code, in a browser or in Node.js.

import { OrivantaError } from "./errors.js";

/** Where the bytes of the module come from. */
export type WasmSource = string | URL | BufferSource;

/** The files of the module, each as its URL or its bytes. Those that are missing are next to the package's code. */
export interface ModuleFiles {
  /** core.wasm */
  wasm?: WasmSource;
  /** core.data, of the same version */
  data?: WasmSource;
}

/** Reads a file. */
async function fetched(source: string | URL): Promise<BufferSource | Response> {
  const url = new URL(source, import.meta.url);
  if (url.protocol !== "file:") {
    const response = await fetch(url, { credentials: "same-origin" }).catch((error) => {
      throw new OrivantaError("noAnswer", `${url} cannot be loaded: ${error}`);
    });
    if (!response.ok) {
      throw new OrivantaError("otherStatus", `${url} cannot be loaded`, response.status);
    }
    return response;
  }
  const files = "node:fs/promises"; // in a variable, so that bundlers do not look for it
  const { readFile } = (await import(/* @vite-ignore */ files)) as {
    readFile(url: URL): Promise<Uint8Array<ArrayBuffer>>;
  };
  return readFile(url);
}

async function opened(source: WasmSource): Promise<BufferSource | Response> {
  return typeof source === "string" || source instanceof URL ? fetched(source) : source;
}

/** Reads a file completely. */
export async function bytesOf(source: WasmSource): Promise<Uint8Array> {
  const file = await opened(source);
  if (file instanceof Response) return new Uint8Array(await file.arrayBuffer());
  return ArrayBuffer.isView(file) ? new Uint8Array(file.buffer, file.byteOffset, file.byteLength) : new Uint8Array(file);
}

/** Compiles a module, while it is received if its type allows that. */
export async function compiled(source: WasmSource): Promise<WebAssembly.Module> {
  const bytes = await opened(source);
  try {
    if (!(bytes instanceof Response)) return await WebAssembly.compile(bytes);
    if (bytes.headers.get("Content-Type") === "application/wasm") return await WebAssembly.compileStreaming(bytes);
    return await WebAssembly.compile(await bytes.arrayBuffer());
  } catch (error) {
    // A connection that was lost meanwhile is a TypeError.
    throw new OrivantaError(error instanceof TypeError ? "noAnswer" : "unusable", `core.wasm cannot be used: ${error}`);
  }
}
