#include "Apps/Viewer/KeyText.hpp"

#include <SDL.h>
#include <utf8proc.h>

#include <array>

namespace orivanta::viewer {

namespace {

// The question mark is on the key to the right of 0, but on French keyboards on the comma key.
bool isShiftedQuestionMark(const SDL_Keysym& key) {
  if (key.scancode == SDL_SCANCODE_MINUS) return key.sym != SDLK_RIGHTPAREN;
  return key.scancode == SDL_SCANCODE_M && key.sym == SDLK_COMMA;
}

bool isCharacter(SDL_Keycode code) {
  return code >= SDLK_SPACE && code != SDLK_DELETE && (code & SDLK_SCANCODE_MASK) == 0;
}

}  // namespace

std::string_view shortcutOf(const SDL_Keysym& key, bool hasSlashKey) {
  if ((key.mod & KMOD_SHIFT) != 0 && !hasSlashKey) {
    if (isShiftedQuestionMark(key)) return "?";
    if (key.sym == SDLK_7 || key.sym == SDLK_COLON) return "/";
  }
  switch (key.sym) {
    case SDLK_F1:
    case SDLK_QUESTION:
      return "?";
    case SDLK_SLASH:
      return (key.mod & KMOD_SHIFT) != 0 ? "?" : "/";
    case SDLK_KP_DIVIDE:
      return "/";
    case SDLK_PLUS:
    case SDLK_EQUALS:
    case SDLK_KP_PLUS:
      return "+";
    case SDLK_MINUS:
    case SDLK_KP_MINUS:
      return "-";
    default:
      break;
  }
  switch (latinLetterOf(key)) {
    case 'c':
      return "c";
    case 'f':
      return "f";
    case 'i':
      return "i";
    case 'l':
      return "l";
    case 's':
      return "s";
    case 't':
      return "t";
    case 'w':
      return "w";
    default:
      return "";
  }
}

char latinLetterOf(const SDL_Keysym& key) {
  if (key.sym >= SDLK_a && key.sym <= SDLK_z) return static_cast<char>(key.sym);
  const bool isForeign = isCharacter(key.sym) && key.sym > SDLK_DELETE;
  if (!isForeign || key.scancode < SDL_SCANCODE_A || key.scancode > SDL_SCANCODE_Z) return 0;
  return static_cast<char>('a' + (key.scancode - SDL_SCANCODE_A));
}

std::string characterOf(const SDL_Keysym& key) {
  if (!isCharacter(key.sym)) return "";
  std::array<utf8proc_uint8_t, 4> bytes{};
  const auto length = utf8proc_encode_char(key.sym, bytes.data());
  return {bytes.begin(), bytes.begin() + length};
}

}  // namespace orivanta::viewer
