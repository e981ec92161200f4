#include "Platform/Sprite/Node.hpp"

#include <algorithm>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/Screen.hpp"
#include "Platform/Graphics/Guarded.hpp"
#include "Platform/Graphics/Text.hpp"
#include "Platform/Graphics/Transaction.hpp"

namespace orivanta::sprite {

using graphics::Point;
using graphics::read;
using graphics::Rect;
using graphics::Size;
using graphics::swapGuarded;
using graphics::Transaction;

namespace {

using ImageHandle = std::shared_ptr<const graphics::Image>;

Rect centered(Size size) { return {{-size.width / 2, -size.height / 2}, size}; }

}  // namespace

std::shared_ptr<Node> Node::make() { return std::shared_ptr<Node>(new Node); }

Node::Node() = default;

Node::~Node() {
  const Transaction transaction;
  for (const auto& child : children_) child->parent_ = nullptr;
}

std::optional<std::string> Node::name() const { return read(name_); }

void Node::setName(std::optional<std::string> name) { swapGuarded(name_, name); }

Point Node::position() const { return read(position_); }

void Node::setPosition(Point position) { swapGuarded(position_, position); }

double Node::zPosition() const { return read(zPosition_); }

void Node::setZPosition(double zPosition) { swapGuarded(zPosition_, zPosition); }

double Node::alpha() const { return read(alpha_); }

void Node::setAlpha(double alpha) {
  const Transaction transaction;
  alpha_ = std::clamp(alpha, 0.0, 1.0);
  graphics::noteChange();
}

bool Node::isHidden() const { return read(hidden_); }

void Node::setHidden(bool hidden) { swapGuarded(hidden_, hidden); }

std::vector<std::shared_ptr<Node>> Node::children() const { return read(children_); }

// Returns null if the parent is being destroyed on another thread.
std::shared_ptr<Node> Node::parent() const {
  const Transaction transaction;
  return parent_ == nullptr ? nullptr : parent_->weak_from_this().lock();
}

bool Node::hasParent() const { return parent() != nullptr; }

void Node::addChild(const std::shared_ptr<Node>& child) {
  std::shared_ptr<Node> added = child;  // `child` may be in the list that it leaves
  if (!added) foundation::fatalError("a sprite node cannot hold a child that is null");
  const Transaction transaction;
  for (const Node* above = this; above != nullptr; above = above->parent_)
    if (above == added.get())
      foundation::fatalError("a sprite node cannot become a child of itself or of one below it");
  added->removeFromParent();
  added->parent_ = this;
  children_.push_back(std::move(added));
  graphics::noteChange();
}

void Node::removeFromParent() {
  const std::shared_ptr<Node> self =
      weak_from_this().lock();  // the parent may hold the last reference
  const Transaction transaction;
  if (parent_ == nullptr) return;
  parent_->detach(*this);
}

void Node::detach(const Node& child) {
  const auto place = std::find_if(children_.begin(), children_.end(),
                                  [&](const auto& held) { return held.get() == &child; });
  (*place)->parent_ = nullptr;
  children_.erase(place);
  graphics::noteChange();
}

Rect Node::frame() const {
  const Transaction transaction;
  Rect frame = localFrame();
  frame.origin.x += position_.x;
  frame.origin.y += position_.y;
  return frame;
}

Rect Node::localFrame() const { return {}; }

std::shared_ptr<SpriteNode> SpriteNode::make(ImageHandle texture) {
  const Size size = texture ? texture->size() : Size{};
  return make(std::move(texture), size);
}

std::shared_ptr<SpriteNode> SpriteNode::make(ImageHandle texture, Size size) {
  return std::shared_ptr<SpriteNode>(new SpriteNode(std::move(texture), size));
}

SpriteNode::SpriteNode(ImageHandle texture, Size size) : texture_(std::move(texture)) {
  setSize(size);
}

ImageHandle SpriteNode::texture() const { return read(texture_); }

void SpriteNode::setTexture(ImageHandle texture) { swapGuarded(texture_, texture); }

Size SpriteNode::size() const { return read(size_); }

void SpriteNode::setSize(Size size) {
  size = {std::max(0.0, size.width), std::max(0.0, size.height)};
  swapGuarded(size_, size);
}

Rect SpriteNode::localFrame() const { return centered(size()); }

std::shared_ptr<LabelNode> LabelNode::make(std::string text) {
  return std::shared_ptr<LabelNode>(new LabelNode(std::move(text)));
}

LabelNode::LabelNode(std::string text) : text_(std::move(text)) {}

std::string LabelNode::text() const { return read(text_); }

void LabelNode::setText(std::string text) {
  const Transaction transaction;
  text_ = std::move(text);
  imageScale_ = 0.0;
  graphics::noteChange();
}

double LabelNode::fontSize() const { return read(fontSize_); }

void LabelNode::setFontSize(double fontSize) {
  const Transaction transaction;
  fontSize_ = fontSize;
  imageScale_ = 0.0;
  graphics::noteChange();
}

graphics::Color LabelNode::color() const { return read(color_); }

void LabelNode::setColor(graphics::Color color) {
  const Transaction transaction;
  color_ = color;
  imageScale_ = 0.0;
  graphics::noteChange();
}

ImageHandle LabelNode::image(double scale) const {
  const Transaction transaction;
  if (imageScale_ != scale) {
    graphics::TextStyle style;
    style.fontSize = fontSize_;
    style.color = color_;
    image_ = graphics::makeTextImage(text_, style, scale);
    imageScale_ = scale;
  }
  return image_;
}

// The size in points hardly depends on the scale, so any scale will do.
Rect LabelNode::localFrame() const {
  const Transaction transaction;
  const auto picture = image(imageScale_ > 0.0 ? imageScale_ : foundation::mainScreenScale());
  return picture ? centered(picture->size()) : Rect{};
}

}  // namespace orivanta::sprite
