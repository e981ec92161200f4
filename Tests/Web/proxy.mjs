// A server before another one, which can be slow, overloaded or not there.

import { createServer, request } from "node:http";

/**
 * Starts a proxy for an origin. Its `mode` is "pass", "silent", "busy" or "closed", and can be changed, which ends the
 * requests that are not answered.
 */
export async function startProxy(target) {
  let mode = "pass";
  const proxy = {
    get mode() {
      return mode;
    },
    set mode(next) {
      if (mode === "silent") server.closeAllConnections();
      mode = next;
    },
  };
  const server = createServer((incoming, response) => {
    if (proxy.mode === "silent") return;
    if (proxy.mode === "closed") return void incoming.socket.destroy();
    if (proxy.mode === "busy") return void response.writeHead(503).end();
    const { method, headers } = incoming;
    const outgoing = request(new URL(incoming.url, target), { method, headers }, (answer) => {
      response.writeHead(answer.statusCode, answer.rawHeaders);
      answer.pipe(response);
    });
    outgoing.on("error", () => response.destroy());
    incoming.pipe(outgoing);
  });
  await new Promise((listening) => server.listen(0, "127.0.0.1", listening));
  proxy.origin = `http://127.0.0.1:${server.address().port}`;
  proxy.stop = () => (server.closeAllConnections(), server.close());
  return proxy;
}
