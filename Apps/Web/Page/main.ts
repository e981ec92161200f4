// The page that `orivanta serve` hands out at "/".
//
// The query of its address may have "endpoint" (the root of the web API of another server), and what `Settings`
// and links.ts read.

import { Orivanta } from "orivanta";

import { App } from "./app.js";
import { kioskOptionsOf, startsHere } from "./Kiosk/options.js";
import { startLinks } from "./links.js";
import { MapHost } from "./mapHost.js";
import { Connection, startWorker } from "./offline.js";
import { moduleFiles } from "./moduleFiles.js";
import { Planning } from "./planning.js";
import { rememberPlace } from "./recent.js";
import { Session } from "./session.js";
import { Settings } from "./settings.js";
import { Shell } from "./shell.js";
import { Texts } from "./texts.js";

// A text that is no URL is refused by the package, and the page says so.
function endpointOf(text: string): string {
  try {
    const { href } = new URL(text, document.baseURI);
    return href.endsWith("/") ? href : `${href}/`;
  } catch {
    return text;
  }
}

async function start(): Promise<void> {
  const loading = Orivanta.load(moduleFiles); // it is compiled while the page is made
  loading.catch(() => {}); // the session says so
  const worker = startWorker();
  const query = new URLSearchParams(location.search);
  const settings = new Settings(query);
  const kiosk = kioskOptionsOf(query);
  const [texts, later] = await Promise.all([Texts.load(settings.choices.language), kiosk && import("./later.js")]);
  const server = { endpoint: endpointOf(query.get("endpoint") ?? "1/"), username: "", password: "" };
  const app = new App(later?.withAccount(server) ?? server, settings, texts);
  app.loading = app.t("page.loading");
  app.kiosk = kiosk;
  if (kiosk) app.store.rule = startsHere(kiosk);
  startLinks(app, !kiosk);

  const session = new Session(app);
  const map = new MapHost(app);
  const shell = new Shell(app, session, map);
  new Planning(app);
  app.store.on(({ place }) => {
    if (place !== null) rememberPlace(app, place);
  });
  settings.on(() => app.changed());
  document.getElementById("page")!.replaceChildren(shell.element);
  shell.update();
  const connection = new Connection(app, () => session.reload());
  if (kiosk) later?.startKiosk({ app, connection, reload: () => session.reload(), showStart: () => map.showStart() }, kiosk);
  connection.start();
  // The first requests for data wait for the service worker, which stores the answers.
  await session.start(loading, worker);
}

start().catch((error: unknown) => {
  const message = document.createElement("p");
  message.className = "message is-problem";
  message.textContent = String(error);
  document.getElementById("page")?.replaceChildren(message);
});
