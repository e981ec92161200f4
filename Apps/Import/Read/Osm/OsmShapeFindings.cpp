#include "Apps/Import/Read/Osm/OsmShapeFindings.hpp"

#include <fmt/format.h>

#include <utility>

#include "Apps/Import/MakeFinding.hpp"

namespace orivanta::importer {

Finding nodesMissing(const std::string& id, std::size_t number, bool isLost,
                     const std::string& file) {
  std::string message =
      number == 0 ? "The way has no nodes."
                  : fmt::format("The way has {} nodes that the extract does not contain.", number);
  Finding finding = makeFinding(
      Severity::warning, "nodes-missing", id,
      {std::move(message), isLost ? "It is left out." : "It is drawn without them.",
       "Make the extract with complete ways, such as with \"out geom;\" at the end of a query to "
       "Overpass."});
  finding.file = file;
  return finding;
}

Finding ringOpen(const std::string& id, const std::string& file) {
  Finding finding =
      makeFinding(Severity::warning, "ring-open", id,
                  {"The outline of the area is not closed.", "The open part is left out.",
                   "Close the outline, or make the extract with complete relations."});
  finding.file = file;
  return finding;
}

}  // namespace orivanta::importer
