// Makes elements.

type Child = Node | string | null | undefined | false;
type Handlers = { [Name in keyof HTMLElementEventMap as `on${Name}`]?: (event: HTMLElementEventMap[Name]) => void };
type Members = Handlers & { [name: string]: unknown };

/**
 * Makes an element. Members that begin with "on" are handlers of events, those that are true, false or null set
 * or omit an attribute, and all others are attributes.
 */
export function h<Tag extends keyof HTMLElementTagNameMap>(
  tag: Tag,
  members: Members = {},
  ...children: Child[]
): HTMLElementTagNameMap[Tag] {
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(members)) {
    if (typeof value === "function") element.addEventListener(name.slice(2), value as EventListener);
    else setAttribute(element, name, value);
  }
  element.append(...children.filter((child): child is Node | string => child !== null && child !== undefined && child !== false));
  return element;
}

/** Sets an attribute; false, null and undefined remove it, true leaves it empty. */
export function setAttribute(element: Element, name: string, value: unknown): void {
  if (value === false || value === null || value === undefined) element.removeAttribute(name);
  else element.setAttribute(name, value === true ? "" : String(value));
}

let lastIdentifier = 0;

/** Returns an identifier that no other element of the page has. */
export function newIdentifier(prefix: string): string {
  lastIdentifier += 1;
  return `${prefix}-${lastIdentifier}`;
}

/** Calls `update` and gives the focus to the element with the same `data-key` as the one that had it before. */
export function keepingFocus(container: Element, update: () => void): void {
  const active = document.activeElement;
  const key = active && container.contains(active) ? active.getAttribute("data-key") : null;
  update();
  if (key === null) return;
  for (const element of container.querySelectorAll<HTMLElement>("[data-key]")) {
    if (element.getAttribute("data-key") === key) return element.focus({ preventScroll: true });
  }
}
