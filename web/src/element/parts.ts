// What an element shows: the canvas, the floors, and a text with a button in place of the map.

const css = `
:host { display: block; position: relative; min-height: 12rem; overflow: hidden; contain: content;
  font: 1rem/1.4 system-ui, sans-serif; color: #1c1b1f; background: #eceef1; --shade: rgb(255 255 255 / 92%); }
:host([hidden]) { display: none; }
:host([theme="dark"]) { color: #f2f2f5; background: #17191d; --shade: rgb(32 34 39 / 92%); }
canvas { position: absolute; inset: 0; inline-size: 100%; block-size: 100%; outline-offset: -3px; }
[hidden] { display: none !important; }
[part="floors"] { position: absolute; inset-block-start: .75rem; inset-inline-end: .75rem; max-block-size: calc(100% - 1.5rem);
  overflow: auto; display: flex; flex-direction: column-reverse; border-radius: .75rem; background: var(--shade);
  box-shadow: 0 1px 4px rgb(0 0 0 / 30%); }
button { font: inherit; color: inherit; background: none; border: 0; border-radius: .75rem; min-inline-size: 2.75rem;
  min-block-size: 2.75rem; padding: 0 .5rem; cursor: pointer; }
[part="floors"] button { flex: none; }
button[aria-pressed="true"] { color: #fff; background: #0b57d0; }
button:focus-visible, canvas:focus-visible { outline: 3px solid #0b57d0; }
[part="message"] { position: absolute; inset: 0; display: flex; flex-direction: column; align-items: center;
  justify-content: center; gap: .75rem; padding: 1rem; text-align: center; }
[part="message"] button { border: 1px solid currentcolor; padding: 0 1rem; }
[part="note"] { position: absolute; inset-inline: .75rem; inset-block-end: .75rem; margin: 0; inline-size: fit-content;
  padding: .5rem .75rem; border-radius: .75rem; background: var(--shade); }
progress { inline-size: min(16rem, 80%); }
`;

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
  readonly #root: ShadowRoot;
  #canvas: HTMLCanvasElement | null = null;

  constructor(root: ShadowRoot, retry: () => void) {
    sheet ??= new CSSStyleSheet();
    if (sheet.cssRules.length === 0) sheet.replaceSync(css);
    root.adoptedStyleSheets = [sheet];
    this.#root = root;
    this.#floors.setAttribute("part", "floors");
    this.#floors.setAttribute("role", "group");
    this.#message.setAttribute("part", "message");
    this.#note.setAttribute("part", "note");
    this.#note.setAttribute("role", "status");
    this.#text.setAttribute("role", "status");
    this.#retry.type = "button";
    this.#retry.addEventListener("click", retry);
    this.#message.append(this.#text, this.#progress, this.#retry);
    root.append(this.#floors, this.#note, this.#message);
    this.#floors.hidden = this.#note.hidden = this.#message.hidden = true;
  }

  /** Shows a text in place of the map: with `retry`, an error; otherwise, what is going on. */
  showMessage(text: string, progress: number | null, retry: string | null): void {
    this.#message.hidden = false;
    this.#text.textContent = text;
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
    this.#canvas?.remove();
    this.#canvas = null;
    this.#floors.hidden = this.#note.hidden = true;
  }

  /** Removes the text in place of the map. */
  hideMessage(): void {
    this.#message.hidden = true;
  }

  /** Shows a line below, or none. */
  showNote(text: string | null): void {
    this.#note.hidden = !text;
    this.#note.textContent = text;
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
