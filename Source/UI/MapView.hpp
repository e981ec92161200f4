// The view that shows one floor of a venue in 3D, with gestures, markers and routes.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/View/ActivityIndicatorView.hpp"
#include "Platform/View/PanGestureRecognizer.hpp"
#include "Platform/View/PinchGestureRecognizer.hpp"
#include "Platform/View/RotationGestureRecognizer.hpp"
#include "Platform/View/SceneView.hpp"
#include "Platform/View/TapGestureRecognizer.hpp"
#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"
#include "Source/UI/AssetLoader.hpp"
#include "Source/UI/FloorLoad.hpp"
#include "Source/UI/MapDownloader.hpp"
#include "Source/UI/MapViewDelegate.hpp"
#include "Source/UI/MapViewMarker2D.hpp"
#include "Source/UI/MapViewOverlay2D.hpp"

namespace orivanta {

class MapCamera;
class MapStyle;
class PictureBudget;
class StyledMap;

/// The kinds of camera motion. For applications; the SDK does not use it.
enum class MotionType {
  Zooming = 0,   ///< toward or away from the center
  Panning = 1,   ///< parallel to the ground
  Rotating = 2,  ///< around the center
  Multi = 3      ///< several of these concurrently
};

/// Returns the motion with a raw value, or nothing if there is none.
ORIVANTA_API std::optional<MotionType> makeMotionType(int rawValue);

/// Create a map view, set `venue`, call `loadScene` and wait for the delegate's `mapViewDidLoad`.
/// All other functions may be called from then on. Map views are held by shared pointers. All
/// functions must be called on the main thread unless their documentation states otherwise.
///
/// Floors lie in the x-y plane of the scene, and z points up. Scene positions are in the venue's
/// units. View positions are points from the upper left corner; overlay positions are points from
/// the lower left corner. Calling a function that requires a scene before the scene is started is a
/// fatal error.
class ORIVANTA_API MapView : public view::View, public view::SceneRendererDelegate {
 public:
  /// Creates a map view without a venue. `frame` is in points.
  static std::shared_ptr<MapView> make(graphics::Rect frame = {});
  MapView();                                   ///< with an empty frame
  explicit MapView(graphics::Rect frame);      ///< points
  explicit MapView(const view::Coder& coder);  ///< see `view::View`
  ~MapView() override;

  const foundation::ResourceBundle& bundle;  ///< the resources of the library

  // Set by the application.
  std::weak_ptr<MapViewDelegate> delegate;  ///< may be empty

  /// Called after a tap, after the delegate, with the first location of the polygon that was hit.
  /// The argument is null if the tap hit no polygon, or a polygon without a location. Main thread.
  std::function<void(const std::shared_ptr<Location>& place)> placeTapped;
  std::shared_ptr<Venue> venue;                            ///< must be set before `loadScene`
  graphics::Color pathColor{0.122F, 0.302F, 0.655F};       ///< color of drawn routes
  graphics::Color pathArrowColor{0.984F, 0.675F, 0.094F};  ///< for applications; unused
  double fov = 40.0;                                       ///< field of view in degrees
  bool allowsSimultaneousGestures = false;     ///< allows pinch and rotation concurrently
  std::shared_ptr<AssetLoader> assetLoader;    ///< never null
  std::shared_ptr<HttpDownloader> downloader;  ///< never null
  std::shared_ptr<scene::Node> ground;         ///< for applications; null until set

  // The parts of the view. The nodes are null until the scene is started.
  std::shared_ptr<view::SceneView> sceneView;     ///< shows the scene; never null
  std::shared_ptr<MapViewOverlay2D> spriteScene;  ///< holds the markers; never null
  std::shared_ptr<scene::Node> cameraOrbit;  ///< at the center of the floor; the camera's parent
  std::shared_ptr<scene::Node> labelsOrbit;  ///< follows `cameraOrbit`
  std::shared_ptr<scene::Node> light;        ///< the node of the ambient light
  std::shared_ptr<scene::Node> arrow;        ///< for applications; null until set
  std::optional<float> cameraDistance;       ///< from the orbit's center, at scene start
  /// Animates while a load is running.
  const std::shared_ptr<view::ActivityIndicatorView> activityIndicator;

  /// Returns `spriteScene`.
  MapViewOverlay2D& overlay() const;

  /// Assembles the scene view, logo, overlay and activity indicator. The constructors call this
  /// function; applications do not need to.
  void initView();

  /// Creates a new overlay with the current size of the view and moves the markers to it. Call this
  /// after the view was resized: an overlay keeps its initial size, so markers would be distorted.
  void renewOverlay();

  /// Adds the logo, 70 by 30 points, at the lower right corner. Called by `initView`.
  void addMapLogo();

  // --- Floors -----------------------------------------------------------------------------------

  /// Fetches and reads the models of all floors, one after the other, on the calling thread. When
  /// the scene view has prepared them, starts the scene and notifies the delegate on the main
  /// queue. Skips floors without a model. Reduces pictures that are too large together, as
  /// `loadFloors` does. An invalid URL, a model that cannot be fetched or read, and a missing venue
  /// are fatal errors.
  void loadScene();

