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
  picture,
  tab,   ///< gives the focus to the next control, with Shift to the previous one
  space  ///< while no text is typed
};

struct KeyPress {
  Key key;
  bool shift = false;
  bool control = false;
};

}  // namespace orivanta::viewer
