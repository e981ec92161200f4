// What promises are rejected with.

/** Why something could not be loaded or planned. */
export type ErrorKind =
  /** The server cannot be reached, or the connection was lost. */
  | "noAnswer"
  /** Wrong credentials, or no access with them. */
  | "refused"
  /** The server, or the venue, has nothing of this name. */
  | "notFound"
  /** Any other HTTP status that is not a success. */
  | "otherStatus"
  /** The response cannot be read. */
  | "unusable"
  /** A link or a redirect leads from HTTPS to HTTP. */
  | "insecure"
  /** The pages of a collection do not end, or arrive too slowly. */
  | "endless"
  /** The venue needs more memory than a load may use. */
  | "tooLarge"
  /** An argument is malformed, or contradicts another one. */
  | "invalid"
  /** Several places have the given name. */
  | "ambiguous"
  /** The browser lacks something, such as WebGL 2. */
  | "unsupported"
  /** The module has stopped; only a new `Orivanta.load()` helps. */
  | "fatal";

/** An error of this package. */
export class OrivantaError extends Error {
  /** What happened. */
  readonly kind: ErrorKind;
  /** The HTTP status, or 0 if there was none. */
  readonly status: number;

  constructor(kind: ErrorKind, message: string, status = 0) {
    super(message);
    this.name = "OrivantaError";
    this.kind = kind;
    this.status = status;
  }
}
