// The nodes of a 2D scene: plain nodes, sprites and labels.
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

/// A node of a 2D scene, held by shared pointers. A parent owns its children. Coordinates are
/// points, with y upwards. Each function is safe to call from any thread. Hold a
/// `graphics::Transaction` around changes that should appear in the same frame.
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
  double zPosition() const;             ///< larger values are in front; added to that of the parent
  void setZPosition(double zPosition);  ///< see `zPosition`; 0 until set
  double alpha() const;                 ///< from 0 to 1, multiplied by that of the parent
  void setAlpha(double alpha);          ///< see `alpha`; 1 until set
  bool isHidden() const;                ///< with its children; false until set
  void setHidden(bool hidden);          ///< with its children

  std::vector<std::shared_ptr<Node>> children() const;  ///< in the order of adding
  std::shared_ptr<Node> parent() const;                 ///< null for the topmost node
  bool hasParent() const;                               ///< false for the topmost node

  /// Adds a child. It is first removed from its previous parent. Null, the node itself or one of
  /// its ancestors is a fatal error.
  void addChild(const std::shared_ptr<Node>& child);
  void removeFromParent();  ///< does nothing for the topmost node

  /// Returns the rectangle that the node covers, without its children, in its parent's coordinates.
  /// It is empty for a node that draws nothing. A label covers the image of its text.
  graphics::Rect frame() const;

  /// Same as `frame`, but in the node's coordinates.
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

/// A node that shows an image centered on its position.
class ORIVANTA_API SpriteNode : public Node {
 public:
  /// Creates a sprite of the image's size. A null texture shows nothing.
  static std::shared_ptr<SpriteNode> make(std::shared_ptr<const graphics::Image> texture);

  /// Creates a sprite that stretches the image to a size in points. A null texture shows nothing.
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

/// A node that shows a line of text centered on its position.
class ORIVANTA_API LabelNode : public Node {
 public:
  static std::shared_ptr<LabelNode> make(std::string text = {});  ///< white, font size 32

  std::string text() const;              ///< UTF-8
  void setText(std::string text);        ///< UTF-8
  double fontSize() const;               ///< points
  void setFontSize(double fontSize);     ///< points
  graphics::Color color() const;         ///< of the glyphs
  void setColor(graphics::Color color);  ///< of the glyphs

  /// Returns an image of the text with `scale` pixels per point, or null if the text has no visible
  /// glyphs. The image is cached until the label changes.
  std::shared_ptr<const graphics::Image> image(double scale) const;

  graphics::Rect localFrame() const override;

 private:
  explicit LabelNode(std::string text);

  std::string text_;
  double fontSize_ = 32.0;
  graphics::Color color_ = graphics::colors::white;
  mutable std::shared_ptr<const graphics::Image> image_;
  mutable double imageScale_ = 0.0;  // of `image_`, even if that is null; 0 if it is out of date
};

}  // namespace orivanta::sprite
