// Forward declarations of the view classes.
#pragma once

namespace orivanta::view {

class ActivityIndicatorView;
class Canvas;
class Coder;
class GestureRecognizer;
class ImageView;
class PanGestureRecognizer;
class PinchGestureRecognizer;
class RotationGestureRecognizer;
class SceneView;
class TapGestureRecognizer;
class View;
struct LayoutConstraint;
struct Touch;

}  // namespace orivanta::view
