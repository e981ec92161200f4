// Reads and compiles the files next to the package's code, in a browser or in Node.js.

import { OrivantaError } from "./errors.js";

/** Where the bytes of the module come from. */
export type WasmSource = string | URL | BufferSource;

/** Reads a file. */
export async function fetched(source: string | URL): Promise<BufferSource | Response> {
  const url = new URL(source, import.meta.url);
  if (url.protocol !== "file:") {
    const response = await fetch(url, { credentials: "same-origin" });
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

/** Compiles a module, while it is received if its type allows that. */
export async function compiled(source: WasmSource): Promise<WebAssembly.Module> {
  const isFile = typeof source === "string" || source instanceof URL;
  const bytes = isFile ? await fetched(source) : source;
  if (!(bytes instanceof Response)) return WebAssembly.compile(bytes);
  if (bytes.headers.get("Content-Type") === "application/wasm") {
    return WebAssembly.compileStreaming(bytes);
  }
  return WebAssembly.compile(await bytes.arrayBuffer());
}
