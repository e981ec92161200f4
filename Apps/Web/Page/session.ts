// Loads the module, the list of venues and the venue of the state.

import { OrivantaError, type Catalog, type LoadProgress, type Orivanta, type Venue } from "orivanta";

import type { App, Failure, Shown } from "./app.js";
import { showNotice, type Notice } from "./notices.js";
import { Texts } from "./texts.js";

// The map begins to load its files before the catalog is made.
function shownOf(venue: Venue, language: string): Shown {
  let catalog: Catalog | undefined;
  let places: Shown["places"] | undefined;
  return {
    venue,
    get catalog() {
      return (catalog ??= venue.catalog(language));
    },
    get places() {
      return (places ??= new Map(this.catalog.places.map((place) => [place.id, place])));
    },
  };
}

/** Loads what the state needs, and again when the state or the language changes. */
export class Session {
  readonly #app: App;
  #load: AbortController | null = null;
  #notice: Notice | null = null;

  constructor(app: App) {
    this.#app = app;
    app.store.on((state, { former }) => {
      if (state.venue !== former.venue) void this.#showVenue();
    });
    app.settings.on((choices, former) => {
      if (choices.language !== former.language) void this.#changeLanguage(choices.language);
    });
  }

  /** Waits for the module, and loads the venues as soon as `connected` is fulfilled as well. */
  async start(loading: Promise<Orivanta>, connected: Promise<void>): Promise<void> {
    const app = this.#app;
    try {
      const orivanta = await loading;
      orivanta.onFatal = (message) => this.#stopped(message);
      app.orivanta = orivanta;
    } catch (error) {
      return this.#stopped(String(error));
    }
    await connected;
    await this.reload();
  }

  /** Loads the venues and the venue of the state again. */
  async reload(): Promise<void> {
    const app = this.#app;
    if (!app.orivanta) return;
    const signal = this.#begin(app.t("venues.loading"));
    try {
      app.venues = await app.orivanta.venues({ ...app.server, languages: this.#languages(), signal });
    } catch (error) {
      return this.#failLoad(error, signal, app.t("problem.list"));
    }
    if (app.venues.length === 0) {
      const detail = app.t("problem.none.detail", { address: app.server.endpoint });
      return this.#fail({ title: app.t("problem.none"), detail, way: "retry" });
    }
    app.loading = null;
    const [only] = app.venues;
    if (app.store.state.venue === null && only && app.venues.length === 1) {
      app.store.change({ venue: only.slug }, { isNewView: false });
    } else {
      await this.#showVenue();
    }
  }

  // The user may choose other languages meanwhile.
  async #changeLanguage(language: string): Promise<void> {
    const app = this.#app;
    if (language === app.texts.language) return;
    const texts = await Texts.load(language).catch(() => null);
    if (language !== app.settings.choices.language) return;
    if (texts) {
      app.texts = texts;
      app.changed();
      return this.reload();
    }
    showNotice(app.t("page.notLoaded"), { seconds: 8 });
    app.settings.change({ language: app.texts.language });
  }

  // Keeps the former venue on the screen until another one has been loaded.
  async #showVenue(): Promise<void> {
    const app = this.#app;
    const { venue: slug } = app.store.state;
    if (!app.orivanta || !app.venues) return;
    if (app.shown && app.shown.venue.slug !== slug) this.#replace(null);
    if (slug === null) return this.#end();
    if (!app.venues.some((entry) => entry.slug === slug)) return this.#fail(this.#unknown(slug));
    const signal = this.#begin(app.t("page.loading"));
    try {
      const venue = await app.orivanta.venue(slug, {
        ...app.server,
        languages: this.#languages(),
        signal,
        onProgress: (progress) => this.#progressed(progress, signal),
      });
      if (signal.aborted) return venue.destroy();
      this.#opened(venue);
    } catch (error) {
      this.#failLoad(error, signal, app.t("problem.venue"));
    }
  }

  #opened(venue: Venue): void {
    const app = this.#app;
    if (venue.floors.length === 0) {
      const detail = app.t("problem.empty.detail", { venue: venue.name });
      venue.destroy();
      return this.#fail({ title: app.t("problem.empty"), detail, way: "venues" });
    }
    this.#replace(shownOf(venue, app.texts.language));
    this.#end();
    const [problem] = venue.problems;
    if (problem) {
      this.#notice = showNotice(app.t("page.venue.incomplete", { problem: problem.reason }), {
        isStanding: true,
        action: { label: app.t("retry"), run: () => void this.reload() },
      });
    }
  }

  #replace(shown: Shown | null): void {
    const former = this.#app.shown;
    this.#app.shown = shown;
    this.#app.plan = null;
    if (former) setTimeout(() => former.venue.destroy()); // when the map has left it
  }

  #languages(): string {
    return [this.#app.texts.language, ...navigator.languages, "en"].join(", ");
  }

  #begin(text: string): AbortSignal {
    this.#load?.abort();
    this.#load = new AbortController();
    this.#notice?.remove();
    Object.assign(this.#app, { loading: text, loadedShare: null, failure: null });
    this.#app.changed();
    return this.#load.signal;
  }

  #progressed({ collections, collectionsDone }: LoadProgress, signal: AbortSignal): void {
    const app = this.#app;
    if (signal.aborted) return;
    if (!app.shown) app.orivanta?.prepareMap(); // while the answers to the next requests come
    const share = collections > 0 ? collectionsDone / collections : null;
    if (share === app.loadedShare) return;
    app.loadedShare = share;
    app.changed();
  }

  #end(): void {
    Object.assign(this.#app, { loading: null, failure: null, isOutdated: false });
    this.#app.changed();
  }

  #fail(failure: Failure): void {
    Object.assign(this.#app, { loading: null, failure });
    this.#app.changed();
    this.#app.announce(`${failure.title}. ${failure.detail}`);
  }

  #failLoad(error: unknown, signal: AbortSignal, title: string): void {
    if (signal.aborted) return;
    const app = this.#app;
    const { kind, message } = error instanceof OrivantaError ? error : { kind: null, message: String(error) };
    if (kind === "refused") {
      return this.#fail({ title: app.t(app.server.username ? "problem.rejected" : "page.signIn"), detail: app.server.endpoint, way: "signIn" });
    }
    if (kind === "fatal") return; // the handler of fatal stops has said so
    const detail = kind === "noAnswer" ? `${app.t("problem.silent")}: ${message}` : message;
    if (app.shown && app.shown.venue.slug === app.store.state.venue) return this.#keep(`${title}. ${detail}`);
    this.#fail({ title, detail, way: "retry" });
  }

  // What is shown can still be used.
  #keep(text: string): void {
    Object.assign(this.#app, { loading: null, isOutdated: true });
    this.#app.changed();
    this.#notice = showNotice(text, { isStanding: true, action: { label: this.#app.t("retry"), run: () => void this.reload() } });
  }

  // Nothing can be called any more.
  #stopped(message: string): void {
    this.#load?.abort();
    Object.assign(this.#app, { orivanta: null, shown: null });
    this.#fail({ title: this.#app.t("page.problem.stopped"), detail: message, way: "reload" });
  }

  #unknown(slug: string): Failure {
    const app = this.#app;
    const venues = app.venues ?? [];
    const address = app.server.endpoint;
    const detail =
      venues.length === 1
        ? app.t("problem.unknown.one", { address, slug: venues[0]!.slug })
        : app.t("problem.unknown.many", { address, count: venues.length });
    return { title: app.t("problem.unknown", { slug }), detail, way: "venues" };
  }
}
