// Breaks paragraphs into lines, mostly as the Unicode line breaking algorithm does (UAX #14).

/** Returns the width of a text in points. */
export type Measure = (text: string) => number;

// Characters at which lines break on both sides: ideographs, kana, Hangul and pictures.
const ideographic =
  /^(?![©®™])[\p{sc=Han}\p{sc=Hiragana}\p{sc=Katakana}\p{sc=Hangul}\p{Extended_Pictographic}\u3000-\u303F\uFF01-\uFF60]$/u;
// Scripts without blanks between words.
const unspaced = /^[\p{sc=Thai}\p{sc=Lao}\p{sc=Khmer}\p{sc=Myanmar}]$/u;
const blank = /^[\t \u1680\u2000-\u2006\u2008-\u200B\u205F\u3000]$/u;
const glue = /^[\u00A0\u202F\u2007\u2060\uFEFF\u200D]$/u;
const opening = /^[\p{Ps}\p{Pi}¿¡]$/u;
// Closing marks, and small kana and marks of repetition, which do not begin a line.
const closing = /^[\p{Pe}\p{Pf}!?,.:;%/…‥・、。！？，．：；％ー々ゝゞヽヾぁぃぅぇぉっゃゅょゎァィゥェォッャュョヮヵヶ]$/u;
const hyphen = /^[-\u2010\u2013\u2014/]$/u;
const letter = /^\p{L}$/u;

let segmenters: { graphemes: Intl.Segmenter; words: Intl.Segmenter } | null | undefined;

function findSegmenters(): typeof segmenters {
  if (segmenters === undefined)
    segmenters =
      typeof Intl.Segmenter === "undefined"
        ? null
        : {
            graphemes: new Intl.Segmenter(undefined, { granularity: "grapheme" }),
            words: new Intl.Segmenter(undefined, { granularity: "word" }),
          };
  return segmenters;
}

/** Returns the user-perceived characters of a text, or its code points in an old browser. */
export function graphemesOf(text: string): string[] {
  const segmenter = findSegmenters()?.graphemes;
  return segmenter ? Array.from(segmenter.segment(text), (part) => part.segment) : Array.from(text);
}

function wordStarts(text: string): Set<number> {
  const segmenter = findSegmenters()?.words;
  return new Set(segmenter ? Array.from(segmenter.segment(text), (part) => part.index) : []);
}

/** Returns whether a line may end between two characters. */
function mayBreak(before: string, after: string): boolean {
  if (blank.test(after) || glue.test(before) || glue.test(after)) return false;
  if (blank.test(before)) return true;
  if (closing.test(after) || opening.test(before)) return false;
  if (hyphen.test(before)) return letter.test(after);
  return ideographic.test(before) || ideographic.test(after);
}

/** Splits a paragraph where lines may end. */
export function breakable(paragraph: string): string[] {
  const pieces: string[] = [];
  const words = unspacedWords(paragraph);
  let piece = "";
  let before = "";
  let at = 0;
  for (const grapheme of graphemesOf(paragraph)) {
    const first = String.fromCodePoint(grapheme.codePointAt(0)!);
    const isBetweenWords = words.has(at) && unspaced.test(before) && unspaced.test(first);
    if (before && (isBetweenWords || mayBreak(before, first))) {
      pieces.push(piece);
      piece = "";
    }
    piece += grapheme;
    at += grapheme.length;
    // A mark on a letter does not change whether a line may end behind it.
    before = first;
  }
  if (piece) pieces.push(piece);
  return pieces;
}

function unspacedWords(paragraph: string): Set<number> {
  return /[\p{sc=Thai}\p{sc=Lao}\p{sc=Khmer}\p{sc=Myanmar}]/u.test(paragraph) ? wordStarts(paragraph) : new Set();
}

/** Returns how many of the first items fit: `fits` is true up to some count, and false from there on. */
function greatestCount(most: number, fits: (count: number) => boolean): number {
  let low = 0;
  let high = most;
  while (low < high) {
    const middle = Math.ceil((low + high) / 2);
    if (fits(middle)) low = middle;
    else high = middle - 1;
  }
  return low;
}

/** Splits a piece that is wider than a line. Each part has at least one character. */
function splitPiece(piece: string, widest: number, measure: Measure): string[] {
  const parts: string[] = [];
  for (let left = graphemesOf(piece); left.length > 0; ) {
    const fits = (count: number) => measure(left.slice(0, count).join("").trimEnd()) <= widest;
    const count = Math.max(1, greatestCount(left.length, fits));
    parts.push(left.slice(0, count).join(""));
    left = left.slice(count);
  }
  return parts;
}

/**
 * Breaks a paragraph into lines of at most `widest` points where that is possible. Blanks at the end of all lines but
 * the last do not count. A paragraph without text has one empty line.
 */
export function wrap(paragraph: string, widest: number, measure: Measure): string[] {
  if (measure(paragraph) <= widest) return [paragraph];
  const lines: string[] = [];
  let line = "";
  for (const piece of breakable(paragraph)) {
    if (measure((line + piece).trimEnd()) <= widest) {
      line += piece;
      continue;
    }
    if (line) lines.push(line);
    const parts = splitPiece(piece, widest, measure);
    line = parts.pop() ?? "";
    lines.push(...parts);
  }
  if (line) lines.push(line);
  return lines.map((each, index) => (index + 1 < lines.length ? each.trimEnd() : each));
}

/** Shortens a line to a width and adds an ellipsis, unless it fits. */
export function ellipsize(line: string, widest: number, measure: Measure): string {
  if (measure(line.trimEnd()) <= widest) return line;
  const graphemes = graphemesOf(line);
  const shortened = (count: number) => graphemes.slice(0, count).join("").trimEnd() + "…";
  return shortened(greatestCount(graphemes.length, (count) => measure(shortened(count)) <= widest));
}
