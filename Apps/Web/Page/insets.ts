// Which parts of the map the panels cover.

/** The covered margins and rectangles, in CSS pixels from the upper left corner of the map. */
export interface Covered {
  readonly insets: { readonly top: number; readonly right: number; readonly bottom: number; readonly left: number };
  readonly covered: readonly { readonly x: number; readonly y: number; readonly width: number; readonly height: number }[];
}

const margin = 8; // CSS pixels
const mostShare = 0.55; // of the width or height that a margin takes; the rest shows the map

/** Measures the panels over a map. */
export function insetsOf(map: Element): Covered {
  const area = map.getBoundingClientRect();
  const rectangles = (selector: string) =>
    [...document.querySelectorAll(selector)]
      .map((element) => element.getBoundingClientRect())
      .filter(({ width, height }) => width > 0 && height > 0);
  const panels = rectangles(".bar, .standing, .search, .panel, .kiosk-languages");
  const sides = rectangles(".floors, .map-buttons");
  const insets = { top: margin, right: margin, bottom: margin, left: margin };
  const isWide = matchMedia("(min-width: 720px)").matches;
  for (const panel of panels) {
    if (!isWide && panel.bottom > area.bottom - 2) insets.bottom = Math.max(insets.bottom, area.bottom - panel.top);
    else if (!isWide) insets.top = Math.max(insets.top, panel.bottom - area.top);
    else if (panel.width > area.width * 0.6) insets.bottom = Math.max(insets.bottom, area.bottom - panel.top);
    else if (panel.left < area.left + area.width / 2) insets.left = Math.max(insets.left, panel.right - area.left);
    else insets.right = Math.max(insets.right, area.right - panel.left);
  }
  for (const side of sides) {
    // A row of buttons is at the upper edge.
    if (side.width > side.height) insets.top = Math.max(insets.top, side.bottom - area.top);
    else if (side.left > area.left + area.width / 2) insets.right = Math.max(insets.right, area.right - side.left);
    else insets.left = Math.max(insets.left, side.right - area.left);
  }
  const within = (value: number, side: number) => Math.min(value, side * mostShare);
  return {
    insets: {
      top: within(insets.top, area.height),
      right: within(insets.right, area.width),
      bottom: within(insets.bottom, area.height),
      left: within(insets.left, area.width),
    },
    covered: [...panels, ...sides].map(({ x, y, width, height }) => ({ x: x - area.x, y: y - area.y, width, height })),
  };
}