  /// Fetches, reads and prepares the floors concurrently in the background, starting with `first`,
  /// or with the venue's first floor if `first` is null or belongs to another venue. Applications
  /// should use this instead of `loadScene`. As soon as that floor is ready, restarts the scene
  /// with it and notifies the delegate. If that floor fails or has no model, uses the first other
  /// floor that is ready; of several, the first in the venue's order. Later floors can be shown
  /// with `changeMap` as they become ready. If no floor can be shown, the delegate is not notified
  /// and the activity indicator stops until the next call.
  ///
  /// Only a missing venue is a fatal error. Other errors are reported for each floor. A response
  /// without a success status is an error, and URLs of local files are rejected. Files are stored
  /// below the caches directory, separately for each server. Each load asks the server whether they
  /// have changed; see `HttpDownloader::fetchFile`. A model that cannot be read is removed from the
  /// caches directory, so that the next call fetches it again. The call first cancels a running
  /// load of this view. The load is canceled if the view is destroyed or gets another venue.
  ///
  /// The pictures of all floors together use at most 336 MB of memory, and their textures another
  /// 4/3 of that. Larger pictures are reduced while they are read; `FloorProgress::remark` reports
  /// this. The limit applies to each load separately: if a host keeps the nodes of an earlier
  /// venue, their pictures stay in memory, too.
  ///
  /// Up to four files are fetched concurrently. Each uses at most 192 MiB of memory until it is
  /// saved, which is enough for a file of 96 MiB, or more if the response is compressed. Fetching a
  /// larger file fails.
  std::shared_ptr<FloorLoad> loadFloors(FloorLoadHandlers handlers,
                                        const std::shared_ptr<Map>& first = nullptr);

  /// Builds the scene for the first floor of the venue: camera, lights, gestures. If there are no
  /// floors, or the first one has no model, prints a diagnostic line and shows nothing.
  void startScene();

  /// Shows another floor, with the current route and highlight. Does nothing if the index is out of
  /// range, the floor is already shown, or it has no model. If the venue's first floor had no
  /// model, the first change to a floor with a model starts the scene there. Calling this before a
  /// scene was started is a fatal error.
  void changeMap(int index);

  /// Same as above, for a floor of the venue. Null is a fatal error.
  void changeMap(const std::shared_ptr<Map>& map);

  const std::shared_ptr<Map>& currentMap() const;  ///< null until a floor is shown

  // --- Style ------------------------------------------------------------------------------------

  /// Draws all floors in a style. Null, the default, switches to the plain look, in which floors
  /// have the colors of their materials. A style that belongs to another map view is removed from
  /// it.
  void setStyle(std::shared_ptr<MapStyle> style);

  /// Returns the style, or null.
  const std::shared_ptr<MapStyle>& style() const;

  // --- Camera -----------------------------------------------------------------------------------

  /// Returns the object that moves the camera. It is ready when the scene is started.
  MapCamera& camera() const;

  /// Returns whether an animation is running: the arrows of a route, the activity indicator, or a
  /// gliding camera. See also `View::needsFrame`.
  bool isAnimating() const override;

  // --- Gestures ---------------------------------------------------------------------------------

  /// Moves the map with one finger, one scene unit per point. This function and the following ones
  /// are the actions of recognizers that `startScene` adds to the scene view.
  void handleOneFingerPanGesture(const view::PanGestureRecognizer& recognizer);

  /// Tilts the camera with two fingers, from 0 (straight down) to less than 60 degrees.
  void handleTwoFingerPanGesture(const view::PanGestureRecognizer& recognizer);

  /// Zooms with a pinch.
  void handlePinchGesture(const view::PinchGestureRecognizer& recognizer);

  /// Turns the map with two fingers.
  void handleRotationGesture(const view::RotationGestureRecognizer& recognizer);

  /// Notifies the delegate of what was tapped. Hides all markers if a polygon was tapped.
  void sceneTapped(const view::TapGestureRecognizer& recognizer);

  // The state of the gestures. A floor change does not reset it.
  float lastWidthRatio = 0.0F;       ///< not used by any handler
  float lastHeightRatio = 0.0F;      ///< tilt at the start of the gesture
  float lastGoodHeightRatio = 0.0F;  ///< last accepted tilt
  double lastX = 0.0;                ///< translation of the pan already applied, in points
  double lastY = 0.0;                ///< translation of the pan already applied, in points
  double scaleStart = 1.0;           ///< current zoom, relative to the scene's start
  double scaleEnd = 1.0;             ///< zoom when the last pinch ended
  double rotateStart = 0.0;          ///< current turn, radians
  double rotateEnd = 0.0;            ///< turn when the last rotation ended

  // --- Highlights and positions -----------------------------------------------------------------

  /// Colors a polygon's shape on its floor. Does nothing if the polygon has no shape. If a polygon
  /// is highlighted twice, `clearHighlightedPolygons` restores the first highlight.
  void highlightPolygon(const std::shared_ptr<Polygon>& polygon,
                        graphics::Color color = graphics::colors::red);

