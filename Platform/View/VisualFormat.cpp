#include <fmt/format.h>

#include <optional>

#include "Platform/Foundation/DecimalNumbers.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/View/LayoutConstraint.hpp"

namespace orivanta::view {

namespace {

// Reads a format from left to right. A `take` function consumes text only if it succeeds.
class Reader {
 public:
  explicit Reader(std::string_view rest) : rest_(rest) {}

  bool atEnd() const { return rest_.empty(); }

  bool take(std::string_view text) {
    if (rest_.substr(0, text.size()) != text) return false;
    rest_.remove_prefix(text.size());
    return true;
  }

  // "-NUMBER-", or nothing for a distance of 0.
  std::optional<double> takeDistance() {
    if (!take("-")) return 0.0;
    double distance = 0.0;
    const std::size_t length = foundation::readNumber(rest_, distance);
    if (length == 0) return std::nullopt;
    rest_.remove_prefix(length);
    if (!take("-")) return std::nullopt;
    return distance;
  }

 private:
  std::string_view rest_;
};

struct Distances {
  bool horizontal = true;
  std::optional<double> before;  // from the parent's left or top edge
  std::optional<double> after;   // to the parent's right or bottom edge
};

std::optional<Distances> parse(std::string_view format, std::string_view name) {
  Reader reader(format);
  Distances distances;
  distances.horizontal = reader.take("H:");
  if (!distances.horizontal && !reader.take("V:")) return std::nullopt;
  if (reader.take("|") && !(distances.before = reader.takeDistance())) return std::nullopt;
  if (!reader.take("[") || !reader.take(name) || !reader.take("]")) return std::nullopt;
  if (reader.atEnd()) return distances;
  distances.after = reader.takeDistance();
  if (!distances.after || !reader.take("|") || !reader.atEnd()) return std::nullopt;
  return distances;
}

}  // namespace

std::vector<LayoutConstraint> constraintsWithVisualFormat(std::string_view format,
                                                          std::string_view name, View& subview,
                                                          View& superview) {
  const auto distances = parse(format, name);
  if (!distances)
    foundation::fatalError(
        fmt::format("\"{}\" is not a valid visual format for \"{}\"", format, name));
  const auto near = distances->horizontal ? LayoutAttribute::leading : LayoutAttribute::top;
  const auto far = distances->horizontal ? LayoutAttribute::trailing : LayoutAttribute::bottom;
  std::vector<LayoutConstraint> constraints;
  if (distances->before)
    constraints.push_back({&subview, near, &superview, near, 1.0, *distances->before});
  if (distances->after)
    constraints.push_back({&subview, far, &superview, far, 1.0, -*distances->after});
  return constraints;
}

}  // namespace orivanta::view
