// Work that can wait until the page has what it needs: it would take time from the first picture.

const pause = 1_000; // without requests, in milliseconds
const longest = 10_000; // that work waits

let lastRequest = 0;

/** The page has sent a request. */
export function requestSeen(): void {
  lastRequest = Date.now();
}

/** Resolves when the page has sent no request for a moment, or after some seconds. */
export async function quiet(): Promise<void> {
  const end = Date.now() + longest;
  for (;;) {
    const rest = Math.min(lastRequest + pause, end) - Date.now();
    if (rest <= 0) return;
    await new Promise((resolve) => setTimeout(resolve, rest));
  }
}
