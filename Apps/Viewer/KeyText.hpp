// What keys stand for while no text input tells it.
#pragma once

#include <string>
#include <string_view>

struct SDL_Keysym;

namespace orivanta::viewer {

/// A shortcut as `Viewer::textTyped` takes it, such as "?"; empty for a key that is none. SDL tells
/// a key's character without Shift only: where no key of the layout is a slash by itself,
/// `hasSlashKey` is false, and the shifted ones are looked for where European layouts have them.
std::string_view shortcutOf(const SDL_Keysym& key, bool hasSlashKey);

/// The letter of a key as Latin layouts have it, whatever the layout; 0 for no letter.
char latinLetterOf(const SDL_Keysym& key);

/// The character of a key without Shift, in UTF-8; empty for none.
std::string characterOf(const SDL_Keysym& key);

}  // namespace orivanta::viewer
