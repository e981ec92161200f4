#include "Apps/DemoVenue/DemoVenue.hpp"

#include "Apps/DemoVenue/Models.hpp"
#include "Apps/DemoVenue/Network.hpp"
#include "Apps/DemoVenue/Package.hpp"
#include "Apps/DemoVenue/Pictures.hpp"
#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

void writeDemoVenue(const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder / "maps");
  std::filesystem::create_directories(folder / "images" / "places");
  const Plan plan = makePlan();
  const Network network = makeNetwork(plan);
  writePackage(plan, network, folder);
  writeModels(plan, folder / "maps");
  writeTextures(folder / "maps");
  writeImages(plan, folder / "images");
  writeSigns(plan, folder / "images" / "places");
}

}  // namespace orivanta::demo
