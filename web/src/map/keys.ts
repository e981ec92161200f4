// What keys do with a map.

const panStep = 110; // CSS pixels
const angleStep = 0.2; // radians
const zoomStep = 1.4;

const arrows: Readonly<Record<string, readonly [right: number, up: number]>> = {
  ArrowLeft: [-1, 0],
  ArrowRight: [1, 0],
  ArrowUp: [0, 1],
  ArrowDown: [0, -1],
};

/** Returns the commands of a key, see Apps/Web/Map/MapCommands.hpp, or null if it has no function. */
export function keyCommands(key: string, shift: boolean): object | null {
  const arrow = arrows[key];
  if (arrow) {
    const [right, up] = arrow;
    if (!shift) return { panBy: { right: right * panStep, up: up * panStep, glide: true } };
    return up !== 0
      ? { tiltBy: { angle: up * angleStep, glide: true } }
      : { turnBy: { angle: right * angleStep, glide: true } };
  }
  switch (key) {
    case "+":
    case "=":
      return { zoomBy: { factor: zoomStep, glide: true } };
    case "-":
    case "_":
      return { zoomBy: { factor: 1 / zoomStep, glide: true } };
    case "q":
    case "Q":
      return { turnBy: { angle: angleStep, glide: true } };
    case "e":
    case "E":
      return { turnBy: { angle: -angleStep, glide: true } };
    case "Home":
      return { fit: { glide: true } };
    default:
      return null;
  }
}
