// Reads the page's texts of a language: those of the controls in Resources/Languages and the page's own in
// Apps/Web/Page/Languages.

import { existsSync, readFileSync } from "node:fs";
import path from "node:path";

const field = /^(msgctxt|msgid|msgid_plural|msgstr(?:\[\d\])?) (".*")$/;

/** Returns the messages of a PO file by key. A message with plural forms is an array. */
function messagesOf(po) {
  const messages = {};
  for (const block of po.split(/\n\s*\n/)) {
    const fields = {};
    let last = "";
    for (const line of block.split("\n")) {
      const found = field.exec(line);
      if (found) fields[(last = found[1])] = JSON.parse(found[2]);
      else if (line.startsWith('"')) fields[last] += JSON.parse(line);
    }
    if (fields.msgctxt === undefined) continue;
    const forms = Object.keys(fields).filter((name) => name.startsWith("msgstr["));
    messages[fields.msgctxt] = forms.length > 0 ? forms.sort().map((name) => fields[name]) : fields.msgstr;
  }
  return messages;
}

/** Returns the texts. Throws if a message of English is missing. */
export function textsOf(root, language) {
  const read = (folder, name) => {
    const file = path.join(root, folder, `${name}.po`);
    return existsSync(file) ? messagesOf(readFileSync(file, "utf8")) : {};
  };
  const all = (name) => ({ ...read("Resources/Languages", name), ...read("Apps/Web/Page/Languages", name) });
  const isShown = (key) => /^(interface|page)\.|^problem\.unknownPlace/.test(key) && !/^interface\.note\.screenshot/.test(key);
  const texts = all(language);
  const shown = {};
  for (const key of Object.keys(all("en")).filter(isShown).sort()) {
    if (!texts[key]?.length) throw new Error(`${language} has no text for ${key}`);
    shown[key.replace(/^interface\./, "")] = texts[key];
  }
  return shown;
}
