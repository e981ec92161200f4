#include "Platform/Sprite/Scene.hpp"

#include "Platform/Graphics/Guarded.hpp"
#include "Platform/Graphics/Transaction.hpp"

namespace orivanta::sprite {

using graphics::Point;
using graphics::Rect;
using graphics::Size;

namespace {

struct Foremost {
  std::shared_ptr<Node> node;
  double zPosition = 0.0;
};

// Searches from back to front, so that the last node wins if several have the same z position.
// `point` is in the coordinates of `parent`.
void search(const Node& parent, Point point, double zPosition, Foremost& foremost) {
  for (const auto& child : parent.children()) {
    if (child->isHidden()) continue;
    const double z = zPosition + child->zPosition();
    if (child->frame().contains(point) && (!foremost.node || z >= foremost.zPosition))
      foremost = {child, z};
    const Point origin = child->position();
    search(*child, {point.x - origin.x, point.y - origin.y}, z, foremost);
  }
}

}  // namespace

std::shared_ptr<Scene> Scene::make(Size size) { return std::shared_ptr<Scene>(new Scene(size)); }

Scene::Scene(Size size) : size_(size) {}

Size Scene::size() const { return graphics::read(size_); }

void Scene::setSize(Size size) { graphics::swapGuarded(size_, size); }

Rect Scene::localFrame() const { return {{}, size()}; }

std::shared_ptr<Node> Scene::nodeAt(Point point) {
  const graphics::Transaction transaction;
  Foremost foremost;
  search(*this, point, 0.0, foremost);
  return foremost.node ? foremost.node : shared_from_this();
}

Point Scene::convertToView(Point point, Size view) const {
  return {point.x / size_.width * view.width, (1.0 - point.y / size_.height) * view.height};
}

Point Scene::convertFromView(Point point, Size view) const {
  return {point.x / view.width * size_.width, (1.0 - point.y / view.height) * size_.height};
}

void Scene::touchesBegan(std::span<const Point> /*touches*/) {}

void Scene::update(double /*currentTime*/) {}

}  // namespace orivanta::sprite
