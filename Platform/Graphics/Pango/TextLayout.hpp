// Pango layouts for the texts of this library.
#pragma once

#include <pango/pangocairo.h>

#include <memory>
#include <string>
#include <string_view>

#include "Platform/Graphics/Pango/CairoImage.hpp"
#include "Platform/Graphics/Text.hpp"

namespace orivanta::graphics {

struct Release : ReleaseCairo {
  using ReleaseCairo::operator();
  void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
  void operator()(PangoContext* context) const { g_object_unref(context); }
  void operator()(PangoLayout* layout) const { g_object_unref(layout); }
  void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
  void operator()(char* text) const { g_free(text); }
};

template <class T>
using Owned = std::unique_ptr<T, Release>;

/// Truncates the text at a character boundary, replaces invalid bytes and removes control
/// characters except line breaks.
std::string presentable(std::string_view text);

/// Sets the font of a style. Glyphs keep their shapes and distances at every scale.
void setFont(PangoLayout& layout, const TextStyle& style);

/// Sets the font, the lines and the text, which must be presentable. Lines longer than `widest`
/// points are wrapped.
void setText(PangoLayout& layout, const std::string& text, const TextStyle& style, double widest);

}  // namespace orivanta::graphics
