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
class PictureBudget;

/// The kinds of motion of the camera, for applications: no handler asks for it.
enum class MotionType {
  Zooming = 0,   ///< closer or away
  Panning = 1,   ///< to a side
  Rotating = 2,  ///< around the middle
  Multi = 3      ///< several of these at once
};

/// The motion with a raw value; nothing for any other number.
ORIVANTA_API std::optional<MotionType> makeMotionType(int rawValue);

/// Make one, set `venue`, call `loadScene` and wait for the delegate's `mapViewDidLoad`; from then
/// on everything else may be called. Held by handle. Main thread, but for `willRenderScene`.
///
/// Floors lie in the x-y plane of the scene, z is up, in the venue's units; view positions are
/// points from the upper left corner, overlay positions points from the lower left one. What only
/// makes sense after the scene was started is a fatal error before that.
class ORIVANTA_API MapView : public view::View, public view::SceneRendererDelegate {
 public:
  /// A map view without a venue. `frame`: points.
  static std::shared_ptr<MapView> make(graphics::Rect frame = {});
  MapView();                                   ///< with an empty frame
  explicit MapView(graphics::Rect frame);      ///< points
  explicit MapView(const view::Coder& coder);  ///< see `view::View`
  ~MapView() override;

  const foundation::ResourceBundle& bundle;  ///< the library's own

  // What an application sets.
  std::weak_ptr<MapViewDelegate> delegate;  ///< may be empty

  /// Called after a tap, and after the delegate: with the first location of the polygon that was
  /// hit, or with null if the tap hit no polygon or one without a location. Main thread.
  std::function<void(const std::shared_ptr<Location>& place)> placeTapped;
  std::shared_ptr<Venue> venue;                            ///< set it before `loadScene`
  graphics::Color pathColor{0.122F, 0.302F, 0.655F};       ///< of drawn routes
  graphics::Color pathArrowColor{0.984F, 0.675F, 0.094F};  ///< for applications: nothing reads it
  double fov = 40.0;                                       ///< field of view in degrees
  bool allowsSimultaneousGestures = false;                 ///< lets pinch and rotation run together
  std::shared_ptr<AssetLoader> assetLoader;                ///< never null
  std::shared_ptr<HttpDownloader> downloader;              ///< never null
  std::shared_ptr<scene::Node> ground;  ///< the application's own; null until set

  // The parts of the view; the nodes are null until the scene is started.
  std::shared_ptr<view::SceneView> sceneView;     ///< shows the scene; never null
  std::shared_ptr<MapViewOverlay2D> spriteScene;  ///< holds the markers; never null
  std::shared_ptr<scene::Node> cameraOrbit;  ///< in the middle of the floor; the camera's parent
  std::shared_ptr<scene::Node> labelsOrbit;  ///< follows `cameraOrbit`
  std::shared_ptr<scene::Node> light;        ///< the ambient light's
  std::shared_ptr<scene::Node> arrow;        ///< the application's own; null until set
  std::optional<float> cameraDistance;       ///< from the orbit's center when the scene started
  /// Turns while a load is under way.
  const std::shared_ptr<view::ActivityIndicatorView> activityIndicator;

  /// `spriteScene`.
  MapViewOverlay2D& overlay() const;

  /// Puts the parts together: scene view, logo, overlay and activity indicator. Construction does
  /// it; nobody else needs to.
  void initView();

  /// Makes a new overlay of the view's present size and shows the markers in it. The overlay keeps
  /// the size that it was made with, so markers become distorted when the view gets another one;
  /// call this then.
  void renewOverlay();

  /// Adds the logo, 70 by 30 points, at the lower right corner; part of `initView`.
  void addMapLogo();

  // --- Floors -----------------------------------------------------------------------------------

  /// Fetches and reads the models of all floors, one after the other, on the calling thread; then,
  /// once the scene view has prepared them, starts the scene and tells the delegate, from the main
  /// queue. A floor without model is left out. Pictures that are too large together are made
  /// smaller, as in `loadFloors`. A URL that is none, a model that cannot be fetched or read, and a
  /// missing venue are fatal errors.
  void loadScene();

