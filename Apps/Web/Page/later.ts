// The parts of the page that are loaded when they are needed: kiosks, dialogs, accounts, shared links and QR codes. One
// file, since files that share code with the first one divide it into many.

export { credentialsForm } from "./credentials.js";
export { showHelp, showSettings } from "./dialogs.js";
export { withAccount } from "./Kiosk/account.js";
export { startKiosk } from "./Kiosk/kiosk.js";
export { codeOf, showCode } from "./Share/code.js";
export { shareLink } from "./Share/send.js";
