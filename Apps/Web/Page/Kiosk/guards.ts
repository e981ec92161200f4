// Keeps visitors of a kiosk on the page: links, menus, dropped files and gestures of the browser do not leave it.

/** Calls `shown` with the address instead of following a link that leads away from the page. */
export function guardPage(shown: (address: string) => void): void {
  const prevent = (event: Event) => event.preventDefault();
  for (const name of ["contextmenu", "dragstart", "dragover", "drop", "auxclick", "gesturestart"])
    addEventListener(name, prevent, { capture: true });
  addEventListener(
    "click",
    (event) => {
      const link = event.composedPath().find((each) => each instanceof HTMLAnchorElement);
      if (!link?.href || link.getAttribute("href")?.startsWith("#")) return;
      event.preventDefault();
      event.stopPropagation();
      shown(link.href);
    },
    { capture: true },
  );
  addEventListener("wheel", (event) => event.ctrlKey && event.preventDefault(), { capture: true, passive: false });
  window.open = () => null;
}
