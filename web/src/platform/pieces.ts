// Lists of pieces of memory, as WASI passes them: pairs of an address and a length.

/**
 * Calls a function for each of the pieces of memory in a list until it uses less than the whole piece. Writes the sum
 * of what it returns.
 */
export function eachPiece(
  memory: Uint8Array,
  pieces: number,
  count: number,
  target: number,
  use: (piece: Uint8Array) => number,
): number {
  const view = new DataView(memory.buffer);
  let sum = 0;
  for (let i = 0; i < count; ++i) {
    const address = view.getUint32(pieces + 8 * i, true);
    const length = view.getUint32(pieces + 8 * i + 4, true);
    const used = use(memory.subarray(address, address + length));
    sum += used;
    if (used < length) break;
  }
  view.setUint32(target, sum, true);
  return 0;
}
