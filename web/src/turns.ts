// Later turns of the event loop.

/** Returns a function that calls `turn` in a later turn. Timers would be slowed down by browsers. */
export function turnRequest(turn: () => void): () => void {
  const immediate = (globalThis as { setImmediate?: (callback: () => void) => unknown }).setImmediate;
  // Node.js: a message channel would keep the process running.
  if (immediate) return () => void immediate(turn);
  const channel = new MessageChannel();
  channel.port1.onmessage = turn;
  return () => channel.port2.postMessage(null);
}
