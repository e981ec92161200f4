// A map on a canvas of the page.
#pragma once

#include <boost/json/object.hpp>
#include <functional>
#include <memory>
#include <vector>

#include "Apps/Web/Map/MapEvents.hpp"
#include "Apps/Web/Map/MapFloors.hpp"
#include "Apps/Web/Map/MapInput.hpp"
#include "Apps/Web/Map/MapLook.hpp"
#include "Apps/Web/Map/MapMarkers.hpp"
#include "Apps/Web/Map/MapRoute.hpp"
#include "Apps/Web/Map/PageDownloader.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Render/Renderer.hpp"
#include "Platform/Render/WebCanvas/CanvasSurface.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/MapViewDelegate.hpp"

namespace orivanta::web {

/// The size of a canvas.
struct CanvasSize {
  graphics::Size size;  ///< points; empty while the canvas is not shown
  double scale = 1;     ///< pixels per point

  friend bool operator==(const CanvasSize&, const CanvasSize&) = default;
};

/// Owns a map view, its style and its renderer. What the page asks for is in `MapCommands.hpp`.
class MapHost : public MapViewDelegate {
 public:
  /// Makes a map without floors. `canvas`: a number of the page. It is an error if the browser does
  /// not support WebGL 2.
  static foundation::Result<std::shared_ptr<MapHost>> make(int number, LoadedVenue& venue,
                                                           int canvas);
  ~MapHost() override;

  /// Starts to load the floors, this one first, or if it is null, the one where most places are.
  void load(std::shared_ptr<Map> first);

  /// Loads the floors that wait until the first one is drawn completely.
  void loadOtherFloors() { downloader_->release(); }

  /// Draws a frame if a floor is loaded and the canvas is shown. `time`: seconds; increases.
  void frame(const CanvasSize& canvas, double time);

  /// Calls a function when the canvas is shown, unless it is called for another function meanwhile.
  /// Returns false, and does not keep the function, if the canvas is shown already.
  bool whenVisible(std::function<void()> then);

  /// Whether a frame would differ from the last one.
  bool needsFrame() const;

  /// Asks the page for a frame if one is needed.
  void requestFrame() const;

  /// To be called when the browser takes the context away, and when it gives one back.
  void contextLost();
  void contextRestored();

  /// Returns the look, and changes it.
  const MapLook& look() const { return look_; }
  void setLook(const MapLook& look);

  /// Sets the parts of the canvas that are covered, in points. The logo is hidden where it would be
  /// covered in part.
  void setCovered(std::vector<graphics::Rect> covered);

  /// Draws all names and icons anew, for example because a font was loaded.
  void redrawTexts();

  LoadedVenue& venue() { return venue_; }
  MapView& view() { return *mapView_; }
  MapCamera& camera() { return mapView_->camera(); }
  MapStyle& style() { return *style_; }
  MapInput& input() { return input_; }
  MapFloors& floors() { return floors_; }
  MapRoute& route() { return route_; }
  MapMarkers& markers() { return markers_; }

  // MapViewDelegate
  void mapViewDidLoad() override;
  void polygonSelected(const std::shared_ptr<Polygon>& /*polygon*/) override {}
  void nothingSelected() override {}

 private:
  MapHost(int number, LoadedVenue& venue, std::unique_ptr<render::CanvasSurface> surface);
  void resize(const CanvasSize& canvas);
  void showFirstView();
  void floorChanged();
  void tapped(const MapTap& tap);
  void reportChanges();

  const int number_;
  LoadedVenue& venue_;
  const MapEvents events_;
  const std::unique_ptr<render::CanvasSurface> surface_;
  std::unique_ptr<render::Renderer> renderer_;  // null while the context is lost
  const std::shared_ptr<MapView> mapView_;
  const std::shared_ptr<PageDownloader> downloader_;
  const std::shared_ptr<MapStyle> style_;
  MapInput input_;
  MapFloors floors_;
  MapRoute route_;
  MapMarkers markers_;
  MapLook look_;
  CanvasSize canvas_;
  std::function<void()> then_;  // called when the canvas is shown; may be empty
  bool isChanged_ = true;       // by something that the map view does not count
  bool hasFirstView_ = false;
  bool isReady_ = false;  // as it was reported
  CameraPose pose_;       // as it was reported
};

}  // namespace orivanta::web
