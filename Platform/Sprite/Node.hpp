// The parts of a 2D scene: places, sprites and labels.
// Public header.
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
  static std::shared_ptr<Node> make();  ///< at the origin, without a parent
  virtual ~Node();
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  std::optional<std::string> name() const;        ///< none until set
  void setName(std::optional<std::string> name);  ///< names need not be unique
  graphics::Point position() const;               ///< in the parent's coordinates
  void setPosition(graphics::Point position);     ///< in the parent's coordinates
  double zPosition() const;  ///< larger ones lie in front; added up from parents to children
  void setZPosition(double zPosition);  ///< see `zPosition`; 0 until set
  double alpha() const;                 ///< from 0 to 1, multiplied from parents to children
  void setAlpha(double alpha);          ///< see `alpha`; 1 until set
  bool isHidden() const;                ///< with its children; false until set
  void setHidden(bool hidden);          ///< with its children

  std::vector<std::shared_ptr<Node>> children() const;  ///< in the order of adding
  std::shared_ptr<Node> parent() const;                 ///< null at the top
  bool hasParent() const;                               ///< false at the top

  /// Takes the child from its former parent first. Null, the node itself or one above it is a
  /// fatal error.
  void addChild(const std::shared_ptr<Node>& child);
  void removeFromParent();  ///< does nothing at the top

  /// What the node itself covers, without its children, in its parent's coordinates. Empty for a
  /// node that draws nothing. A label covers the image of its text.
  graphics::Rect frame() const;

  /// The same around the node's own origin.
  virtual graphics::Rect localFrame() const;

 protected:
  Node();  ///< for subclasses

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

/// An image, centered on its position.
class ORIVANTA_API SpriteNode : public Node {
 public:
  /// As large as the image. A null texture shows nothing.
  static std::shared_ptr<SpriteNode> make(std::shared_ptr<const graphics::Image> texture);

  /// The image stretched to a size in points. A null texture shows nothing.
  static std::shared_ptr<SpriteNode> make(std::shared_ptr<const graphics::Image> texture,
                                          graphics::Size size);

  std::shared_ptr<const graphics::Image> texture() const;           ///< may be null
  void setTexture(std::shared_ptr<const graphics::Image> texture);  ///< keeps the size
  graphics::Size size() const;                                      ///< points
  void setSize(graphics::Size size);                                ///< negative sides count as 0
  graphics::Rect localFrame() const override;

 private:
  SpriteNode(std::shared_ptr<const graphics::Image> texture, graphics::Size size);

  std::shared_ptr<const graphics::Image> texture_;
  graphics::Size size_;
};

/// A line of text, centered on its position.
class ORIVANTA_API LabelNode : public Node {
 public:
  static std::shared_ptr<LabelNode> make(std::string text = {});  ///< white, 32 points high

  std::string text() const;              ///< UTF-8
  void setText(std::string text);        ///< UTF-8
  double fontSize() const;               ///< points
  void setFontSize(double fontSize);     ///< points
  graphics::Color color() const;         ///< of the glyphs
  void setColor(graphics::Color color);  ///< of the glyphs

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
