// Requests that do not wait forever.

/** Returns the result of a promise. Rejected if it takes longer than a number of milliseconds. */
export function withinTime<Result>(milliseconds: number, promise: Promise<Result>): Promise<Result> {
  return new Promise((resolve, reject) => {
    const timer = setTimeout(() => reject(new Error("no answer in time")), milliseconds);
    promise.then(resolve, reject).finally(() => clearTimeout(timer));
  });
}

/** Whether a server, or a proxy before it, is there but cannot answer. */
export function isUnavailable(response: Response): boolean {
  return [502, 503, 504].includes(response.status);
}
