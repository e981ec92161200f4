// What tells the routes to choose from apart.

import type { Guidance, Step } from "orivanta";

import type { App } from "../app.js";

/** Returns for each route the name of an elevator, stairs and so on that the others do not use; undefined if all do. */
export function waysOf(app: App, routes: readonly Guidance[]): (string | undefined)[] {
  const used = routes.map(({ steps }) => [...new Set(steps.filter(({ kind }) => kind === "ride").map((step) => nameOf(app, step)))]);
  return used.map((names, index) => {
    const others = used.filter((_, each) => each !== index);
    return names.find((name) => !others.some((each) => each.includes(name))) ?? (names.length > 0 ? names.join(", ") : undefined);
  });
}

function nameOf(app: App, { node, connectorKind }: Step): string {
  const connector = app.shown?.venue.connectors.find(({ nodes }) => nodes.some((each) => each === node));
  return connector?.name || app.t(`kind.${connectorKind}`);
}
