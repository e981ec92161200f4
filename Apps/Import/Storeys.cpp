#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

void arrangeStoreys(Building&, const Options&, Findings&) {}

}  // namespace orivanta::importer
