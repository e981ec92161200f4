#include "Apps/Import/Write/WritePackage.hpp"

#include <fcntl.h>
#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <system_error>

#include "Apps/Import/Model/FloorModel.hpp"
#include "Apps/Import/Write/FloorPlan.hpp"
#include "Apps/Import/Write/PackageRecords.hpp"
#include "Apps/Import/Write/Pictures.hpp"
#include "Apps/Import/Write/PlacePictures.hpp"
#include "Apps/Package/Records.hpp"
#include "Apps/Package/TextFile.hpp"

namespace orivanta::importer {

namespace fs = std::filesystem;

namespace {

// A new folder beside another one. It is removed with its contents if it was not renamed.
class NewFolder {
 public:
  explicit NewFolder(const fs::path& target) {
    fs::create_directories(target.parent_path());
    std::string pattern =
        (target.parent_path() / ("." + target.filename().string() + ".XXXXXX")).string();
    if (::mkdtemp(pattern.data()) == nullptr)
      throw std::runtime_error(fmt::format("{}: the folder cannot be made: {}", target.string(),
                                           std::generic_category().message(errno)));
    path_ = pattern;
    fs::permissions(path_, fs::perms(0755));
  }
  NewFolder(const NewFolder&) = delete;
  NewFolder& operator=(const NewFolder&) = delete;
  ~NewFolder() {
    std::error_code ignored;
    if (!path_.empty()) fs::remove_all(path_, ignored);
  }

  const fs::path& path() const { return path_; }

  /// Puts the folder in the place of the other one, which takes its name and is removed with it.
  void replace(const fs::path& target) {
    if (!fs::exists(target)) {
      fs::rename(path_, target);
      path_.clear();
    } else if (::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target.c_str(), RENAME_EXCHANGE) !=
               0) {
      // Not all file systems can exchange two names.
      const fs::path old = path_.string() + "-old";
      fs::rename(target, old);
      fs::rename(path_, target);
      path_ = old;
    }
  }

 private:
  fs::path path_;
};

void writeRecords(const PackageRecords& records, const fs::path& folder) {
  using package::jsonLines;
  using package::writeFile;
  writeFile(folder / "venue.json", package::jsonLine(records.venue) + "\n");
  writeFile(folder / "map.json", jsonLines(records.maps));
  writeFile(folder / "category.json", jsonLines(records.categories));
  writeFile(folder / "location.json", jsonLines(records.locations));
  writeFile(folder / "node.json", jsonLines(records.nodes));
  writeFile(folder / "vortex.json", jsonLines(records.vortices));
  writeFile(folder / "polygon.json", jsonLines(records.polygons));
}

void writeFloors(const PackageLayout& layout, const fs::path& folder) {
  for (const Storey* storey : layout.maps()) {
    const std::string& name = layout.fileName(*storey);
    const package::Model model = makeFloorModel(layout, *storey);
    package::writeFile(folder / (name + ".obj"), model.obj(name + ".mtl"));
    package::writeFile(folder / (name + ".mtl"), model.mtl());
    package::writeFile(folder / (name + ".svg"), floorPlanSvg(layout.building(), storey->ordinal));
  }
}

// The folder without a slash at its end and without symbolic links, which would be replaced
// themselves.
fs::path resolved(const fs::path& target) {
  fs::path path = fs::weakly_canonical(fs::absolute(target));
  return path.has_filename() ? path : path.parent_path();
}

}  // namespace

void checkTarget(const fs::path& target) {
  if (target.empty()) throw std::runtime_error("the name of the package is empty");
  const fs::path folder = resolved(target);
  if (!fs::exists(folder)) return;
  if (fs::is_directory(folder) && (fs::exists(folder / "venue.json") || fs::is_empty(folder)))
    return;
  throw std::runtime_error(fmt::format(
      "{}: exists and is no venue package; choose another name, or remove it", target.string()));
}

void writePackage(const Building& building, const fs::path& target) {
  checkTarget(target);
  const fs::path folder = resolved(target);
  NewFolder fresh(folder);
  fs::create_directories(fresh.path() / "maps");
  fs::create_directories(fresh.path() / "images");
  const PackageLayout layout(building);
  const PackageRecords records = makeRecords(layout);
  writeRecords(records, fresh.path());
  writeFloors(layout, fresh.path() / "maps");
  writeImages(layout, fresh.path() / "images");
  writeSigns(records.categories, fresh.path() / "images" / "places");
  if (const fs::path closures = folder / "closure.json"; fs::exists(closures))
    fs::copy_file(closures, fresh.path() / "closure.json");
  fresh.replace(folder);
}

}  // namespace orivanta::importer
