// The service worker of the page. It keeps the page and the venues that were opened, so that both can be used
// without a connection: the page's files are those of the build, and everything else that the page fetches with
// GET is data of a server, which is asked first.

import { answerData, dataRequest, serverAnswered } from "./data.js";
import { answerFile, answerPage, completePage, isPageFile } from "./page.js";
import { requestSeen } from "./quiet.js";

declare const self: ServiceWorkerGlobalScope;

// The worker takes over at once, so that it sees the first requests for data. The page's files are stored
// while the page uses the worker already, because requests wait until a worker is active.
self.addEventListener("install", (event) => event.waitUntil(self.skipWaiting()));
self.addEventListener("activate", (event) => event.waitUntil(self.clients.claim()));

self.addEventListener("fetch", (event) => {
  const { request } = event;
  // The page asks with "no-store" whether the server answers again.
  if (request.method !== "GET" || request.cache === "no-store") return;
  requestSeen();
  event.waitUntil(completePage());
  if (request.mode === "navigate") event.respondWith(answerPage(request));
  else if (isPageFile(request.url)) event.respondWith(answerFile(request));
  else if (dataRequest(request)) event.respondWith(answerData(event));
});

self.addEventListener("message", (event) => {
  if (event.data === "server answered") serverAnswered();
});
