// The texts of the element by language, which web/element-texts.mjs writes.

export interface ElementTexts {
  readonly loading: string;
  /** The name of the floor switch. */
  readonly floors: string;
  /** The button that loads again. */
  readonly retry: string;
  readonly failed: string;
  readonly refused: string;
  readonly silent: string;
  /** With a placeholder {slug}. */
  readonly unknown: string;
  /** What moves the map if one finger does not. */
  readonly fingers: string;
  /** What zooms the map if the wheel alone does not. With a placeholder {key}. */
  readonly wheel: string;
  /** The name of the Control key. */
  readonly control: string;
}

declare const texts: Readonly<Record<string, ElementTexts>>;
export default texts;
