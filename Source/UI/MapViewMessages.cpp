#include "Source/UI/MapViewMessages.hpp"

#include <fmt/format.h>

#include <functional>
#include <type_traits>
#include <utility>

#include "Source/UI/MapView.hpp"

namespace orivanta {

namespace {

using Arguments = std::span<const MessageArgument>;

struct Operation {
  std::string_view selector;
  std::function<bool(MapView&, Arguments)> call;  // false if the arguments do not match
};

// The type in which an argument is passed: numbers of all types are doubles.
template <class Parameter>
using Passed = std::conditional_t<std::is_same_v<Parameter, float>, double, Parameter>;

template <class... Parameters, std::size_t... indices>
Operation makeOperation(std::string_view selector, void (MapView::*member)(Parameters...),
                        std::index_sequence<indices...>) {
  return {selector, [member](MapView& mapView, [[maybe_unused]] Arguments arguments) {
            if (arguments.size() != sizeof...(Parameters) ||
                !(std::holds_alternative<Passed<Parameters>>(arguments[indices]) && ...))
              return false;
            (mapView.*
             member)(static_cast<Parameters>(std::get<Passed<Parameters>>(arguments[indices]))...);
            return true;
          }};
}

template <class... Parameters>
Operation makeOperation(std::string_view selector, void (MapView::*member)(Parameters...)) {
  return makeOperation(selector, member, std::index_sequence_for<Parameters...>());
}

const std::vector<Operation>& operations() {
  static const std::vector<Operation> table{
      makeOperation("drawCurrentPath", &MapView::drawCurrentPath),
      makeOperation("clearPaths:", &MapView::clearPaths),
      makeOperation("drawPathSegment:positionB:", &MapView::drawPathSegment),
      makeOperation("drawPathSegmentStrip:positionB:pathWidth:pathColor:elevation:",
                    &MapView::drawPathSegmentStrip),
      makeOperation("drawPathSegmentArrow:positionB:pathWidth:elevation:",
                    &MapView::drawPathSegmentArrow),
      makeOperation("removeHighlightNode", &MapView::removeHighlightNode)};
  return table;
}

}  // namespace

foundation::Result<void> perform(MapView& mapView, std::string_view selector, Arguments arguments) {
  for (const Operation& operation : operations()) {
    if (operation.selector != selector) continue;
    if (operation.call(mapView, arguments)) return {};
    return foundation::failure(
        "", 2, fmt::format("the arguments do not match the operation \"{}\"", selector));
  }
  return foundation::failure("", 1, fmt::format("unknown map view operation \"{}\"", selector));
}

std::vector<std::string_view> messageSelectors() {
  std::vector<std::string_view> selectors;
  for (const Operation& operation : operations()) selectors.push_back(operation.selector);
  return selectors;
}

}  // namespace orivanta
