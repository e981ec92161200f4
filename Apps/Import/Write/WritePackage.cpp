#include "Apps/Import/Write/WritePackage.hpp"

#include <string>

#include "Apps/Import/Model/FloorModel.hpp"
#include "Apps/Import/Write/FloorPlan.hpp"
#include "Apps/Import/Write/PackageRecords.hpp"
#include "Apps/Import/Write/Pictures.hpp"
#include "Apps/Import/Write/PlacePictures.hpp"
#include "Apps/Package/ReplacedFolder.hpp"

namespace orivanta::importer {

namespace fs = std::filesystem;
using package::ReplacedFolder;

namespace {

// Returns the records of the categories.
boost::json::array writeRecords(const PackageLayout& layout, ReplacedFolder& folder,
                                const Progress& progress) {
  return makeRecords(layout, [&](std::string_view file, std::string_view text) {
    if (progress) progress("writing", 0.0);
    folder.write(file, text);
  });
}

void writeFloors(const PackageLayout& layout, ReplacedFolder& folder, const Progress& progress) {
  double done = 0.0;
  for (const Storey* storey : layout.maps()) {
    if (progress) progress("writing", ++done / static_cast<double>(layout.maps().size() + 1));
    const std::string& name = layout.fileName(*storey);
    const package::Model model = makeFloorModel(layout, *storey);
    folder.write("maps/" + name + ".obj", model.obj(name + ".mtl"));
    folder.write("maps/" + name + ".mtl", model.mtl());
    folder.write("maps/" + name + ".svg", floorPlanSvg(layout.building(), storey->ordinal));
  }
}

}  // namespace

void writePackage(const Building& building, const fs::path& target, const Progress& progress) {
  ReplacedFolder folder(target, "import");
  const PackageLayout layout(building);
  const boost::json::array categories = writeRecords(layout, folder, progress);
  writeFloors(layout, folder, progress);
  writeImages(layout, folder.path() / "images");
  writeSigns(categories, folder.path() / "images" / "places");
  folder.commit();
}

}  // namespace orivanta::importer
