// Passes pointers, the wheel and keys on a canvas to a map.

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
}

/** Listens to a canvas until the signal. */
export function listen(canvas: HTMLCanvasElement, user: InputUser, signal: AbortSignal): void {
  const pressed = new Map<number, number>(); // pointers that are down, and their devices
  let clicks = { count: 0, time: 0, x: 0, y: 0 };

  const countClick = (event: PointerEvent): number => {
    const isNear = Math.hypot(event.offsetX - clicks.x, event.offsetY - clicks.y) <= doubleClickSlack;
    const isNext = isNear && event.timeStamp - clicks.time <= doubleClickTime && clicks.count === 1;
    clicks = { count: isNext ? 2 : 1, time: event.timeStamp, x: event.offsetX, y: event.offsetY };
    return clicks.count;
  };

  const send = (event: PointerEvent, device: number, count = 1): void =>
    user.point(
      device,
      phases[event.type] ?? 3,
      event.pointerId,
      count,
      event.offsetX,
      event.offsetY,
      event.timeStamp / 1000,
    );

  const press = (event: PointerEvent): void => {
    if (event.pointerType === "mouse" && event.button > 2) return;
    const isMain = event.button === 0 && !event.ctrlKey;
    const device = event.pointerType !== "mouse" ? finger : isMain ? mouse : otherMouse;
    pressed.set(event.pointerId, device);
    try {
      canvas.setPointerCapture(event.pointerId);
    } catch {
      // The pointer is gone already.
    }
    canvas.focus({ preventScroll: true });
    if (event.pointerType === "mouse") event.preventDefault(); // no selection of texts
    send(event, device, device === mouse ? countClick(event) : 1);
  };

  const follow = (event: PointerEvent): void => {
    const device = pressed.get(event.pointerId);
    if (device === undefined) return;
    if (event.type !== "pointermove") pressed.delete(event.pointerId);
    send(event, device);
  };

  const roll = (event: WheelEvent): void => {
    event.preventDefault();
    const pixels = event.deltaY * (event.deltaMode === 1 ? wheelStep / 3 : event.deltaMode === 2 ? 300 : 1);
    user.wheel(event.offsetX, event.offsetY, -pixels / wheelStep, event.ctrlKey);
  };

  const type = (event: KeyboardEvent): void => {
    if (event.altKey || event.ctrlKey || event.metaKey) return;
    if (user.key(event.key, event.shiftKey)) event.preventDefault();
  };

  canvas.style.touchAction = "none";
  canvas.addEventListener("pointerdown", press, { signal });
  canvas.addEventListener("pointermove", follow, { signal });
  canvas.addEventListener("pointerup", follow, { signal });
  canvas.addEventListener("pointercancel", follow, { signal });
  canvas.addEventListener("wheel", roll, { signal, passive: false });
  canvas.addEventListener("contextmenu", (event) => event.preventDefault(), { signal });
  canvas.addEventListener("keydown", type, { signal });
  addEventListener("blur", () => (pressed.clear(), user.cancel(performance.now() / 1000)), { signal });
}
