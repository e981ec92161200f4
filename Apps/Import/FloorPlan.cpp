#include "Apps/Import/FloorPlan.hpp"

namespace orivanta::importer {

std::string floorPlanSvg(const Building&, double, const PlanOptions&) { return {}; }

}  // namespace orivanta::importer
