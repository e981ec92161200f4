// Draws the images of the library's resource bundle into a folder: the map's logo and the arrow
// that is repeated along a route.
#include <pango/pangocairo.h>

#include <cmath>
#include <filesystem>
#include <iostream>
#include <memory>
#include <numbers>
#include <string>

namespace {

constexpr double pi = std::numbers::pi;

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Context = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

Surface makeSurface(int width, int height) {
  return {cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height), cairo_surface_destroy};
}

// Draws a location mark: a drop with a hole, and with its point at the bottom. Its height is 2.5
// radii.
void markPath(cairo_t* context, double centerX, double centerY, double radius) {
  constexpr double open = 0.82;  // radians; half of the angle that the point takes from the arc
  cairo_new_sub_path(context);
  cairo_arc(context, centerX, centerY, radius, pi / 2 + open, 2 * pi + pi / 2 - open);
  cairo_line_to(context, centerX, centerY + 1.5 * radius);
  cairo_close_path(context);
  cairo_new_sub_path(context);
  cairo_arc_negative(context, centerX, centerY, radius * 0.42, 2 * pi, 0);
  cairo_close_path(context);
}

void wordPath(cairo_t* context, double left, double baseline, double size) {
  PangoLayout* layout = pango_cairo_create_layout(context);
  PangoFontDescription* font = pango_font_description_from_string("Noto Sans SemiBold");
  pango_font_description_set_absolute_size(font, size * PANGO_SCALE);
  pango_layout_set_font_description(layout, font);
  pango_layout_set_text(layout, "Orivanta", -1);
  cairo_move_to(context, left, baseline - pango_layout_get_baseline(layout) / double{PANGO_SCALE});
  pango_cairo_layout_path(context, layout);
  pango_font_description_free(font);
  g_object_unref(layout);
}

void pill(cairo_t* context, double left, double top, double width, double height) {
  const double radius = height / 2;
  cairo_arc(context, left + radius, top + radius, radius, pi / 2, pi * 3 / 2);
  cairo_arc(context, left + width - radius, top + radius, radius, -pi / 2, pi / 2);
  cairo_close_path(context);
}

// 70 by 30 points at 3 pixels per point, on a light background so that it is legible on any floor.
Surface drawLogo() {
  Surface surface = makeSurface(210, 90);
  const Context context(cairo_create(surface.get()), cairo_destroy);
  const auto fill = [&](double red, double green, double blue) {
    cairo_set_source_rgb(context.get(), red, green, blue);
    cairo_fill(context.get());
  };
  pill(context.get(), 2, 14, 206, 62);
  fill(1, 1, 1);
  markPath(context.get(), 32, 41, 15);
  fill(0.95, 0.58, 0.04);
  wordPath(context.get(), 53, 56, 31);
  fill(0.07, 0.11, 0.18);
  return surface;
}

// A chevron with equal space above and below, so that repeated chevrons are evenly spaced.
Surface drawHeading() {
  constexpr int side = 128;
  Surface surface = makeSurface(side, side);
  const Context context(cairo_create(surface.get()), cairo_destroy);
  cairo_move_to(context.get(), 28, 84);
  cairo_line_to(context.get(), 64, 46);
  cairo_line_to(context.get(), 100, 84);
  cairo_set_line_width(context.get(), 22);
  cairo_set_line_join(context.get(), CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_cap(context.get(), CAIRO_LINE_CAP_ROUND);
  cairo_set_source_rgb(context.get(), 1, 1, 1);
  cairo_stroke(context.get());
  return surface;
}

bool write(const Surface& surface, const std::filesystem::path& file) {
  return cairo_surface_write_to_png(surface.get(), file.c_str()) == CAIRO_STATUS_SUCCESS;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2) {
    std::cerr << "usage: " << arguments[0] << " FOLDER\n";
    return 2;
  }
  const std::filesystem::path folder = arguments[1];
  if (write(drawLogo(), folder / "MapLogo.png") && write(drawHeading(), folder / "Heading.png"))
    return 0;
  std::cerr << "cannot write to " << folder.string() << '\n';
  return 1;
}