  /// Restores the previous colors of all highlighted polygons.
  void clearHighlightedPolygons();

  /// Returns the center of the bounding box of the vertices that the geometry's first element uses.
  /// A geometry without elements or vertices and an index out of range are fatal errors.
  static graphics::Vector3 getGeomeryMidPoint(const scene::Geometry& geometry);

  /// Returns the position of a location on the current floor: the center of the first shape whose
  /// material has the location's name; otherwise the center of the location's first polygon with a
  /// shape on the floor; otherwise its first node on the floor; otherwise the center of the floor.
  graphics::Vector3 findPosition3D(const Location& location) const;

  /// Returns the position of a scene point in the scene view.
  graphics::Point findPositionCameraViewport(graphics::Vector3 position) const;

  /// Returns the position of a scene point in the overlay.
  graphics::Point findPosition2D(graphics::Vector3 position) const;

  /// Returns the position of a location in the overlay.
  graphics::Point findPosition2DByLocation(const Location& location) const;

  /// Returns the position of a location in the view.
  graphics::Point findViewportPosition(const Location& location) const;

  // --- Markers ----------------------------------------------------------------------------------

  /// Returns all markers, including hidden ones, in the order in which they were added. Any thread.
  std::vector<std::shared_ptr<MapViewMarker>> markers() const;

  /// Adds a marker, which is shown on every floor. Null and a marker without a sprite are fatal
  /// errors.
  void addMarker(const std::shared_ptr<MapViewMarker2D>& marker);

  /// Removes a marker. Does nothing if it is null or was not added.
  void removeMarker(const std::shared_ptr<MapViewMarker2D>& marker);

  /// Moves the sprites of the markers to the current view of their positions. Any thread.
  void updateMarkerPositions();

  /// Hides markers that collide with others, and shows the rest. Of two colliding markers, the one
  /// added earlier is hidden if its `hideWhenCollide` is set, otherwise the later one. Called after
  /// each gesture. Call it after moving the camera in any other way.
  void updateMarkerVisibility();

  /// Calls `updateMarkerPositions`. Called before each frame on the rendering thread.
  void willRenderScene(view::SceneView& view, const std::shared_ptr<scene::Scene>& scene,
                       double time) override;

  // --- Routes -----------------------------------------------------------------------------------

  std::optional<NodeList> currentPath;         ///< the route that is shown
  int currentPathNode = 0;                     ///< index of the first drawn node in it
  std::shared_ptr<Node> currentHighlightNode;  ///< null until a node is highlighted

  /// Draws the segments of a route that are on the current floor, starting at its node `from`.
  /// Does not remove what was drawn before. Does nothing if fewer than two nodes remain. A
  /// negative `from` is a fatal error.
  void drawPath(const NodeList& path, int from = 0);

  /// Redraws the current route and highlight.
  void drawCurrentPath();

  /// Removes all drawn routes from the scenes of all map views. Clears `currentPath` if
  /// `forgetPath` is set.
  void clearPaths(bool forgetPath = true);

  /// Draws one segment at the height of B: a white ribbon, a colored ribbon, and a ribbon with
  /// arrows from A to B.
  void drawPathSegment(graphics::Vector3 positionA, graphics::Vector3 positionB);

  /// Draws one ribbon of a segment. `pathWidth` and `elevation` are in scene units.
  void drawPathSegmentStrip(graphics::Vector3 positionA, graphics::Vector3 positionB,
                            float pathWidth, graphics::Color color, float elevation);

  /// Draws the arrows of a segment. `pathWidth` and `elevation` are in scene units.
  void drawPathSegmentArrow(graphics::Vector3 positionA, graphics::Vector3 positionB,
                            float pathWidth, float elevation);

  /// Highlights a node with a disc, which replaces the previous one. If the node is on another
  /// floor, the disc is shown when that floor is shown.
  void highlightNode(const std::shared_ptr<Node>& node);

  /// Same as above, for a node of a list. An index out of range is a fatal error.
  void highlightNode(const NodeList& nodes, std::size_t index);

  /// Removes the disc.
  void removeHighlightNode();

 protected:
  void didLayOut() override;

 private:
  struct Parts;

  void showActivity();
  void hideActivity();
  std::shared_ptr<scene::Node> loadFloor(Map& map, const std::shared_ptr<PictureBudget>& budget);
  void setModel(Map& map, const std::shared_ptr<scene::Node>& model);
  void showFirst(const std::shared_ptr<Map>& map);
  void startScene(const std::shared_ptr<Map>& map);
  StyledMap* styled() const;
  void selectPolygonAt(graphics::Point point);
  void tellPlaceTapped(const std::shared_ptr<Location>& place);
  void resetPinch();

  std::unique_ptr<Parts> parts_;
};

/// Pins a view to the four edges of its superview.
ORIVANTA_API void boundInside(view::View& subview, view::View& superview);

}  // namespace orivanta
