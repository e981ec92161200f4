// The parts of a 2D scene: places, sprites and labels.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"

namespace orivanta::sprite {

class Scene;

/// Coordinates are points with y upwards. Held by handle; a parent owns its children. Safe from
/// any thread, one operation at a time; hold a `graphics::Transaction` around changes that a frame
/// should show together.
class ORIVANTA_API Node : public std::enable_shared_from_this<Node> {
 public:
  static std::shared_ptr<Node> make();
  virtual ~Node();
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  std::optional<std::string> name() const;
  void setName(std::optional<std::string> name);
  graphics::Point position() const;  ///< in the parent
  void setPosition(graphics::Point position);
  double zPosition() const;  ///< larger ones lie in front; added up from parents to children
  void setZPosition(double zPosition);
  double alpha() const;  ///< from 0 to 1, multiplied from parents to children
  void setAlpha(double alpha);
  bool isHidden() const;
  void setHidden(bool hidden);

  std::vector<std::shared_ptr<Node>> children() const;
  std::shared_ptr<Node> parent() const;  ///< null at the top
  bool hasParent() const;

  /// Takes the child from its former parent first. Null, the node itself or one above it is a
  /// fatal error.
  void addChild(const std::shared_ptr<Node>& child);
  void removeFromParent();

  /// What the node itself covers, in its parent's coordinates; without size for a bare place. A
  /// label's is that of its text's picture.
  graphics::Rect frame() const;

  /// The same around the node's own origin.
  virtual graphics::Rect localFrame() const;

 protected:
  Node();

 private:
  void detach(const Node& child);

  std::optional<std::string> name_;
  graphics::Point position_;
  double zPosition_ = 0.0;
  double alpha_ = 1.0;
  bool hidden_ = false;
  std::vector<std::shared_ptr<Node>> children_;
  Node* parent_ = nullptr;
};

/// A picture, centerd on its position.
class ORIVANTA_API SpriteNode : public Node {
 public:
  /// A null texture shows nothing; the size is in points, the picture's own when left out.
  static std::shared_ptr<SpriteNode> make(std::shared_ptr<const graphics::Image> texture);
  static std::shared_ptr<SpriteNode> make(std::shared_ptr<const graphics::Image> texture,
                                          graphics::Size size);

  std::shared_ptr<const graphics::Image> texture() const;
  void setTexture(std::shared_ptr<const graphics::Image> texture);
  graphics::Size size() const;
  void setSize(graphics::Size size);  ///< negative sides count as 0
  graphics::Rect localFrame() const override;

 private:
  SpriteNode(std::shared_ptr<const graphics::Image> texture, graphics::Size size);

  std::shared_ptr<const graphics::Image> texture_;
  graphics::Size size_;
};

/// A line of text, its picture centerd on its position.
class ORIVANTA_API LabelNode : public Node {
 public:
  static std::shared_ptr<LabelNode> make(std::string text = {});

  std::string text() const;
  void setText(std::string text);
  double fontSize() const;  ///< points
  void setFontSize(double fontSize);
  graphics::Color color() const;
  void setColor(graphics::Color color);

  /// The text as a picture with `scale` pixels per point, kept until the label changes; null for a
  /// text without ink.
  std::shared_ptr<const graphics::Image> image(double scale) const;

  graphics::Rect localFrame() const override;

 private:
  explicit LabelNode(std::string text);

  std::string text_;
  double fontSize_ = 32.0;
  graphics::Color color_ = graphics::colors::white;
  mutable std::shared_ptr<const graphics::Image> image_;
  mutable double imageScale_ = 0.0;  // of `image_`, null or not; 0 when it is out of date
};

}  // namespace orivanta::sprite
