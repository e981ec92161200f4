#include "Platform/View/LayoutConstraint.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::view {

namespace {

using graphics::Rect;

constexpr double negligibleFactor = 1e-9;
constexpr double negligibleLength = 1e-6;  // points

// The unknowns of a child, in this order: left, top, width, height.
enum Unknown : std::size_t { left, top, width, height, unknownsPerView };

// A sum of unknowns with factors, and a constant. As an equation, the sum is zero.
struct Sum {
  std::vector<double> factors;
  double constant = 0.0;

  void add(const Sum& other, double times) {
    for (std::size_t i = 0; i < factors.size(); ++i) factors[i] += times * other.factors[i];
    constant += times * other.constant;
  }
};

// A system of equations in reduced form (Gauss-Jordan elimination): each has an unknown that does
// not occur in the others.
class LinearSystem {
 public:
  // Adds the equation. Returns false if it contradicts earlier ones.
  bool add(Sum equation) {
    for (const Row& row : rows_) equation.add(row.sum, -equation.factors[row.unknown]);
    const auto largest =
        std::max_element(equation.factors.begin(), equation.factors.end(),
                         [](double a, double b) { return std::abs(a) < std::abs(b); });
    if (largest == equation.factors.end() || std::abs(*largest) < negligibleFactor)
      return std::abs(equation.constant) < negligibleLength;
    const auto unknown = static_cast<std::size_t>(largest - equation.factors.begin());
    Sum solved{std::vector<double>(equation.factors.size())};
    solved.add(equation, 1.0 / *largest);
    for (Row& row : rows_) row.sum.add(solved, -row.sum.factors[unknown]);
    rows_.push_back({unknown, std::move(solved)});
    return true;
  }

  // The value of an unknown. Requires as many equations as unknowns.
  double value(std::size_t unknown) const {
    const auto row = std::find_if(rows_.begin(), rows_.end(),
                                  [&](const Row& each) { return each.unknown == unknown; });
    return row == rows_.end() ? 0.0 : -row->sum.constant;
  }

 private:
  struct Row {
    std::size_t unknown;
    Sum sum;
  };

  std::vector<Row> rows_;
};

// The children to lay out, and the attributes that constraints may refer to.
class Layout {
 public:
  explicit Layout(const View& superview) : superview_(superview) {
    for (auto& child : superview.subviews())
      if (!child->translatesAutoresizingMaskIntoConstraints()) children_.push_back(child);
  }

  const std::vector<std::shared_ptr<View>>& children() const { return children_; }

  Sum unknown(std::size_t child, Unknown which) const {
    Sum sum{std::vector<double>(children_.size() * unknownsPerView)};
    sum.factors[child * unknownsPerView + which] = 1.0;
    return sum;
  }

  // Returns nothing for `none`.
  std::optional<Sum> attribute(const View& view, LayoutAttribute attribute) const {
    switch (attribute) {
      case LayoutAttribute::left:
      case LayoutAttribute::leading:
        return along(view, left, 0.0);
      case LayoutAttribute::centerX:
        return along(view, left, 0.5);
      case LayoutAttribute::right:
      case LayoutAttribute::trailing:
        return along(view, left, 1.0);
      case LayoutAttribute::top:
        return along(view, top, 0.0);
      case LayoutAttribute::centerY:
        return along(view, top, 0.5);
      case LayoutAttribute::bottom:
        return along(view, top, 1.0);
      case LayoutAttribute::width:
        return part(view, width);
      case LayoutAttribute::height:
        return part(view, height);
      case LayoutAttribute::none:
        break;
    }
    return std::nullopt;
  }

