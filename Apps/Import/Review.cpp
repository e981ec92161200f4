#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

void reviewBuilding(const Building&, Findings&) {}

}  // namespace orivanta::importer