  /// The same for applications: fetches, reads and prepares the floors side by side in the
  /// background, beginning with `first` (the venue's first floor when null or of another venue).
  /// The scene starts anew, and the delegate is told, as soon as that floor is ready; when it fails
  /// or has no model, as soon as any other is: of several the first in the venue's order. Floors
  /// that arrive later can be switched to from then on. When no floor can be shown the delegate is
  /// not told, and the activity indicator stops; it turns again from the next call on.
  ///
  /// Nothing is fatal but a missing venue: what goes wrong is told for each floor. An answer of a
  /// status that is no success counts as none, and a URL of a local file is refused. Files are kept
  /// below the caches directory, for each server apart, and the server is asked each time whether
  /// they have changed; see `HttpDownloader::fetchFile`. A model that cannot be read is taken out
  /// of the caches directory, so that another call fetches it anew. A load under way in this view
  /// is canceled first, and so is this one when the view goes or gets another venue.
  ///
  /// The pictures of all floors together take at most 336 MB of memory, and as textures 4/3 of that
  /// again. Larger ones are made smaller while they are read, as `FloorProgress::remark` tells. The
  /// limit applies to each load on its own: a host that keeps the nodes of an earlier venue keeps
  /// their pictures in memory, too.
  ///
  /// Up to four files are fetched at once, and each takes at most 192 MiB of memory until it is
  /// saved: a file of up to 96 MiB, or more if it comes compressed. A larger one counts as not
  /// fetched.
  std::shared_ptr<FloorLoad> loadFloors(FloorLoadHandlers handlers,
                                        const std::shared_ptr<Map>& first = nullptr);

  /// Builds the scene for the first floor of the venue: camera, lights, gestures. Without floors,
  /// or with a first one that has no model, it says so on the diagnostics and shows nothing.
  void startScene();

  /// Shows another floor, with the current route and highlight. An index out of range, the floor
  /// already shown and a floor without a model change nothing. When the first floor had no model,
  /// the first switch to one that has starts the scene there. Fatal before a scene was started.
  void changeMap(int index);

  /// As above, for a floor of the venue. Null is a fatal error.
  void changeMap(const std::shared_ptr<Map>& map);

  const std::shared_ptr<Map>& currentMap() const;  ///< null before the first

  // --- Camera -----------------------------------------------------------------------------------

  /// Moves the camera. It is ready once the scene is started.
  MapCamera& camera() const;

  /// Whether something moves though nothing is changed: the arrows of a route, the activity
  /// indicator, or a gliding camera. See `View::needsFrame`, too.
  bool isAnimating() const override;

  // --- Gestures ---------------------------------------------------------------------------------

  /// Moves the map under one finger, one scene unit for each point. Like the following, the action
  /// of a recognizer that `startScene` adds to the scene view.
  void handleOneFingerPanGesture(const view::PanGestureRecognizer& recognizer);

  /// Tilts the camera with two fingers, from straight down to below 60 degrees.
  void handleTwoFingerPanGesture(const view::PanGestureRecognizer& recognizer);

  /// Moves the camera closer or away with a pinch.
  void handlePinchGesture(const view::PinchGestureRecognizer& recognizer);

  /// Turns the map with two fingers.
  void handleRotationGesture(const view::RotationGestureRecognizer& recognizer);

  /// Tells the delegate what lies under the tap. Hides all markers when it is a polygon.
  void sceneTapped(const view::TapGestureRecognizer& recognizer);

  // The state of the gestures; it stays from floor to floor.
  float lastWidthRatio = 0.0F;       ///< not used by any handler
  float lastHeightRatio = 0.0F;      ///< of the tilt when the gesture began
  float lastGoodHeightRatio = 0.0F;  ///< of the tilt that was last accepted
  double lastX = 0.0;                ///< translation of the pan already applied, in points
  double lastY = 0.0;                ///< translation of the pan already applied, in points
  double scaleStart = 1.0;           ///< zoom now, of the distance when the scene started
  double scaleEnd = 1.0;             ///< zoom when the last pinch ended
  double rotateStart = 0.0;          ///< turn now, radians
  double rotateEnd = 0.0;            ///< turn when the last rotation ended

  // --- Highlights and positions -----------------------------------------------------------------

