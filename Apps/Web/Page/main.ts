// The page that `orivanta serve` hands out at "/".
//
// The query of its address may have "endpoint" (the root of the web API of another server), and what `Settings`
// and links.ts read.

import { closeSearch } from "./actions.js";
import { App } from "./app.js";
import { startKiosk, startsHere } from "./Kiosk/kiosk.js";
import { kioskOptionsOf } from "./Kiosk/options.js";
import { startLinks } from "./links.js";
import { MapHost } from "./mapHost.js";
import { Connection } from "./offline.js";
import { Planning } from "./planning.js";
import { rememberPlace } from "./recent.js";
import { Session } from "./session.js";
import { Settings } from "./settings.js";
import { Shell } from "./shell.js";
import { Texts } from "./texts.js";

async function start(): Promise<void> {
  const query = new URLSearchParams(location.search);
  const settings = new Settings(query);
  const texts = await Texts.load(settings.choices.language);
  const endpoint = new URL(query.get("endpoint") ?? "1/", document.baseURI).href;
  const app = new App({ endpoint: endpoint.endsWith("/") ? endpoint : `${endpoint}/`, username: "", password: "" }, settings, texts);
  app.loading = app.t("page.loading");
  app.kiosk = kioskOptionsOf(query);
  if (app.kiosk) app.store.rule = startsHere(app.kiosk);
  startLinks(app.store, !app.kiosk, () => closeSearch(app));

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
  if (app.kiosk) {
    startKiosk({ app, connection, reload: () => session.reload(), showStart: () => map.showStart() }, app.kiosk);
  }
  await connection.start();
  await session.start();
}

start().catch((error: unknown) => {
  const message = document.createElement("p");
  message.className = "message is-problem";
  message.textContent = String(error);
  document.getElementById("page")?.replaceChildren(message);
});
