// Passes pointers, the wheel and keys on a canvas to a map.

import { CooperativeFingers } from "./fingers.js";
import type { RefusedGesture } from "./types.js";

/** The devices and phases of pointers, in the order of the module's enumerations. */
const finger = 0;
const mouse = 1;
const otherMouse = 2;
const phases: Readonly<Record<string, number>> = { pointerdown: 0, pointermove: 1, pointerup: 2, pointercancel: 3 };

const doubleClickTime = 500; // milliseconds
const doubleClickSlack = 6; // CSS pixels
const wheelStep = 100; // CSS pixels that a usual wheel scrolls per step

/** What the input asks of the map. Points are in CSS pixels, times in seconds. */
export interface InputUser {
  point(device: number, phase: number, pointer: number, clicks: number, x: number, y: number, time: number): void;
  wheel(x: number, y: number, steps: number, isPinch: boolean): void;
  cancel(time: number): void;
  /** Returns whether the key does something. */
  key(key: string, shift: boolean): boolean;
  /** A gesture was left to the page. */
  refused(gesture: RefusedGesture): void;
}

/** Listens to a canvas until the signal. */
export class MapInput {
  readonly #canvas: HTMLCanvasElement;
  readonly #user: InputUser;
  readonly #pressed = new Map<number, number>(); // pointers that are down, and their devices
  readonly #fingers: CooperativeFingers;
  #clicks = { count: 0, time: 0, x: 0, y: 0 };
  #isCooperative = false;

  constructor(canvas: HTMLCanvasElement, user: InputUser, signal: AbortSignal) {
    this.#canvas = canvas;
    this.#user = user;
    this.#fingers = new CooperativeFingers(
      (type, event) => this.#send(finger, type, event),
      () => user.refused("touch"),
    );
    this.isCooperative = false;
    const listen = <Name extends keyof HTMLElementEventMap>(name: Name, handler: (event: HTMLElementEventMap[Name]) => void) =>
      canvas.addEventListener(name, handler, { signal, passive: false });
    listen("pointerdown", (event) => this.#press(event));
    for (const name of ["pointermove", "pointerup", "pointercancel"] as const) listen(name, (event) => this.#follow(event));
    for (const name of ["touchstart", "touchmove"] as const) listen(name, (event) => this.#keepFingers(event));
    listen("wheel", (event) => this.#roll(event));
    listen("contextmenu", (event) => event.preventDefault());
    listen("keydown", (event) => this.#type(event));
    addEventListener("blur", () => this.#lose(), { signal });
  }

  /** See `ShowOptions`. */
  get isCooperative(): boolean {
    return this.#isCooperative;
  }

  set isCooperative(isCooperative: boolean) {
    this.#lose();
    this.#isCooperative = isCooperative;
    this.#canvas.style.touchAction = isCooperative ? "pan-x pan-y" : "none";
  }

  #send(device: number, type: string, event: PointerEvent, clicks = 1): void {
    const { pointerId, offsetX, offsetY, timeStamp } = event;
    this.#user.point(device, phases[type] ?? 3, pointerId, clicks, offsetX, offsetY, timeStamp / 1000);
  }

  #press(event: PointerEvent): void {
    if (event.pointerType === "mouse" && event.button > 2) return;
    const isMain = event.button === 0 && !event.ctrlKey;
    const device = event.pointerType !== "mouse" ? finger : isMain ? mouse : otherMouse;
    this.#pressed.set(event.pointerId, device);
    try {
      this.#canvas.setPointerCapture(event.pointerId);
    } catch {
      // The pointer is gone already.
    }
    // A finger that scrolls the page takes the focus from nothing; after a tap, the browser gives it to the canvas.
    if (device !== finger || !this.#isCooperative) this.#canvas.focus({ preventScroll: true });
    if (device !== finger) event.preventDefault(); // no selection of texts
    this.#pass(device, event, device === mouse ? this.#countClick(event) : 1);
  }

  #follow(event: PointerEvent): void {
    const device = this.#pressed.get(event.pointerId);
    if (device === undefined) return;
    if (event.type !== "pointermove") this.#pressed.delete(event.pointerId);
    this.#pass(device, event);
  }

  #pass(device: number, event: PointerEvent, clicks = 1): void {
    if (device === finger && this.#isCooperative) this.#fingers.pass(event);
    else this.#send(device, event.type, event, clicks);
  }

  #countClick({ offsetX: x, offsetY: y, timeStamp: time }: PointerEvent): number {
    const last = this.#clicks;
    const isNear = Math.hypot(x - last.x, y - last.y) <= doubleClickSlack;
    const isNext = isNear && time - last.time <= doubleClickTime && last.count === 1;
    this.#clicks = { count: isNext ? 2 : 1, time, x, y };
    return this.#clicks.count;
  }

  // The page would scroll with two fingers too.
  #keepFingers(event: TouchEvent): void {
    if (this.#isCooperative && event.touches.length > 1 && event.cancelable) event.preventDefault();
  }

  #roll(event: WheelEvent): void {
    if (this.#isCooperative && !event.ctrlKey && !event.metaKey) return this.#user.refused("wheel");
    event.preventDefault();
    const pixels = event.deltaY * (event.deltaMode === 1 ? wheelStep / 3 : event.deltaMode === 2 ? 300 : 1);
    // Browsers report a pinch on a trackpad as small turns of the wheel with the Control key.
    const isPinch = event.ctrlKey && Math.abs(pixels) < wheelStep / 2;
    this.#user.wheel(event.offsetX, event.offsetY, -pixels / wheelStep, isPinch);
  }

  #type(event: KeyboardEvent): void {
    if (event.altKey || event.ctrlKey || event.metaKey) return;
    if (this.#user.key(event.key, event.shiftKey)) event.preventDefault();
  }

  #lose(): void {
    if (this.#pressed.size === 0) return;
    this.#pressed.clear();
    this.#fingers.clear();
    this.#user.cancel(performance.now() / 1000);
  }
}
