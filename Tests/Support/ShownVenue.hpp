// A venue with three floors in a map view without a window.
//
//   ground floor, 1000 x 1000, y upwards:    upper floor, 800 x 400:    roof: no model
//     .  .  .  hall                            .  .  .  .
//     .  stand .  .                            loft  .  .
//     cafe  .  .  .
//
// `cafe` covers (100, 100) to (300, 300) and belongs to the location Cafe. `hall` covers (600, 600)
// to (900, 900) and belongs to no location. `Stand` covers (400, 400) to (500, 500); it is not a
// polygon, but has the name of the location Stand. `loft` covers (100, 100) to (200, 200) and
// belongs to the location Loft. All are 2 units above the slab `Ground`.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::test {

/// Collects the diagnostic lines that are written during its lifetime.
class DiagnosticLines {
 public:
  DiagnosticLines();
  ~DiagnosticLines();

  std::vector<std::string> lines() const { return *lines_; }
  bool contains(const std::string& line) const;

 private:
  std::shared_ptr<std::vector<std::string>> lines_;
};

/// Records the calls that it receives.
class RecordingDelegate : public MapViewDelegate {
 public:
  void mapViewDidLoad() override { calls.emplace_back("loaded"); }
  void polygonSelected(const std::shared_ptr<Polygon>& polygon) override;
  void nothingSelected() override { calls.emplace_back("nothing"); }

  std::vector<std::string> calls;
};

class ShownVenue {
 public:
  /// Loads the floors unless `load` is false. The view has 800 x 800 points.
  explicit ShownVenue(bool load = true);
  ~ShownVenue();

  void load();

  std::shared_ptr<Map> floor(std::size_t index) const { return venue->maps->at(index); }
  std::shared_ptr<Polygon> polygon(const std::string& id) const;
  std::shared_ptr<Location> location(const std::string& id) const;
  scene::Node& camera() const { return *mapView->cameraOrbit->children().front(); }

  /// A node of the navigation graph at a position of a floor.
  std::shared_ptr<Node> node(double x, double y, double z, std::size_t floorIndex = 0) const;

  std::shared_ptr<Venue> venue;
  std::shared_ptr<MapView> mapView;
  std::shared_ptr<RecordingDelegate> delegate = std::make_shared<RecordingDelegate>();

 private:
  TemporaryFolder folder_;
};

}  // namespace orivanta::test
