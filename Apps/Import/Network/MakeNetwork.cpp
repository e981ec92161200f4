#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

void makeNetwork(Building&, const Options&, Findings&) {}

}  // namespace orivanta::importer
