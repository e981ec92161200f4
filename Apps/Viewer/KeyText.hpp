// The meaning of keys while there is no text input.
#pragma once

#include <string>
#include <string_view>

struct SDL_Keysym;

namespace orivanta::viewer {

/// Returns the shortcut of a key in the form that `Viewer::textTyped` takes, such as "?", or an
/// empty text. SDL reports only the character of a key without Shift. If no key of the layout is a
/// slash without Shift, `hasSlashKey` is false, and shifted characters are looked up where European
/// layouts have them.
std::string_view shortcutOf(const SDL_Keysym& key, bool hasSlashKey);

/// Returns the letter of a key on Latin layouts, even if the layout is another. Returns 0 for other
/// keys.
char latinLetterOf(const SDL_Keysym& key);

/// Returns the character of a key without Shift in UTF-8. Returns an empty text if there is none.
std::string characterOf(const SDL_Keysym& key);

}  // namespace orivanta::viewer