  /// Colors a polygon's shape on its floor. One without a shape is passed over. Highlighting a
  /// polygon again makes the first highlight what `clearHighlightedPolygons` goes back to.
  void highlightPolygon(const std::shared_ptr<Polygon>& polygon,
                        graphics::Color color = graphics::colors::red);

  /// Gives all highlighted polygons their own colors again.
  void clearHighlightedPolygons();

  /// The middle of the box of the vertices that the geometry's first element refers to. A geometry
  /// without element or vertices, or an index beyond them, is a fatal error.
  static graphics::Vector3 getGeomeryMidPoint(const scene::Geometry& geometry);

  /// Where a location is on the floor now shown: the middle of the first shape there whose
  /// material bears the location's name, else that of the location's first polygon with a shape on
  /// the floor, else its first node on the floor, else the center of the floor.
  graphics::Vector3 findPosition3D(const Location& location) const;

  /// Where a scene point shows in the scene view.
  graphics::Point findPositionCameraViewport(graphics::Vector3 position) const;

  /// Where a scene point shows in the overlay.
  graphics::Point findPosition2D(graphics::Vector3 position) const;

  /// Where a location shows in the overlay.
  graphics::Point findPosition2DByLocation(const Location& location) const;

  /// Where a location shows in the view.
  graphics::Point findViewportPosition(const Location& location) const;

  // --- Markers ----------------------------------------------------------------------------------

  /// Shown and hidden ones, in the order of their adding. Any thread.
  std::vector<std::shared_ptr<MapViewMarker>> markers() const;

  /// Shows a marker from now on, on every floor. Null, or one without a sprite, is a fatal error.
  void addMarker(const std::shared_ptr<MapViewMarker2D>& marker);

  /// Takes a marker away; null and unknown ones are passed over.
  void removeMarker(const std::shared_ptr<MapViewMarker2D>& marker);

  /// Puts the markers where their positions show. Any thread.
  void updateMarkerPositions();

  /// Hides the markers that are in another's way, and shows the others: of two that collide the one
  /// added earlier gives way, if it may, else the later one. Done after each gesture; call it after
  /// moving the camera otherwise.
  void updateMarkerVisibility();

  /// Does `updateMarkerPositions` and nothing else. Called before each frame on the thread that
  /// draws.
  void willRenderScene(view::SceneView& view, const std::shared_ptr<scene::Scene>& scene,
                       double time) override;

  // --- Routes -----------------------------------------------------------------------------------

  std::optional<NodeList> currentPath;         ///< the route now shown
  int currentPathNode = 0;                     ///< index into it at which drawing begins
  std::shared_ptr<Node> currentHighlightNode;  ///< null before the first highlight

  /// Draws the segments of a route from its node `from` on that lie on the floor now shown, over
  /// what was drawn before. Fewer than two nodes change nothing. A negative `from` is a fatal
  /// error.
  void drawPath(const NodeList& path, int from = 0);

  /// Draws the current route and highlight anew.
  void drawCurrentPath();

  /// Takes every drawn route from the scene, in all map views, and forgets this view's.
  void clearPaths(bool forgetPath = true);

  /// Draws one segment, at the height of B: a white ribbon, a colored one, and one with arrows from
  /// A to B.
  void drawPathSegment(graphics::Vector3 positionA, graphics::Vector3 positionB);

  /// Draws one ribbon of a segment. `pathWidth` and `elevation`: scene units.
  void drawPathSegmentStrip(graphics::Vector3 positionA, graphics::Vector3 positionB,
                            float pathWidth, graphics::Color color, float elevation);

  /// Draws the arrows of a segment. `pathWidth` and `elevation`: scene units.
  void drawPathSegmentArrow(graphics::Vector3 positionA, graphics::Vector3 positionB,
                            float pathWidth, float elevation);

  /// Puts a disc over a node, in place of the one before; on another floor it is kept in mind until
  /// that floor is shown. An index out of range is a fatal error.
  void highlightNode(const std::shared_ptr<Node>& node);

  /// The same for a node of a list.
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
  void selectPolygonAt(graphics::Point point);
  void tellPlaceTapped(const std::shared_ptr<Location>& place);
  void resetPinch();

  std::unique_ptr<Parts> parts_;
};

/// Pins a view to the four edges of another that it is a child of.
ORIVANTA_API void boundInside(view::View& subview, view::View& superview);

}  // namespace orivanta
