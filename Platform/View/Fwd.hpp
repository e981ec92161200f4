// Forward declarations of the view classes.
// Public header.
#pragma once

namespace orivanta::view {

class ActivityIndicatorView;
class Canvas;
class Coder;
class ContinuousGestureRecognizer;
class GestureRecognizer;
class ImageView;
class PanGestureRecognizer;
class PinchGestureRecognizer;
class RotationGestureRecognizer;
class SceneView;
class TapGestureRecognizer;
class TouchDispatcher;
class View;
struct LayoutConstraint;
struct Touch;

}  // namespace orivanta::view
