#include "Platform/Graphics/Pango/TextLayout.hpp"

#include <algorithm>

#include "Platform/Graphics/TextLimits.hpp"

namespace orivanta::graphics {

namespace {

// Pango limits the lines of each paragraph separately.
void limitLines(PangoLayout& layout, std::string text, int most) {
  if (most <= 0 || pango_layout_get_line_count(&layout) <= most) return;
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  pango_layout_set_text(&layout, text.data(), static_cast<int>(text.size()));
  pango_layout_set_ellipsize(&layout, PANGO_ELLIPSIZE_END);
  pango_layout_set_height(&layout, -most);
}

}  // namespace

std::string presentable(std::string_view text) {
  if (text.empty()) return {};
  text = truncatedText(text);
  const Owned<char> valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
  std::string result;
  for (const char* at = valid.get(); *at != '\0';) {
    const char* const next = g_utf8_next_char(at);
    const gunichar character = g_utf8_get_char(at);
    const GUnicodeType type = g_unichar_type(character);
    if (type == G_UNICODE_LINE_SEPARATOR || type == G_UNICODE_PARAGRAPH_SEPARATOR)
      result += '\n';
    else if (type == G_UNICODE_CONTROL && character != '\n' && character != '\r')
      result += ' ';
    else
      result.append(at, next);
    at = next;
  }
  return result;
}

void setFont(PangoLayout& layout, const TextStyle& style) {
  const Owned<cairo_font_options_t> options(cairo_font_options_create());
  cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
  PangoContext* context = pango_layout_get_context(&layout);
  pango_cairo_context_set_font_options(context, options.get());
  pango_context_set_round_glyph_positions(context, FALSE);
  pango_layout_context_changed(&layout);
  const Owned<PangoFontDescription> font(pango_font_description_new());
  pango_font_description_set_family(font.get(), presentable(style.fontFamily).c_str());
  pango_font_description_set_absolute_size(font.get(), style.fontSize * PANGO_SCALE);
  pango_font_description_set_weight(font.get(),
                                    style.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  pango_layout_set_font_description(&layout, font.get());
}

void setText(PangoLayout& layout, const std::string& text, const TextStyle& style, double widest) {
  setFont(layout, style);
  pango_layout_set_alignment(
      &layout, style.alignment == TextAlignment::center ? PANGO_ALIGN_CENTER : PANGO_ALIGN_LEFT);
  pango_layout_set_wrap(&layout, PANGO_WRAP_WORD_CHAR);
  const double width = style.maximumWidth > 0 ? std::min(style.maximumWidth, widest) : widest;
  pango_layout_set_width(&layout, static_cast<int>(width * PANGO_SCALE));
  pango_layout_set_text(&layout, text.data(), static_cast<int>(text.size()));
  limitLines(layout, text, style.maximumLines);
}

}  // namespace orivanta::graphics
