#include "Platform/Graphics/Pango/CaretLine.hpp"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "Platform/Graphics/Pango/TextLayout.hpp"

namespace orivanta::graphics {

struct CaretLine::Layout {
  Owned<cairo_surface_t> surface;
  Owned<PangoLayout> pango;
  std::vector<std::size_t> places;  // ascending, including both ends
  double inkLeft = 0;               // points

  // Returns the index of the last place that is not after `place`.
  std::size_t indexOf(std::size_t place) const {
    const auto next = std::upper_bound(places.begin(), places.end(), place);
    return static_cast<std::size_t>(next - places.begin()) - 1;
  }
};

CaretLine::CaretLine(std::string text, const TextStyle& style)
    : layout_(std::make_unique<Layout>()) {
  Layout& layout = *layout_;
  layout.surface.reset(cairo_recording_surface_create(CAIRO_CONTENT_COLOR_ALPHA, nullptr));
  const Owned<cairo_t> context(cairo_create(layout.surface.get()));
  layout.pango.reset(pango_cairo_create_layout(context.get()));
  setFont(*layout.pango, style);
  pango_layout_set_single_paragraph_mode(layout.pango.get(), TRUE);
  pango_layout_set_text(layout.pango.get(), text.data(), static_cast<int>(text.size()));
  PangoRectangle ink{};
  pango_layout_get_extents(layout.pango.get(), &ink, nullptr);
  layout.inkLeft = ink.width > 0 ? 1.0 * ink.x / PANGO_SCALE : 0;
  int count = 0;
  const PangoLogAttr* marks = pango_layout_get_log_attrs_readonly(layout.pango.get(), &count);
  const char* at = text.c_str();
  for (int i = 0; i < count; ++i) {
    if (marks[i].is_cursor_position != 0 || i == 0 || i + 1 == count)
      layout.places.push_back(static_cast<std::size_t>(at - text.c_str()));
    if (i + 1 < count) at = g_utf8_next_char(at);
  }
}

CaretLine::~CaretLine() = default;

double CaretLine::distance(std::size_t place) const {
  PangoRectangle caret{};
  const std::size_t known = layout_->places[layout_->indexOf(place)];
  pango_layout_get_cursor_pos(layout_->pango.get(), static_cast<int>(known), &caret, nullptr);
  return 1.0 * caret.x / PANGO_SCALE - layout_->inkLeft;
}

std::size_t CaretLine::placeAt(double at) const {
  const auto away = [&](std::size_t place) { return std::abs(distance(place) - at); };
  return *std::min_element(layout_->places.begin(), layout_->places.end(),
                           [&](std::size_t a, std::size_t b) { return away(a) < away(b); });
}

std::size_t CaretLine::before(std::size_t place) const {
  const std::size_t index = layout_->indexOf(place);
  return layout_->places[index == 0 ? 0 : index - 1];
}

std::size_t CaretLine::after(std::size_t place) const {
  return layout_->places[std::min(layout_->indexOf(place) + 1, layout_->places.size() - 1)];
}

std::size_t CaretLine::beside(std::size_t place, int direction) const {
  int index = 0;
  int trailing = 0;
  pango_layout_move_cursor_visually(layout_->pango.get(), TRUE, static_cast<int>(place), 0,
                                    direction, &index, &trailing);
  if (index < 0 || index == G_MAXINT) return place;  // beyond an end
  const auto found = static_cast<std::size_t>(index);
  return trailing > 0 ? after(found) : found;
}

}  // namespace orivanta::graphics
