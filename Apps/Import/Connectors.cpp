#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

void makeConnectors(Building&, const Options&, Findings&) {}

}  // namespace orivanta::importer
