// Requests that do not wait forever.

/** A promise has taken too long. */
export class LateError extends Error {}

/** Returns the result of a promise. Rejected with a `LateError` if it takes longer than a number of milliseconds. */
export function withinTime<Result>(milliseconds: number, promise: Promise<Result>): Promise<Result> {
  return new Promise((resolve, reject) => {
    const timer = setTimeout(() => reject(new LateError("no answer in time")), milliseconds);
    promise.then(resolve, reject).finally(() => clearTimeout(timer));
  });
}

/** Whether a server, or a proxy before it, is there but cannot answer. */
export function isUnavailable(response: Response): boolean {
  return [502, 503, 504].includes(response.status);
}
