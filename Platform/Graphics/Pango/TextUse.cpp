#include "Platform/Graphics/Pango/TextUse.hpp"

#include <cstdlib>
#include <mutex>

#include "Platform/Graphics/Pango/TextLayout.hpp"

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

// Handlers run in the reverse order of their registration. So the libraries must have registered
// theirs before: they do in their first layout.
bool prepareEnd() {
  const Owned<PangoContext> context(
      pango_font_map_create_context(pango_cairo_font_map_get_default()));
  const Owned<PangoLayout> layout(pango_layout_new(context.get()));
  setText(*layout, "a", {}, 100.0);
  pango_layout_get_size(layout.get(), nullptr, nullptr);
  std::atexit(closeGate);
  return true;
}

}  // namespace

TextUse::TextUse() {
  static const bool isPrepared = prepareEnd();
  static_cast<void>(isPrepared);
  lock_ = std::shared_lock(gate().mutex);
}

TextUse::operator bool() const { return !gate().isClosed; }

}  // namespace orivanta::graphics
