#include "Apps/Import/Read/IndoorGml/GmlLayers.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "Apps/Import/MakeFinding.hpp"
#include "Apps/Import/Read/IndoorGml/GmlFootprint.hpp"
#include "Apps/Import/Read/IndoorGml/GmlStoreys.hpp"

namespace orivanta::importer {

namespace {

// Where a cell lies.
struct Box {
  Point least{1e9, 1e9};
  Point greatest{-1e9, -1e9};
  double lowest = 0.0;
  double highest = 0.0;
  std::string storey;
};

Box boxOf(const GmlSpace& cell) {
  Box box;
  for (const GmlFace& face : cell.faces)
    for (const GmlPosition& each : face.outer) {
      box.least = {std::min(box.least.x, each.x), std::min(box.least.y, each.y)};
      box.greatest = {std::max(box.greatest.x, each.x), std::max(box.greatest.y, each.y)};
    }
  const GmlExtent extent = extentOf(cell.faces);
  box.lowest = extent.lowest;
  box.highest = extent.highest;
  box.storey = statedStorey(cell);
  return box;
}

// Whether the middle of a cell lies within another one on the same storey.
bool isWithin(const Box& cell, const Box& other) {
  const Point middle = (cell.least + cell.greatest) * 0.5;
  const double common = std::min(cell.highest, other.highest) - std::max(cell.lowest, other.lowest);
  const double lower = std::min(cell.highest - cell.lowest, other.highest - other.lowest);
  return common >= 0.5 * lower && other.least.x <= middle.x && middle.x <= other.greatest.x &&
         other.least.y <= middle.y && middle.y <= other.greatest.y && cell.storey == other.storey;
}

class Chooser {
 public:
  Chooser(GmlDocument& document, Findings& findings) : document_(document), findings_(findings) {
    std::unordered_map<std::string, std::size_t> cells;
    for (std::size_t each = 0; each < document.cells.size(); ++each)
      cells.emplace(document.cells[each].id, each);
    for (const GmlState& state : document.states) {
      std::vector<std::size_t>& layer = layers_[state.layer];
      if (const auto cell = cells.find(state.duality); cell != cells.end())
        layer.push_back(cell->second);
    }
  }

  void run() {
    for (const auto& [layer, cells] : layers_)
      if (layer == layers_.begin()->first || isElsewhere(cells))
        use(cells);
      else
        leaveOut(layer, cells);
    dropStatesAndTransitions();
    dropCells();
  }

 private:
  // Whether the layer has cells, and few of them are or lie in those of used layers.
  bool isElsewhere(const std::vector<std::size_t>& cells) {
    constexpr std::size_t mostTests = 200;
    std::size_t inside = 0;
    const std::size_t tests = std::min(cells.size(), mostTests);
    for (std::size_t each = 0; each < tests; ++each) {
      const std::size_t cell = cells[each * cells.size() / tests];
      if (used_.contains(cell)) return false;
      inside += isInUsed(boxAt(cell)) ? 1 : 0;
    }
    return 2 * inside < tests;
  }

  // A document with very many layers has one for each cell or storey. When the comparisons take
  // too long, further layers count as elsewhere, so that nothing is lost.
  bool isInUsed(const Box& box) {
    constexpr std::size_t mostComparisons = 200'000'000;
    if (comparisons_ > mostComparisons) return false;
    const auto found = std::find_if(boxes_.begin(), boxes_.end(),
                                    [&](const Box* other) { return isWithin(box, *other); });
    comparisons_ += static_cast<std::size_t>(found - boxes_.begin());
    return found != boxes_.end();
  }

  // Layers may share cells, whose boxes are measured once.
  const Box& boxAt(std::size_t cell) {
    const auto [box, isNew] = measured_.try_emplace(cell);
    if (isNew) box->second = boxOf(document_.cells[cell]);
    return box->second;
  }

  void use(const std::vector<std::size_t>& cells) {
    for (const std::size_t cell : cells)
      if (used_.insert(cell).second) boxes_.push_back(&boxAt(cell));
  }

  void leaveOut(std::size_t layer, const std::vector<std::size_t>& cells) {
    leftOut_.insert(layer);
    for (const std::size_t cell : cells)
      if (!used_.contains(cell)) dropped_.insert(document_.cells[cell].id);
  }

  void dropStatesAndTransitions() {
    std::erase_if(document_.states,
                  [&](const GmlState& state) { return leftOut_.contains(state.layer); });
    std::unordered_set<std::string> states;
    for (const GmlState& state : document_.states) states.insert(state.id);
    std::erase_if(document_.transitions, [&](const GmlTransition& each) {
      if (!each.joinsLayers) return leftOut_.contains(each.layer);
      return !states.contains(each.connects.front()) || !states.contains(each.connects.back());
    });
  }

  void dropCells() {
    if (dropped_.empty()) return;
    std::erase_if(document_.cells,
                  [&](const GmlSpace& cell) { return dropped_.contains(cell.id); });
    Finding finding = makeFinding(
        Severity::info, "layer-ignored", "",
        {fmt::format("{} cells belong only to layers that describe places of the first one again.",
                     dropped_.size()),
         "They are left out.", "If they are rooms, put their states into the first layer."});
    finding.file = document_.file;
    findings_.add(std::move(finding));
  }

  GmlDocument& document_;
  Findings& findings_;
  std::map<std::size_t, std::vector<std::size_t>> layers_;  // the cells of each, by its number
  std::unordered_set<std::size_t> used_;                    // cells
  std::unordered_map<std::size_t, Box> measured_;           // by the number of the cell
  std::vector<const Box*> boxes_;                           // of used cells
  std::size_t comparisons_ = 0;
  std::unordered_set<std::size_t> leftOut_;  // layers
  std::unordered_set<std::string> dropped_;  // cells
};

}  // namespace

void chooseGmlLayers(GmlDocument& document, Findings& findings) {
  const bool isOne =
      std::all_of(document.states.begin(), document.states.end(),
                  [&](const GmlState& state) { return state.layer == document.states[0].layer; }) &&
      std::none_of(document.transitions.begin(), document.transitions.end(),
                   [](const GmlTransition& each) { return each.joinsLayers; });
  if (!isOne) Chooser(document, findings).run();
}

}  // namespace orivanta::importer
