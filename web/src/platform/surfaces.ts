// The canvases on which maps are drawn. The function `contextOf` is that of
// Platform/Render/WebCanvas/PageFunctions.js.

import { OrivantaError } from "../errors.js";

/** What the module's renderer calls. */
export interface Surfaces {
  /** Returns the WebGL 2 context of a canvas, or null if the browser has none. */
  contextOf(canvas: number): WebGL2RenderingContext | null;
}

const attributes: WebGLContextAttributes = {
  alpha: true,
  antialias: false,
  depth: false,
  stencil: false,
  premultipliedAlpha: true,
};

// Software is slow at it.
const anisotropy = "EXT_texture_filter_anisotropic";
const isSoftware = (context: WebGL2RenderingContext): boolean =>
  context.getExtension("WEBGL_debug_renderer_info") !== null &&
  /SwiftShader|llvmpipe|softpipe|Basic Render/.test(
    String(context.getParameter(0x9246)), // UNMASKED_RENDERER_WEBGL
  );

// A context has the extensions that a page enables, but lists all that it could have.
function enableExtensions(context: WebGL2RenderingContext): void {
  const enabled = !isSoftware(context) && context.getExtension(anisotropy) ? [anisotropy] : [];
  context.getSupportedExtensions = () => enabled;
}

// A canvas of which the page has a context of another type gets none, although the browser supports it.
function supportsGraphics(): boolean {
  const canvas = document.createElement("canvas");
  return canvas.getContext("webgl2") !== null && (releaseContext(canvas), true);
}

/** Browsers allow few contexts at once, and take one back only when its canvas is collected. */
export function releaseContext(canvas: HTMLCanvasElement): void {
  canvas.getContext("webgl2")?.getExtension("WEBGL_lose_context")?.loseContext();
}

/** The canvases, by number. */
export class CanvasTable implements Surfaces {
  readonly #canvases = new Map<number, HTMLCanvasElement>();
  #last = 0;
  #spare: HTMLCanvasElement | null = null;

  /** Makes a canvas whose context is being made, for the next map that needs one. Does nothing if there is one. */
  prepare(): void {
    if (this.#spare || !globalThis.document) return;
    this.#spare = document.createElement("canvas");
    this.#spare.getContext("webgl2", attributes);
  }

  /** Returns the prepared canvas, or a new one. */
  take(): HTMLCanvasElement {
    const spare = this.#spare;
    this.#spare = null;
    return spare && !spare.getContext("webgl2")?.isContextLost() ? spare : document.createElement("canvas");
  }

  /** Releases the prepared canvas. */
  clear(): void {
    if (this.#spare) releaseContext(this.#spare);
    this.#spare = null;
  }

  add(canvas: HTMLCanvasElement): number {
    this.#canvases.set(++this.#last, canvas);
    return this.#last;
  }

  remove(canvas: number): void {
    this.#canvases.delete(canvas);
  }

  /** Returns why a canvas got no context. */
  refusal(): OrivantaError {
    return supportsGraphics()
      ? new OrivantaError("invalid", "the canvas has a context that was lost or is not of WebGL 2")
      : new OrivantaError("unsupported", "the browser does not support WebGL 2");
  }

  /** Also to be called when a context that was lost is back. */
  contextOf(canvas: number): WebGL2RenderingContext | null {
    const context = this.#canvases.get(canvas)?.getContext("webgl2", attributes);
    if (!context || context.isContextLost()) return null;
    enableExtensions(context);
    return context;
  }
}