  // first - second * multiplier - constant; nothing if that is not a valid equation.
  std::optional<Sum> equation(const LayoutConstraint& constraint) const {
    auto sum = attribute(*constraint.first, constraint.firstAttribute);
    if (!sum) return std::nullopt;
    if (constraint.second != nullptr) {
      const auto second = attribute(*constraint.second, constraint.secondAttribute);
      if (!second) return std::nullopt;
      sum->add(*second, -constraint.multiplier);
    }
    sum->constant -= constraint.constant;
    const bool finite = std::isfinite(sum->constant) && std::isfinite(constraint.multiplier);
    return finite ? sum : std::nullopt;
  }

 private:
  // The origin plus a fraction of the corresponding size.
  Sum along(const View& view, Unknown origin, double share) const {
    Sum sum = part(view, origin);
    sum.add(part(view, origin == left ? width : height), share);
    return sum;
  }

  Sum part(const View& view, Unknown which) const {
    const auto child = std::find_if(children_.begin(), children_.end(),
                                    [&](const auto& each) { return each.get() == &view; });
    if (child != children_.end())
      return unknown(static_cast<std::size_t>(child - children_.begin()), which);
    const Rect known = &view == &superview_ ? view.bounds() : view.frame();
    const double values[] = {known.minX(), known.minY(), known.size.width, known.size.height};
    return {std::vector<double>(children_.size() * unknownsPerView), values[which]};
  }

  const View& superview_;
  std::vector<std::shared_ptr<View>> children_;
};

void report(const LayoutConstraint& constraint) {
  static constexpr const char* names[] = {"none",   "left",    "right",    "top",
                                          "bottom", "leading", "trailing", "width",
                                          "height", "centerX", "centerY"};
  const auto name = [](LayoutAttribute attribute) {
    return names[static_cast<std::size_t>(attribute)];
  };
  foundation::diagnostic(fmt::format(
      "Layout constraint cannot be met: {} = {} * {} + {}", name(constraint.firstAttribute),
      constraint.second == nullptr ? "none" : name(constraint.secondAttribute),
      constraint.multiplier, constraint.constant));
}

// The parent's constraints, except those on the parent alone, which its own parent handles,
// followed by the children's constraints on themselves alone.
std::vector<LayoutConstraint> gather(const View& superview, const Layout& layout) {
  const auto isAlone = [](const LayoutConstraint& constraint, const View& view) {
    return constraint.first == &view &&
           (constraint.second == nullptr || constraint.second == &view);
  };
  std::vector<LayoutConstraint> gathered;
  for (const LayoutConstraint& constraint : superview.constraints())
    if (!isAlone(constraint, superview)) gathered.push_back(constraint);
  for (const auto& child : layout.children())
    for (const LayoutConstraint& constraint : child->constraints())
      if (isAlone(constraint, *child)) gathered.push_back(constraint);
  return gathered;
}

}  // namespace

void solveLayout(View& superview) {
  const Layout layout(superview);
  const auto& children = layout.children();
  if (children.empty()) return;
  LinearSystem system;
  for (const LayoutConstraint& constraint : gather(superview, layout)) {
    const auto equation = layout.equation(constraint);
    if (!equation || !system.add(*equation)) report(constraint);
  }
  // Unknowns that are still undetermined keep their current value: adds it as an equation, which
  // has no effect if it contradicts earlier ones.
  const auto keep = [&](std::size_t child, Unknown which, double value) {
    Sum equation = layout.unknown(child, which);
    equation.constant = -value;
    system.add(std::move(equation));
  };
  for (std::size_t i = 0; i < children.size(); ++i) {
    keep(i, width, children[i]->frame().size.width);
    keep(i, height, children[i]->frame().size.height);
  }
  for (std::size_t i = 0; i < children.size(); ++i) {
    keep(i, left, children[i]->frame().minX());
    keep(i, top, children[i]->frame().minY());
  }
  for (std::size_t i = 0; i < children.size(); ++i) {
    const auto value = [&](Unknown which) { return system.value(i * unknownsPerView + which); };
    children[i]->setFrame({{value(left), value(top)}, {value(width), value(height)}});
  }
}

}  // namespace orivanta::view
