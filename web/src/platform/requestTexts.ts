// The texts of requests and responses, as Platform/Network/Fetch/PageFunctions.hpp describes them.

/** A request of the C++ code. */
export interface Request {
  url: string;
  fields: [string, string][];
}

function decoded(text: string): string {
  try {
    return decodeURIComponent(text);
  } catch {
    return text; // with a percent sign that begins no escape sequence
  }
}

/** Browsers reject URLs with credentials, so they are sent as a header field. */
export function requestOf([address = "", ...texts]: string[]): Request {
  if (!/^https?:\/\/./i.test(address)) throw new TypeError(`${address} is not an http or https URL`);
  const fields: [string, string][] = [];
  for (let i = 0; i + 1 < texts.length; i += 2) fields.push([texts[i]!, texts[i + 1]!]);
  const url = new URL(address);
  const { username, password } = url;
  url.username = url.password = "";
  if ((username || password) && !fields.some(([name]) => /^authorization$/i.test(name))) {
    const pair = new TextEncoder().encode(`${decoded(username)}:${decoded(password)}`);
    fields.push(["Authorization", `Basic ${btoa(latin1(pair))}`]);
  }
  return { url: url.href, fields };
}

/** The URL, then names and values, each ended by "\0". Header fields have a byte for each character. */
export function headOf(url: string, fields: [string, string][]): Uint8Array {
  const texts = [url, ...fields.flat()].map((text) => `${text}\0`).join("");
  return Uint8Array.from(texts, (letter) => letter.charCodeAt(0));
}

/** The bytes of a text that was received as "x-user-defined". */
export function bytesOf(text: string): Uint8Array {
  const bytes = new Uint8Array(text.length);
  for (let i = 0; i < text.length; ++i) {
    const code = text.charCodeAt(i);
    // The text begins with a byte order mark, which takes precedence.
    if (code > 0x7f && (code < 0xf780 || code > 0xf7ff)) return new TextEncoder().encode(text);
    bytes[i] = code; // the lower byte
  }
  return bytes;
}

export function latin1(bytes: Uint8Array): string {
  return Array.from(bytes, (byte) => String.fromCharCode(byte)).join("");
}
