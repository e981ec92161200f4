#include "Apps/Package/SvgPlan.hpp"

#include <fmt/compile.h>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <utility>

#include "Platform/Foundation/DisplayText.hpp"

namespace orivanta::package {

namespace {

bool isFinite(Point point) { return std::isfinite(point.x) && std::isfinite(point.y); }

// Appends a number with two decimals, as `fmt` does. It is exact where rounding is not in doubt.
void appendRounded(std::string& text, double value) {
  constexpr double largest = 1e9;
  constexpr double doubt = 1e-3;
  const double scaled = std::abs(value) * 100.0;
  const double below = std::floor(scaled);
  if (!(scaled < largest) || std::abs(scaled - below - 0.5) < doubt) {
    fmt::format_to(std::back_inserter(text), FMT_COMPILE("{:.2f}"), value);
    return;
  }
  const auto hundredths = static_cast<std::uint64_t>(scaled - below > 0.5 ? below + 1.0 : below);
  if (std::signbit(value)) text += '-';
  const fmt::format_int whole(hundredths / 100);
  text.append(whole.data(), whole.size());
  text += '.';
  text += static_cast<char>('0' + hundredths / 10 % 10);
  text += static_cast<char>('0' + hundredths % 10);
}

// y points down in SVG.
void appendPath(std::string& text, const std::vector<Point>& points) {
  char command = 'M';
  for (const Point point : points) {
    if (!isFinite(point)) continue;
    text += std::exchange(command, 'L');
    appendRounded(text, point.x);
    text += ' ';
    appendRounded(text, -point.y);
  }
}

}  // namespace

std::string hex(Color color) {
  const auto byte = [](double share) { return static_cast<int>(std::lround(share * 255.0)); };
  return fmt::format("#{:02X}{:02X}{:02X}", byte(color.red), byte(color.green), byte(color.blue));
}

std::string markup(std::string_view text) {
  std::string result;
  for (const char character : foundation::printable(text)) {
    switch (character) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        result += character;
    }
  }
  return result;
}

void SvgPlan::reach(Point point) {
  if (isFinite(point)) box_.add(point);
}

double SvgPlan::pixel(double margin) const {
  return (std::max(box_.longestSide(), 1.0) + 2.0 * margin) / 1000.0;
}

void SvgPlan::shape(const std::vector<Outline>& rings, std::string_view attributes) {
  elements_ += "<path d=\"";
  for (const Outline& ring : rings) {
    appendPath(elements_, ring);
    elements_ += 'Z';
  }
  elements_ += fmt::format("\" fill-rule=\"evenodd\" {}/>\n", attributes);
}

void SvgPlan::line(const std::vector<Point>& points, std::string_view attributes) {
  elements_ += "<path d=\"";
  appendPath(elements_, points);
  elements_ += fmt::format("\" fill=\"none\" {}/>\n", attributes);
}

void SvgPlan::disc(Point middle, double radius, std::string_view attributes) {
  if (!isFinite(middle)) return;
  elements_ += fmt::format("<circle cx=\"{:.2f}\" cy=\"{:.2f}\" r=\"{:.3f}\" {}/>\n", middle.x,
                           -middle.y, radius, attributes);
}

void SvgPlan::text(Point at, double size, std::string_view content, std::string_view attributes) {
  elements_ += fmt::format("<text x=\"{:.2f}\" y=\"{:.2f}\" font-size=\"{:.3f}\" {}>{}</text>\n",
                           at.x, -at.y, size, attributes, markup(content));
}

void SvgPlan::mark(std::size_t number, Point middle, std::string_view color, double pixel) {
  if (!isFinite(middle)) return;
  elements_ += fmt::format("<a href=\"#finding-{}\">", number);
  disc(middle, 9.0 * pixel,
       fmt::format("fill=\"{}\" stroke=\"#FFFFFF\" stroke-width=\"{:.3f}\"", color, 1.2 * pixel));
  const double size = (number < 100 ? 10.0 : 7.5) * pixel;
  text(middle - Point{0.0, size * 0.35}, size, std::to_string(number),
       "fill=\"#FFFFFF\" text-anchor=\"middle\"");
  elements_ += "</a>\n";
}

std::string SvgPlan::finish(double margin, double below, std::string_view attributes) const {
  const Point size = box_.size();
  return fmt::format(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"{:.2f} {:.2f} {:.2f} {:.2f}\" "
      "font-family=\"sans-serif\" stroke-linejoin=\"round\" {}>\n{}</svg>\n",
      least().x - margin, -most().y - margin, std::max(size.x, 1.0) + 2.0 * margin,
      std::max(size.y, 1.0) + 2.0 * margin + below, attributes, elements_);
}

}  // namespace orivanta::package
