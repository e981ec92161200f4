#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

void repairShapes(Building&, const Options&, Findings&) {}

}  // namespace orivanta::importer
