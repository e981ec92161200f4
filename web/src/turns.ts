// Later turns of the event loop.

/** Returns a function that calls `turn` in a later turn, until `end`. Timers would be slowed down by browsers. */
export function turnRequest(turn: () => void, end: AbortSignal): () => void {
  const immediate = (globalThis as { setImmediate?: (callback: () => void) => unknown }).setImmediate;
  // Node.js: a message channel would keep the process running.
  if (immediate) return () => void immediate(turn);
  const channel = new MessageChannel();
  channel.port1.onmessage = turn;
  // Browsers keep the port, and all that `turn` uses, as long as it is open.
  end.addEventListener("abort", () => channel.port1.close());
  return () => channel.port2.postMessage(null);
}
