// The canvases on which maps are drawn. The function `contextOf` is that of
// Platform/Render/WebCanvas/PageFunctions.js.

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

/** The canvases, by number. */
export class CanvasTable implements Surfaces {
  readonly #canvases = new Map<number, HTMLCanvasElement>();
  #last = 0;

  add(canvas: HTMLCanvasElement): number {
    this.#canvases.set(++this.#last, canvas);
    return this.#last;
  }

  remove(canvas: number): void {
    this.#canvases.delete(canvas);
  }

  /** Also to be called when a context that was lost is back. */
  contextOf(canvas: number): WebGL2RenderingContext | null {
    const context = this.#canvases.get(canvas)?.getContext("webgl2", attributes) ?? null;
    if (context) enableExtensions(context);
    return context;
  }
}
