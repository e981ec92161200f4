// What the parts of the IndoorGML reader share.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/IndoorGml/GmlScale.hpp"
#include "Apps/Import/Read/IndoorGml/GmlStoreys.hpp"
#include "Apps/Import/Read/IndoorGml/IndoorGmlDocument.hpp"

namespace orivanta::importer {

/// The graph of a document: which cells are next to each other.
class GmlGraph {
 public:
  explicit GmlGraph(const GmlDocument& document);

  /// The index of the cell of a state, if it has one.
  std::optional<std::size_t> cellOfState(const std::string& state) const;

  /// The indices of the two cells of a transition, if it has both.
  std::optional<std::pair<std::size_t, std::size_t>> cellsOf(const GmlTransition& transition) const;

  /// The transition with an identifier; one that ends with "-REVERSE" is the other direction of the
  /// one without it. Null if there is none.
  const GmlTransition* transition(const std::string& id) const;

  /// The cells that transitions join with a cell, in ascending order, without repetitions.
  const std::vector<std::size_t>& neighbors(std::size_t cell) const { return neighbors_[cell]; }

 private:
  std::unordered_map<std::string, std::size_t> cellsByState_;
  std::unordered_map<std::string, const GmlTransition*> transitions_;
  std::vector<std::vector<std::size_t>> neighbors_;
};

struct GmlImport {
  const GmlDocument& document;
  const GmlStoreys& storeys;
  const GmlScale& scale;
  const GmlGraph& graph;
  Building& building;
  Findings& findings;
  std::vector<double> levels;                     ///< of the cells
  std::vector<AreaKind> kinds;                    ///< of the cells; unimportant for doors
  std::vector<std::optional<std::size_t>> areas;  ///< indices in `building.areas`, by cell

  void report(Severity severity, const char* rule, const std::string& source, std::string message,
              const char* effect, const char* advice);
};

/// The parts of the reader, in this order.
void decideGmlKinds(GmlImport& import);
void readGmlAreas(GmlImport& import);
void readGmlDoors(GmlImport& import);
void readGmlNetwork(GmlImport& import);
void readGmlConnectors(GmlImport& import);

}  // namespace orivanta::importer
