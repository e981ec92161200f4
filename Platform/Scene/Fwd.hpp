// Forward declarations of the scene classes.
// Public header.
#pragma once

namespace orivanta::scene {

class Batch;
class Camera;
class Geometry;
class KeyframeAnimation;
class Light;
class Material;
class Node;
class Ribbons;
class Scene;

}  // namespace orivanta::scene
