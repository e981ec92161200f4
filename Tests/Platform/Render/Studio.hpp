// A surface, a renderer and a scene view, ready to draw.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <ostream>

#include "Platform/Render/Offscreen/OffscreenSurface.hpp"
#include "Platform/Render/Renderer.hpp"
#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Light.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Shapes.hpp"
#include "Platform/View/SceneView.hpp"

namespace orivanta::test {

using Pixel = std::array<int, 4>;

inline Pixel pixelOf(const graphics::Image& image, std::uint32_t x, std::uint32_t y) {
  const auto* bytes = &image.pixels()[4 * (std::size_t{y} * image.width() + x)];
  return {bytes[0], bytes[1], bytes[2], bytes[3]};
}

inline testing::AssertionResult isNear(const Pixel& actual, const Pixel& expected,
                                       int tolerance = 1) {
  for (std::size_t i = 0; i < actual.size(); ++i)
    if (std::abs(actual[i] - expected[i]) > tolerance)
      return testing::AssertionFailure() << testing::PrintToString(actual) << " instead of "
                                         << testing::PrintToString(expected);
  return testing::AssertionSuccess();
}

/// Frames of `width` by `height` points and pixels. The scene, empty at first, is seen from 100
/// units above its origin, with 1 unit per pixel at height 0 and y pointing up.
class Studio {
 public:
  Studio(std::uint32_t width, std::uint32_t height)
      : surface(render::OffscreenSurface::make(width, height).value()),
        view(
            std::make_shared<view::SceneView>(graphics::Rect{{0, 0}, {1.0 * width, 1.0 * height}})),
        scene(scene::Scene::make()),
        eye(scene::Node::make()) {
    auto camera = std::make_shared<scene::Camera>();
    camera->xFov = camera->yFov =
        2 * std::atan(std::min(width, height) / 2.0 / 100.0) * 180 / 3.14159265358979;
    camera->zFar = 1000;
    eye->setCamera(camera);
    eye->setPosition({0, 0, 100});
    scene->rootNode()->addChild(eye);
    view->setScene(scene);
  }

  ~Studio() { surface->makeCurrent(); }  // for the renderer's destructor
  Studio(const Studio&) = delete;
  Studio& operator=(const Studio&) = delete;

  std::shared_ptr<const graphics::Image> draw(double time = 0) { return draw(*view, time); }

  std::shared_ptr<const graphics::Image> draw(view::View& root, double time = 0, double scale = 1) {
    renderer.render(root, root.bounds().size, scale, time, surface->framebuffer());
    return surface->read();
  }

  std::shared_ptr<scene::Node> add(std::shared_ptr<scene::Geometry> geometry,
                                   std::shared_ptr<scene::Material> material,
                                   graphics::Vector3 position = {0, 0, 0}) {
    geometry->setMaterials({std::move(material)});
    auto node = scene::Node::make(std::move(geometry));
    node->setPosition(position);
    scene->rootNode()->addChild(node);
    return node;
  }

  /// The light shines down, rotated by the angles.
  std::shared_ptr<scene::Node> addLight(scene::LightType type, graphics::Color color,
                                        graphics::Vector3 angles = {0, 0, 0},
                                        bool castsShadow = false) {
    auto light = std::make_shared<scene::Light>();
    light->type = type;
    light->color = color;
    light->castsShadow = castsShadow;
    auto node = scene::Node::make();
    node->setLight(light);
    node->setEulerAngles(angles);
    scene->rootNode()->addChild(node);
    return node;
  }

  const render::FrameStatistics& statistics() const { return renderer.statistics(); }

  std::unique_ptr<render::OffscreenSurface> surface;
  render::Renderer renderer;
  std::shared_ptr<view::SceneView> view;
  std::shared_ptr<scene::Scene> scene;
  std::shared_ptr<scene::Node> eye;
};

/// A slab centered at the origin of its node.
inline std::shared_ptr<scene::Geometry> makeSlab(double width, double height, double depth = 1) {
  const std::array<graphics::Point, 4> outline{{{-width / 2, -height / 2},
                                                {width / 2, -height / 2},
                                                {width / 2, height / 2},
                                                {-width / 2, height / 2}}};
  return scene::makeExtrusion(outline, depth);
}

/// Two by two pixels: red and green above, blue and white below.
inline std::shared_ptr<const graphics::Image> makeQuarters(std::uint8_t alpha = 255) {
  return graphics::Image::make(
      2, 2, {255, 0, 0, alpha, 0, 255, 0, alpha, 0, 0, 255, alpha, 255, 255, 255, alpha});
}

}  // namespace orivanta::test
