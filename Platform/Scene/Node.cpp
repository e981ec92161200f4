#include "Platform/Scene/Node.hpp"

#include <algorithm>
#include <array>
#include <deque>
#include <iterator>
#include <limits>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Guarded.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Rigid.hpp"
#include "Platform/Scene/Walk.hpp"

namespace orivanta::scene {

using graphics::Matrix4;
using graphics::read;
using graphics::swapGuarded;
using graphics::Transaction;
using graphics::Vector3;

namespace {

using Nodes = std::vector<std::shared_ptr<Node>>;

/// Releases nodes iteratively: nodes that become unowned join the queue of the outermost call, so a
/// long chain of parents and children needs no more stack than a single node.
void release(Nodes nodes) {
  thread_local Nodes* outermost = nullptr;
  if (nodes.empty()) return;
  if (outermost) {
    outermost->insert(outermost->end(), std::make_move_iterator(nodes.begin()),
                      std::make_move_iterator(nodes.end()));
    return;
  }
  outermost = &nodes;
  while (!nodes.empty()) {
    const auto node = std::move(nodes.back());
    nodes.pop_back();
  }
  outermost = nullptr;
}

float& component(Vector3& vector, Axis axis) {
  return vector[static_cast<Vector3::length_type>(axis)];
}

void addCorners(graphics::Box& sum, const graphics::Box& box, const Matrix4& transform) {
  if (box.isEmpty()) return;
  const std::array<Vector3, 2> ends{box.min, box.max};
  for (const Vector3& x : ends)
    for (const Vector3& y : ends)
      for (const Vector3& z : ends) sum.add(transformPoint(transform, {x.x, y.y, z.z}));
}

}  // namespace

std::shared_ptr<Node> Node::make(std::shared_ptr<Geometry> geometry) {
  return std::shared_ptr<Node>(new Node(std::move(geometry)));
}

Node::Node(std::shared_ptr<Geometry> geometry) : geometry_(std::move(geometry)) {}

Node::~Node() {
  Nodes children;
  {
    const Transaction transaction;
    children.swap(children_);
    for (const auto& child : children) child->parent_ = nullptr;
  }
  release(std::move(children));
}

std::optional<std::string> Node::name() const { return read(name_); }
void Node::setName(std::optional<std::string> name) { swapGuarded(name_, name); }

Vector3 Node::position() const { return read(position_); }
void Node::setPosition(Vector3 position) { swapGuarded(position_, position); }
void Node::setPosition(Axis axis, float value) { swapGuarded(component(position_, axis), value); }

Vector3 Node::eulerAngles() const { return read(eulerAngles_); }
void Node::setEulerAngles(Vector3 angles) { swapGuarded(eulerAngles_, angles); }
void Node::setEulerAngle(Axis axis, float angle) {
  swapGuarded(component(eulerAngles_, axis), angle);
}

std::shared_ptr<Geometry> Node::geometry() const { return read(geometry_); }
void Node::setGeometry(std::shared_ptr<Geometry> geometry) { swapGuarded(geometry_, geometry); }
std::shared_ptr<Camera> Node::camera() const { return read(camera_); }
void Node::setCamera(std::shared_ptr<Camera> camera) { swapGuarded(camera_, camera); }
std::shared_ptr<Light> Node::light() const { return read(light_); }
void Node::setLight(std::shared_ptr<Light> light) { swapGuarded(light_, light); }

bool Node::castsShadow() const { return read(castsShadow_); }
void Node::setCastsShadow(bool castsShadow) { swapGuarded(castsShadow_, castsShadow); }
bool Node::isHidden() const { return read(hidden_); }
void Node::setHidden(bool hidden) { swapGuarded(hidden_, hidden); }

std::optional<graphics::Color> Node::displayColor() const { return read(displayColor_); }
void Node::setDisplayColor(std::optional<graphics::Color> color) {
  swapGuarded(displayColor_, color);
}

float Node::opacity() const { return read(opacity_); }
void Node::setOpacity(float opacity) {
  opacity = std::clamp(opacity, 0.0F, 1.0F);
  swapGuarded(opacity_, opacity);
}

std::shared_ptr<const Ribbons> Node::ribbons() const { return read(ribbons_); }
RibbonLook Node::ribbonLook() const { return read(ribbonLook_); }
void Node::setRibbons(std::shared_ptr<const Ribbons> ribbons, RibbonLook look) {
  const Transaction transaction;
  swapGuarded(ribbons_, ribbons);
  swapGuarded(ribbonLook_, look);
}

std::vector<std::shared_ptr<ParticleSystem>> Node::particleSystems() const {
  return read(particleSystems_);
}

void Node::addParticleSystem(std::shared_ptr<ParticleSystem> system) {
  const Transaction transaction;
  particleSystems_.push_back(std::move(system));
  graphics::noteChange();
}

std::shared_ptr<const Batch> Node::preparedBatch() const { return read(preparedBatch_); }
void Node::setPreparedBatch(std::shared_ptr<const Batch> batch) {
  swapGuarded(preparedBatch_, batch);
}

Nodes Node::children() const { return read(children_); }

std::shared_ptr<Node> Node::parent() const {
  const Transaction transaction;
  return parent_ ? parent_->weak_from_this().lock() : nullptr;
}

void Node::addChild(std::shared_ptr<Node> child) {
  insertChild(std::move(child), std::numeric_limits<std::size_t>::max());
}

void Node::insertChild(std::shared_ptr<Node> child, std::size_t index) {
  const Transaction transaction;
  if (!child) foundation::fatalError("a null node cannot be a child");
  if (child.get() == this || child->isAbove(*this))
    foundation::fatalError("a node cannot be a child of itself");
  if (child->parent_) child->parent_->detach(*child);
  const auto place = static_cast<std::ptrdiff_t>(std::min(index, children_.size()));
  child->parent_ = this;
  children_.insert(children_.begin() + place, std::move(child));
  graphics::noteChange();
}

void Node::removeFromParent() {
  const auto self = weak_from_this().lock();  // outlives the transaction
  const Transaction transaction;
  if (parent_) parent_->detach(*this);
}

bool Node::isAbove(const Node& node) const {
  if (children_.empty()) return false;  // avoids walking up deep trees
  const Node* above = node.parent_;
  while (above && above != this) above = above->parent_;
  return above != nullptr;
}

void Node::detach(Node& child) {
  const auto place = std::find_if(children_.begin(), children_.end(),
                                  [&](const auto& each) { return each.get() == &child; });
  children_.erase(place);
  child.parent_ = nullptr;
  graphics::noteChange();
}

std::shared_ptr<Node> Node::childNode(std::string_view name) const {
  const Transaction transaction;
  std::deque<const Node*> level{this};
  for (; !level.empty(); level.pop_front())
    for (const auto& child : level.front()->children_) {
      if (child->name_ == name) return child;
      level.push_back(child.get());
    }
  return nullptr;
}

Nodes Node::childNodes(const std::function<bool(const Node&)>& passes) const {
  Nodes found;
  walk(*this, Matrix4(1.0F), [&](const Node& node, const Matrix4&) {
    if (&node != this && passes(node))
      found.push_back(std::const_pointer_cast<Node>(node.shared_from_this()));
    return true;
  });
  return found;
}

Matrix4 Node::transform() const {
  const Transaction transaction;
  return rigidTransform(position_, eulerAngles_);
}

Matrix4 Node::worldTransform() const {
  const Transaction transaction;
  Matrix4 result = transform();
  for (const Node* above = parent_; above; above = above->parent_)
    result = above->transform() * result;
  return result;
}

graphics::Box Node::boundingBox() const {
  graphics::Box box;
  walk(*this, Matrix4(1.0F), [&](const Node& node, const Matrix4& transform) {
    if (node.geometry_) addCorners(box, node.geometry_->boundingBox(), transform);
    return true;
  });
  return box;
}

}  // namespace orivanta::scene
