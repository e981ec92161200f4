// The instance of the module that all elements of a page share. It is released with the last of them.

import { Orivanta } from "../orivanta.js";
import type { ModuleFiles } from "../wasm.js";

interface Shared {
  readonly started: Promise<Orivanta>;
  /** What is called when the module has stopped, one for each user. */
  readonly users: Set<(message: string) => void>;
}

let shared: Shared | null = null;

async function start(files: ModuleFiles, users: Shared["users"]): Promise<Orivanta> {
  const orivanta = await Orivanta.load(files);
  orivanta.onFatal = (message) => {
    if (shared?.users === users) shared = null;
    for (const stopped of [...users]) stopped(message);
  };
  return orivanta;
}

/** A use of the shared instance. */
export interface Use {
  /** Rejected if the module cannot be loaded. */
  readonly orivanta: Promise<Orivanta>;
  /** Ends the use. Further calls have no effect. */
  end(): void;
}

/** Uses the shared instance, and starts it if it does not run. `stopped` is called if the module stops. */
export function use(files: ModuleFiles, stopped: (message: string) => void): Use {
  if (!shared) {
    const users: Shared["users"] = new Set();
    const starting = (shared = { started: start(files, users), users });
    starting.started.catch(() => {
      if (shared === starting) shared = null; // the next use tries again
    });
  }
  const own = shared;
  const user = (message: string) => stopped(message);
  own.users.add(user);
  return {
    orivanta: own.started,
    end: () => {
      // Not at once: an element that replaces another one goes on with its instance.
      if (own.users.delete(user)) setTimeout(() => release(own));
    },
  };
}

function release(own: Shared): void {
  if (own.users.size > 0) return;
  if (shared === own) shared = null;
  own.started.then(
    (orivanta) => orivanta.destroy(),
    () => {},
  );
}
