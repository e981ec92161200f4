#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

void arrangePlaces(Building&, const Options&, Findings&) {}

}  // namespace orivanta::importer
