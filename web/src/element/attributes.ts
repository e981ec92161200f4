// The attributes of an element, which are properties too.

/** The names of all attributes. */
export const attributes = [
  "venue", "endpoint", "language", "floor", "from", "to", "profile", "place", "theme", "cooperative",
] as const;

/** The name of an attribute. */
export type Attribute = (typeof attributes)[number];

/** Those whose changes load the venue again. */
export const loadAttributes: readonly string[] = ["venue", "endpoint", "language"];

/** Defines properties that reflect the attributes. */
export function reflectAttributes(prototype: HTMLElement): void {
  for (const name of attributes)
    Object.defineProperty(prototype, name, {
      configurable: true,
      enumerable: true,
      get(this: HTMLElement) {
        return this.getAttribute(name);
      },
      set(this: HTMLElement, value: string | null | undefined) {
        if (value == null) this.removeAttribute(name);
        else this.setAttribute(name, value);
      },
    });
}

/** Sets properties again that were set before the element was defined: they hide the accessors. */
export function takeEarlyProperties(element: Record<Attribute, string | null>): void {
  for (const name of attributes) {
    if (!Object.hasOwn(element, name)) continue;
    const value = element[name];
    delete (element as Partial<Record<Attribute, unknown>>)[name];
    element[name] = value;
  }
}
