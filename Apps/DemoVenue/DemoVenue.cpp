#include "Apps/DemoVenue/DemoVenue.hpp"

#include "Apps/DemoVenue/Network.hpp"
#include "Apps/DemoVenue/Package.hpp"
#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

void writeDemoVenue(const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  const Plan plan = makePlan();
  const Network network = makeNetwork(plan);
  writePackage(plan, network, folder);
}

}  // namespace orivanta::demo
