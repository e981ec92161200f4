#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

void joinDoors(Building&, const Options&, Findings&) {}

}  // namespace orivanta::importer
