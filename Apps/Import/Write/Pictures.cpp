#include "Apps/Import/Write/Pictures.hpp"

#include <algorithm>
#include <string>

#include "Apps/Import/Model/FloorModel.hpp"
#include "Apps/Package/Box.hpp"
#include "Apps/Package/Palette.hpp"
#include "Apps/Package/Picture.hpp"

namespace orivanta::importer {

namespace {

namespace palette = package::palette;
using package::Picture;

// Fits what is drawn of the main floor into a picture.
class PlanPainter {
 public:
  explicit PlanPainter(const PackageLayout& layout) : layout_(layout) {
    if (layout.maps().empty()) return;
    const Storey& storey = *layout.maps().front();
    for (const Area& area : layout.building().areas)
      if (area.level == storey.ordinal && isTappable(area.kind)) areas_.push_back(&area);
    // Rooms are drawn over the walkways that they may lie on.
    std::stable_partition(areas_.begin(), areas_.end(), [](const Area* area) {
      return area->kind == AreaKind::walkway || area->kind == AreaKind::unknown;
    });
    for (const Area* area : areas_)
      for (const Polygon& polygon : area->shape) box_.add(polygon.outer);
  }

  // `share` of the picture is used. With `plain`, everything has this color.
  void paint(Picture& picture, double share, const package::Color* plain) const {
    const Point size = box_.size();
    if (size.x <= 0.0 || size.y <= 0.0) return;
    const double scale = share * std::min(picture.width() / size.x, picture.height() / size.y);
    const Point middle = (box_.least + box_.most) * 0.5;
    const auto onPicture = [&](const Outline& ring) {
      Outline moved;
      for (const Point point : ring)
        moved.push_back({picture.width() / 2.0 + (point.x - middle.x) * scale,
                         picture.height() / 2.0 - (point.y - middle.y) * scale});
      return moved;
    };
    for (const Area* area : areas_)
      for (const Polygon& polygon : area->shape) {
        std::vector<Outline> rings = {onPicture(polygon.outer)};
        for (const Outline& hole : polygon.holes) rings.push_back(onPicture(hole));
        picture.fill(rings, plain != nullptr ? *plain : colorOf(*area, layout_.placeOf(*area)));
      }
  }

 private:
  const PackageLayout& layout_;
  std::vector<const Area*> areas_;
  package::Box box_;
};

}  // namespace

void writeImages(const PackageLayout& layout, const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  const PlanPainter plan(layout);
  for (const int size : {64, 128, 256}) {
    Picture logo(size, size, palette::route, 0.0);
    logo.fill(package::circle({size / 2.0, size / 2.0}, size * 0.49, 64), palette::route);
    plan.paint(logo, 0.66, &palette::casing);
    logo.write(folder / ("logo-" + std::to_string(size) + ".png"));
  }
  Picture cover(1024, 512, palette::backdrop);
  plan.paint(cover, 0.9, nullptr);
  cover.write(folder / "cover.png");
}

}  // namespace orivanta::importer
