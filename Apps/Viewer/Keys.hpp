// The keys that have a function, independent of the keyboard layout.
#pragma once

namespace orivanta::viewer {

enum class Key {
  left,
  right,
  up,
  down,
  pageUp,
  pageDown,
  enter,
  escape,
  backspace,
  home,
  end,
  erase,  ///< deletes forward
  back,   ///< goes back to the previous view
  search,
  picture
};

struct KeyPress {
  Key key;
  bool shift = false;
  bool control = false;
};

}  // namespace orivanta::viewer
