// The style sheet of an element.

const dark = "color: #f2f2f5; background: #17191d; --shade: rgb(32 34 39 / 92%);";
/** For the shadow tree. */
export const css = `
:host { display: block; position: relative; min-height: 12rem; overflow: hidden; contain: content;
  font: 1rem/1.4 system-ui, sans-serif; color: #1c1b1f; background: #eceef1; --shade: rgb(255 255 255 / 92%); }
:host([hidden]) { display: none; }
:host([theme="dark"]) { ${dark} }
@media (prefers-color-scheme: dark) { :host(:not([theme="light"], [theme="plain"])) { ${dark} } }
canvas { position: absolute; inset: 0; inline-size: 100%; block-size: 100%; outline-offset: -3px; }
[hidden] { display: none !important; }
[part="floors"] { position: absolute; inset-block-start: .75rem; inset-inline-end: .75rem; max-block-size: calc(100% - 1.5rem);
  overflow: auto; display: flex; flex-direction: column-reverse; border-radius: .75rem; background: var(--shade);
  box-shadow: 0 1px 4px rgb(0 0 0 / 30%); }
button { font: inherit; color: inherit; background: none; border: 0; border-radius: .75rem; min-inline-size: 2.75rem;
  min-block-size: 2.75rem; padding: 0 .5rem; cursor: pointer; }
[part="floors"] button { flex: none; }
button[aria-pressed="true"] { color: #fff; background: #0b57d0; }
button:focus-visible, canvas:focus-visible { outline: 3px solid #0b57d0; }
[part="message"] { position: absolute; inset: 0; display: flex; flex-direction: column; align-items: center;
  justify-content: center; gap: .75rem; padding: 1rem; text-align: center; }
[part="message"] button { border: 1px solid currentcolor; padding: 0 1rem; }
[part="note"] { position: absolute; inset-inline: .75rem; inset-block-end: .75rem; margin: 0; inline-size: fit-content;
  padding: .5rem .75rem; border-radius: .75rem; background: var(--shade); }
[part="hint"] { position: absolute; inset: auto 0; inset-block-start: 50%; translate: 0 -50%; margin: 0 auto; inline-size: fit-content;
  max-inline-size: calc(100% - 1.5rem); padding: .5rem 1rem; border-radius: .75rem; background: var(--shade);
  text-align: center; pointer-events: none; opacity: 0; visibility: hidden; transition: opacity .3s, visibility .3s; }
[part="hint"].shown { opacity: 1; visibility: visible; transition: none; }
@media (prefers-reduced-motion: reduce) { [part="hint"] { transition: none; } }
progress { inline-size: min(16rem, 80%); }
`;
