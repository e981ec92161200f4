// The parts of the page that are loaded when they are needed: kiosks, dialogs and QR codes. One file, since files that
// share code with the first one divide it into many.

export { showHelp, showSettings } from "./dialogs.js";
export { startKiosk } from "./Kiosk/kiosk.js";
export { codeOf, showCode } from "./Share/code.js";
