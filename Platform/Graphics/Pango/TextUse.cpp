#include "Platform/Graphics/Pango/TextUse.hpp"

#include <hb-ot.h>
#include <hb.h>

#include <cstdlib>
#include <mutex>

namespace orivanta::graphics {

namespace {

struct Gate {
  std::shared_mutex mutex;
  bool isClosed = false;
};

// Never destroyed, because background threads may come here after the static objects are gone.
Gate& gate() {
  static auto& gate = *new Gate;
  return gate;
}

void closeGate() {
  const std::unique_lock lock(gate().mutex);
  gate().isClosed = true;
}

// Handlers run in the reverse order of their registration. HarfBuzz registers one when it first
// needs its font functions, its Unicode functions and its languages, whichever thread asks for
// them. Shape a text without a font here, before any thread starts, so that all of them are
// registered before the gate's.
const bool isPrepared = [] {
  hb_font_t* const font = hb_font_create(hb_face_get_empty());
  hb_ot_font_set_funcs(font);
  hb_buffer_t* const buffer = hb_buffer_create();
  hb_buffer_add_utf8(buffer, "a", 1, 0, 1);
  hb_buffer_set_language(buffer, hb_language_from_string("en", -1));
  hb_buffer_guess_segment_properties(buffer);
  hb_shape(font, buffer, nullptr, 0);
  hb_buffer_destroy(buffer);
  hb_font_destroy(font);
  return std::atexit(closeGate) == 0;
}();

}  // namespace

TextUse::TextUse() : lock_(gate().mutex) {}

TextUse::operator bool() const { return isPrepared && !gate().isClosed; }

}  // namespace orivanta::graphics
