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

  contextOf(canvas: number): WebGL2RenderingContext | null {
    return this.#canvases.get(canvas)?.getContext("webgl2", attributes) ?? null;
  }
}
