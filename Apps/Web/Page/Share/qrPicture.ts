// QR codes as pictures.

import { encode } from "uqr";

const svgNamespace = "http://www.w3.org/2000/svg";

/** Makes a picture of a QR code. `name` is read by screen readers in its place. */
export function qrPicture(text: string, name: string): SVGSVGElement {
  const { data, size } = encode(text, { ecc: "M", border: 4 });
  let path = "";
  for (const [y, row] of data.entries())
    for (let x = 0; x < size; ++x) {
      if (!row[x]) continue;
      const begin = x;
      while (row[x + 1]) ++x;
      path += `M${begin} ${y}h${x + 1 - begin}v1H${begin}z`;
    }
  const picture = document.createElementNS(svgNamespace, "svg");
  const shape = (tag: string, attributes: Record<string, string>) => {
    const element = document.createElementNS(svgNamespace, tag);
    for (const [key, value] of Object.entries(attributes)) element.setAttribute(key, value);
    return element;
  };
  picture.setAttribute("viewBox", `0 0 ${size} ${size}`);
  picture.setAttribute("role", "img");
  picture.setAttribute("aria-label", name);
  picture.setAttribute("shape-rendering", "crispEdges");
  picture.setAttribute("class", "qr");
  // Dark on light in every theme, as readers expect it.
  picture.append(
    shape("rect", { width: String(size), height: String(size), fill: "#fff" }),
    shape("path", { d: path, fill: "#000" }),
  );
  return picture;
}
