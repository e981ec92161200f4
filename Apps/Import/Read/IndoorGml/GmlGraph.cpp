#include <algorithm>

#include "Apps/Import/Read/IndoorGml/GmlImport.hpp"

namespace orivanta::importer {

namespace {

std::string withoutReverse(const std::string& id) {
  constexpr std::string_view ending = "-REVERSE";
  return id.ends_with(ending) ? id.substr(0, id.size() - ending.size()) : id;
}

}  // namespace

GmlGraph::GmlGraph(const GmlDocument& document) : neighbors_(document.cells.size()) {
  std::unordered_map<std::string, std::size_t> cells;
  for (std::size_t each = 0; each < document.cells.size(); ++each)
    cells.emplace(document.cells[each].id, each);
  for (const GmlState& state : document.states)
    if (const auto cell = cells.find(state.duality); cell != cells.end())
      cellsByState_.emplace(state.id, cell->second);
  for (std::size_t each = 0; each < document.cells.size(); ++each)
    if (!document.cells[each].duality.empty())
      cellsByState_.emplace(document.cells[each].duality, each);
  for (const GmlTransition& transition : document.transitions) {
    transitions_.emplace(withoutReverse(transition.id), &transition);
    if (const auto pair = cellsOf(transition)) {
      neighbors_[pair->first].push_back(pair->second);
      neighbors_[pair->second].push_back(pair->first);
    }
  }
  for (std::vector<std::size_t>& each : neighbors_) {
    std::sort(each.begin(), each.end());
    each.erase(std::unique(each.begin(), each.end()), each.end());
  }
}

std::optional<std::size_t> GmlGraph::cellOfState(const std::string& state) const {
  const auto found = cellsByState_.find(state);
  return found == cellsByState_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::pair<std::size_t, std::size_t>> GmlGraph::cellsOf(
    const GmlTransition& transition) const {
  const auto first = cellOfState(transition.connects.front());
  const auto second = cellOfState(transition.connects.back());
  if (!first || !second || first == second) return std::nullopt;
  return std::pair(*first, *second);
}

const GmlTransition* GmlGraph::transition(const std::string& id) const {
  const auto found = transitions_.find(withoutReverse(id));
  return found == transitions_.end() ? nullptr : found->second;
}

}  // namespace orivanta::importer
