// The keys that mean something, whatever the keyboard.
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
  erase,  ///< forwards
  back,   ///< to where one came from
  search,
  picture
};

struct KeyPress {
  Key key;
  bool shift = false;
  bool control = false;
};

}  // namespace orivanta::viewer
