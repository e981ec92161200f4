// The symbols of controls and instructions: lines on a square of side 24.

const paths = {
  search: "M15.5 15.5 21 21M17.5 10.5a7 7 0 1 1-14 0 7 7 0 0 1 14 0",
  close: "M5 5 19 19M19 5 5 19",
  back: "M14.5 4.5 7 12l7.5 7.5",
  forward: "M9.5 4.5 17 12l-7.5 7.5",
  list: "M7 7h10M7 12h10M7 17h10",
  dots: "M6 12h.01M12 12h.01M18 12h.01",
  swap: "M8 20V4L4 8M8 4l4 4M16 4v16l-4-4M16 20l4-4",
  remove: "M5 12h14",
  plus: "M12 5v14M5 12h14",
  minus: "M5 12h14",
  fit: "M4 9V4h5M15 4h5v5M20 15v5h-5M9 20H4v-5",
  layers: "M12 3 2.5 8 12 13l9.5-5zM2.5 12 12 17l9.5-5M2.5 16 12 21l9.5-5",
  settings: "M3.5 7H13M18.5 7h2M3.5 17h2M11 17h9.5M18.5 7A2.75 2.75 0 1 1 13 7a2.75 2.75 0 0 1 5.5 0M11 17a2.75 2.75 0 1 1-5.5 0 2.75 2.75 0 0 1 5.5 0",
  help: "M9 9a3 3 0 1 1 4.5 2.6C12.4 12.3 12 13 12 14M12 18h.01",
  clock: "M12 7v5l3.5 2M21 12a9 9 0 1 1-18 0 9 9 0 0 1 18 0",
  phone: "M6 3h3l1.5 5-2 1.5a12 12 0 0 0 6 6l1.5-2 5 1.5v3a2 2 0 0 1-2 2A17 17 0 0 1 4 5a2 2 0 0 1 2-2",
  web: "M21 12a9 9 0 1 1-18 0 9 9 0 0 1 18 0M3 12h18M12 3c5 5 5 13 0 18M12 3c-5 5-5 13 0 18",
  play: "M8 5v14l11-7z",
  straight: "M12 21V4M5.5 10.5 12 4l6.5 6.5",
  left: "M17 21v-8.5Q17 8.2 12.7 8.2H4M9.5 2.7 4 8.2l5.5 5.5",
  bear: "M15 21v-6.5L6.2 5.2M6.2 12.8V5.2h7.6",
  sharp: "M17 21V4.5l-11.5 10M6.1 9l-.6 5.5 5.5.1",
  around: "M17 21V9a5 5 0 0 0-10 0v8M2.5 12.5 7 17l4.5-4.5",
  lift: "M4 2.5h16v19H4zM8.3 10 12 6.3 15.7 10M8.3 14l3.7 3.7 3.7-3.7",
  stairs: "M3 21h5v-5h5v-5h5V6h4",
  escalator: "M2 21h5l10.5-11H22M7.5 14.5l8-8.5",
  ramp: "M2 20.5h20v-9z",
  upAndDown: "M7 20V4L3 8M7 4l4 4M17 4v16l-4-4M17 20l4-4",
  share: "M12 15V3M7.5 7.5 12 3l4.5 4.5M6 11H4.5v10h15V11H18",
  qr: "M4 4h6v6H4zM14 4h6v6h-6zM4 14h6v6H4zM14 14h2v2h-2zM20 14v2M14 20h2M19 19h1v1h-1z",
  pin: "M12 22 5.8 12.7a7 7 0 1 1 12.4 0zM12 9.5h.01",
} as const;

export type IconName = keyof typeof paths;

/** Makes a symbol. It is hidden from screen readers. `isMirrored` exchanges left and right. */
export function icon(name: IconName, isMirrored = false): SVGSVGElement {
  return svg("0 0 24 24", `icon${isMirrored ? " is-mirrored" : ""}`, [{ d: paths[name] }]);
}

/** Makes a drawing of paths. */
export function svg(
  viewBox: string,
  className: string,
  parts: readonly Readonly<Record<string, string>>[],
): SVGSVGElement {
  const namespace = "http://www.w3.org/2000/svg";
  const element = document.createElementNS(namespace, "svg");
  for (const [name, value] of Object.entries({ viewBox, class: className, "aria-hidden": "true" })) {
    element.setAttribute(name, value);
  }
  for (const part of parts) {
    const path = document.createElementNS(namespace, "path");
    for (const [name, value] of Object.entries(part)) path.setAttribute(name, value);
    element.append(path);
  }
  return element;
}
