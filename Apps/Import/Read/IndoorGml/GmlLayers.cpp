#include "Apps/Import/Read/IndoorGml/GmlLayers.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <deque>
#include <map>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "Apps/Import/MakeFinding.hpp"
#include "Apps/Import/Read/IndoorGml/GmlFootprint.hpp"
#include "Apps/Import/Read/IndoorGml/GmlStoreys.hpp"
#include "Apps/Package/Box.hpp"

namespace orivanta::importer {

namespace {

// Where a cell or a state lies.
struct Volume {
  package::Box plan;
  double lowest = 0.0;
  double highest = 0.0;
  std::optional<std::string> storey;  // of cells
};

Volume boxOf(const GmlPosition& position) {
  Volume box;
  box.plan.add(Point{position.x, position.y});
  box.lowest = box.highest = position.z;
  return box;
}

void extend(Volume& box, const Volume& other) {
  box.plan.add(other.plan.least);
  box.plan.add(other.plan.most);
  box.lowest = std::min(box.lowest, other.lowest);
  box.highest = std::max(box.highest, other.highest);
}

Volume boxOf(const GmlSpace& cell) {
  Volume box;
  for (const GmlFace& face : cell.faces)
    for (const GmlPosition& each : face.outer) box.plan.add(Point{each.x, each.y});
  const GmlExtent extent = extentOf(cell.faces);
  box.lowest = extent.lowest;
  box.highest = extent.highest;
  box.storey = statedStorey(cell);
  return box;
}

// Whether the middle of a cell or a state lies within another box on the same storey.
bool isWithin(const Volume& cell, const Volume& other) {
  const Point middle = (cell.plan.least + cell.plan.most) * 0.5;
  const double common = std::min(cell.highest, other.highest) - std::max(cell.lowest, other.lowest);
  const double lower = std::min(cell.highest - cell.lowest, other.highest - other.lowest);
  return common >= 0.5 * lower && other.plan.least.x <= middle.x && middle.x <= other.plan.most.x &&
         other.plan.least.y <= middle.y && middle.y <= other.plan.most.y &&
         (!cell.storey || cell.storey == other.storey);
}

class Chooser {
 public:
  Chooser(GmlDocument& document, Findings& findings) : document_(document), findings_(findings) {
    std::unordered_map<std::string, std::size_t> cells;
    std::unordered_map<std::string, std::size_t> cellsByState;
    for (std::size_t each = 0; each < document.cells.size(); ++each) {
      cells.emplace(document.cells[each].id, each);
      if (const std::string& state = document.cells[each].duality; !state.empty())
        cellsByState.emplace(state, each);
    }
    for (const GmlState& state : document.states) {
      Layer& layer = layers_[state.layer];
      if (const auto cell = cells.find(state.duality); cell != cells.end())
        layer.cells.push_back(cell->second);
      else if (const auto dual = cellsByState.find(state.id); dual != cellsByState.end())
        layer.cells.push_back(dual->second);
      for (const GmlPosition& position : state.positions) layer.states.push_back(boxOf(position));
    }
  }

  void run() {
    for (const auto& [number, layer] : layers_)
      if (number == layers_.begin()->first || isElsewhere(layer))
        use(layer);
      else
        leaveOut(number, layer);
    if (leftOut_.empty()) return dropStatesAndTransitions();
    const std::size_t cells = dropCells();
    dropStatesAndTransitions();
    report(cells);
  }

 private:
  struct Layer {
    std::vector<std::size_t> cells;
    std::vector<Volume> states;
  };

  static constexpr std::size_t mostTests = 200;

  // Whether few of its cells are or lie in those of used layers. Without cells, its states count.
  bool isElsewhere(const Layer& layer) {
    const std::vector<std::size_t>& cells = layer.cells;
    if (cells.empty()) return areStatesElsewhere(layer.states);
    std::size_t inside = 0;
    const std::size_t tests = std::min(cells.size(), mostTests);
    for (std::size_t each = 0; each < tests; ++each) {
      const std::size_t cell = cells[each * cells.size() / tests];
      if (used_.contains(cell)) return false;
      inside += isIn(boxAt(cell), boxes_) ? 1 : 0;
    }
    return 2 * inside < tests;
  }

  bool areStatesElsewhere(const std::vector<Volume>& states) {
    std::size_t inside = 0;
    const std::size_t tests = std::min(states.size(), mostTests);
    for (std::size_t each = 0; each < tests; ++each) {
      const Volume& state = states[each * states.size() / tests];
      inside += isIn(state, extents_) || isIn(state, boxes_) ? 1 : 0;
    }
    return 2 * inside < tests;
  }

  // A document with very many layers has one for each cell or storey. When the comparisons take
  // too long, further layers count as elsewhere, so that nothing is lost.
  bool isIn(const Volume& box, const std::vector<const Volume*>& boxes) {
    constexpr std::size_t mostComparisons = 200'000'000;
    if (comparisons_ > mostComparisons) return false;
    const auto found = std::find_if(boxes.begin(), boxes.end(),
                                    [&](const Volume* other) { return isWithin(box, *other); });
    comparisons_ += static_cast<std::size_t>(found - boxes.begin());
    return found != boxes.end();
  }

  // Layers may share cells, whose boxes are measured once.
  const Volume& boxAt(std::size_t cell) {
    const auto [box, isNew] = measured_.try_emplace(cell);
    if (isNew) box->second = boxOf(document_.cells[cell]);
    return box->second;
  }

  void use(const Layer& layer) {
    for (const std::size_t cell : layer.cells)
      if (used_.insert(cell).second) boxes_.push_back(&boxAt(cell));
    if (!layer.cells.empty() || layer.states.empty()) return;
    Volume& extent = extentStorage_.emplace_back(layer.states.front());
    for (const Volume& state : layer.states) extend(extent, state);
    extents_.push_back(&extent);
  }

  void leaveOut(std::size_t number, const Layer& layer) {
    leftOut_.insert(number);
    for (const std::size_t cell : layer.cells) dropped_.insert(cell);
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

  // Returns how many are dropped.
  std::size_t dropCells() {
    std::unordered_set<std::string> ids;
    for (const std::size_t cell : dropped_)
      if (!used_.contains(cell)) ids.insert(document_.cells[cell].id);
    return std::erase_if(document_.cells,
                         [&](const GmlSpace& cell) { return ids.contains(cell.id); });
  }

  void report(std::size_t cells) {
    const bool isOne = leftOut_.size() == 1;
    Finding finding = makeFinding(
        Severity::info, "layer-ignored", "",
        {fmt::format("{} of {} layers {} places of the others again.", leftOut_.size(),
                     layers_.size(), isOne ? "describes" : "describe"),
         fmt::format("{} states are left out, and {} cells that belong to no other layer.",
                     isOne ? "Its" : "Their", cells),
         "If they are rooms, put their states into the first layer."});
    finding.file = document_.file;
    findings_.add(std::move(finding));
  }

  GmlDocument& document_;
  Findings& findings_;
  std::map<std::size_t, Layer> layers_;               // by their numbers
  std::unordered_set<std::size_t> used_;              // cells
  std::unordered_map<std::size_t, Volume> measured_;  // by the number of the cell
  std::vector<const Volume*> boxes_;                  // of used cells
  std::deque<Volume> extentStorage_;
  std::vector<const Volume*> extents_;  // of used layers without cells
  std::size_t comparisons_ = 0;
  std::unordered_set<std::size_t> leftOut_;  // layers
  std::unordered_set<std::size_t> dropped_;  // cells of layers that are left out
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
