// A server before another one, which can be slow, overloaded or not there.

import { createServer, request } from "node:http";

const modes = {
  silent: () => {},
  closed: (response) => response.destroy(),
  busy: (response) => response.writeHead(503).end(),
};

/**
 * Starts a proxy for an origin. Its `mode` is "pass", "silent", "busy" or "closed", and can be changed, which ends the
 * requests that are not answered. `fields` are added to the answers. `answer(url, response, method)` may answer a
 * request in another way; then it returns true.
 */
export async function startProxy(target, fields = {}) {
  let mode = "pass";
  const proxy = {
    answer: () => false,
    get mode() {
      return mode;
    },
    set mode(next) {
      if (mode === "silent") server.closeAllConnections();
      mode = next;
    },
  };
  const server = createServer((incoming, response) => {
    for (const [name, value] of Object.entries(fields)) response.setHeader(name, value);
    if (proxy.mode !== "pass") return modes[proxy.mode](response);
    const { method, headers, url } = incoming;
    if (method === "OPTIONS") return response.writeHead(204).end();
    if (proxy.answer(url, response, method)) return undefined;
    const outgoing = request(new URL(url, target), { method, headers }, (answer) => {
      for (const [name, value] of Object.entries(answer.headers)) if (!response.hasHeader(name)) response.setHeader(name, value);
      response.writeHead(answer.statusCode);
      answer.pipe(response);
    });
    outgoing.on("error", () => response.destroy());
    return incoming.pipe(outgoing);
  });
  await new Promise((listening) => server.listen(0, "127.0.0.1", listening));
  proxy.origin = `http://127.0.0.1:${server.address().port}`;
  proxy.stop = () => (server.closeAllConnections(), server.close());
  return proxy;
}
