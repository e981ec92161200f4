// What an element shows: the canvas, the floors, and a text with a button in place of the map.

import { releaseContext } from "../platform/surfaces.js";
import { css } from "./style.js";

const hintMilliseconds = 2000;

let sheet: CSSStyleSheet | undefined;

/** A button of the floor switch. */
export interface FloorButton {
  readonly id: string;
  /** What the button shows. */
  readonly label: string;
  /** The whole name. */
  readonly name: string;
}

/** The parts of an element, in its shadow tree. */
export class Parts {
  readonly #floors = document.createElement("div");
  readonly #message = document.createElement("div");
  readonly #text = document.createElement("span");
  readonly #progress = document.createElement("progress");
  readonly #retry = document.createElement("button");
  readonly #note = document.createElement("p");
  readonly #hint = document.createElement("p");
  readonly #root: ShadowRoot;
  #canvas: HTMLCanvasElement | null = null;
  #hintTimer: ReturnType<typeof setTimeout> | undefined;
  #hadFocus = false; // the canvas or a floor that was removed

  constructor(root: ShadowRoot, retry: () => void) {
    sheet ??= new CSSStyleSheet();
    if (sheet.cssRules.length === 0) sheet.replaceSync(css);
    root.adoptedStyleSheets = [sheet];
    this.#root = root;
    this.#floors.setAttribute("part", "floors");
    this.#floors.setAttribute("role", "group");
    this.#message.setAttribute("part", "message");
    this.#message.tabIndex = -1;
    this.#note.setAttribute("part", "note");
    this.#note.setAttribute("role", "status");
    this.#retry.type = "button";
    this.#retry.addEventListener("click", retry);
    this.#message.append(this.#text, this.#progress, this.#retry);
    // For those who see and touch the map; the keyboard needs no hint.
    this.#hint.setAttribute("part", "hint");
    this.#hint.setAttribute("aria-hidden", "true");
    root.append(this.#floors, this.#note, this.#hint, this.#message);
    this.#floors.hidden = this.#note.hidden = this.#message.hidden = true;
  }

  /** Sets the language of all texts: the tag of a language. */
  setLanguage(language: string): void {
    for (const part of [this.#message, this.#note, this.#hint, this.#floors]) {
      part.lang = language;
      part.dir = language === "ar" ? "rtl" : "ltr";
    }
  }

  /**
   * Shows a text in place of the map: with `retry`, an error; otherwise, what is going on. The text takes the
   * focus of what it replaces.
   */
  showMessage(text: string, progress: number | null, retry: string | null): void {
    this.#message.hidden = false;
    const role = retry === null ? "status" : "alert";
    if (this.#text.getAttribute("role") !== role) this.#text.setAttribute("role", role);
    if (this.#text.textContent !== text) this.#text.textContent = text; // screen readers say it once
    if (this.#hadFocus || (retry === null && this.#root.activeElement === this.#retry)) this.#message.focus({ preventScroll: true });
    this.#hadFocus = false;
    this.#progress.setAttribute("aria-label", text);
    this.#progress.hidden = retry !== null;
    if (progress === null) this.#progress.removeAttribute("value");
    else this.#progress.value = progress;
    this.#retry.hidden = retry === null;
    this.#retry.textContent = retry;
  }

  /** Shows a new canvas, whose name is `label`, and returns it. A map keeps the context of its canvas. */
  showCanvas(label: string, language: string): HTMLCanvasElement {
    const canvas = document.createElement("canvas");
    canvas.setAttribute("part", "canvas");
    canvas.setAttribute("role", "application");
    canvas.setAttribute("aria-label", label);
    canvas.lang = language;
    canvas.tabIndex = 0;
    this.removeCanvas();
    this.#canvas = canvas;
    this.#root.prepend(canvas);
    return canvas;
  }

  /** Removes the canvas and what is above it. */
  removeCanvas(): void {
    const focused = this.#root.activeElement;
    this.#hadFocus = focused !== null && (focused === this.#canvas || this.#floors.contains(focused));
    if (this.#canvas) releaseContext(this.#canvas);
    this.#canvas?.remove();
    this.#canvas = null;
    this.#floors.hidden = this.#note.hidden = true;
  }

  /** Removes the text in place of the map. The canvas takes its focus. */
  hideMessage(): void {
    if (this.#message.contains(this.#root.activeElement)) this.#canvas?.focus({ preventScroll: true });
    this.#hadFocus = false;
    this.#message.hidden = true;
  }

  /** Shows a line below, or none. */
  showNote(text: string | null): void {
    this.#note.hidden = !text;
    this.#note.textContent = text;
  }

  /** Returns what covers the map, in CSS pixels from its upper left corner, and the height up to the line below. */
  covered(): { covered: DOMRect[]; note: number } {
    const area = this.#root.host.getBoundingClientRect();
    const boxOf = (part: HTMLElement) => {
      const { x, y, width, height } = part.getBoundingClientRect();
      return new DOMRect(x - area.x, y - area.y, width, height);
    };
    const [floors, note] = [boxOf(this.#floors), boxOf(this.#note)];
    // A part that is hidden, also by a style sheet of the page, has no size.
    return { covered: [floors, note].filter(({ height }) => height > 0), note: note.height > 0 ? area.height - note.y : 0 };
  }

  /** Shows a text on the map for a short time. */
  showHint(text: string): void {
    this.#hint.textContent = text;
    this.#hint.classList.add("shown");
    clearTimeout(this.#hintTimer);
    this.#hintTimer = setTimeout(() => this.#hint.classList.remove("shown"), hintMilliseconds);
  }

  /** Fills the floor switch, the lowest floor first. One floor needs none. */
  showFloors(floors: readonly FloorButton[], label: string, chosen: (id: string) => void): void {
    this.#floors.setAttribute("aria-label", label);
    this.#floors.hidden = floors.length < 2;
    this.#floors.replaceChildren(
      ...floors.map((floor) => {
        const button = document.createElement("button");
        button.type = "button";
        button.dataset["floor"] = floor.id;
        button.textContent = floor.label;
        button.title = floor.name;
        button.addEventListener("click", () => chosen(floor.id));
        return button;
      }),
    );
  }

  /** Marks the floor that is shown. */
  markFloor(id: string): void {
    for (const button of this.#floors.querySelectorAll("button"))
      button.setAttribute("aria-pressed", String(button.dataset["floor"] === id));
  }
}
