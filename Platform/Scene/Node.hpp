// A node of a scene: a position, a rotation, attached objects such as a geometry, and child nodes.
// Public header.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Platform/Scene/ParticleSystem.hpp"
#include "Platform/Scene/Ribbons.hpp"

namespace orivanta::scene {

/// An axis of a coordinate system.
enum class Axis {
  x,  ///< the first
  y,  ///< the second
  z   ///< the third
};

/// A node of a scene, held by shared pointers. A parent owns its children; a child does not own its
/// parent. A node is rotated by its Euler angles (radians) about x, then y, then z, and is then
/// translated by its position.
///
/// Each function is safe to call from any thread. Hold a `graphics::Transaction` around changes
/// that should appear in the same frame, and while iterating over `children`.
class ORIVANTA_API Node : public std::enable_shared_from_this<Node> {
 public:
  /// Creates a node at the origin without a parent. The geometry may be null.
  static std::shared_ptr<Node> make(std::shared_ptr<Geometry> geometry = nullptr);
  ~Node();
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  std::optional<std::string> name() const;        ///< none until set
  void setName(std::optional<std::string> name);  ///< names need not be unique

  graphics::Vector3 position() const;            ///< in the parent's space
  void setPosition(graphics::Vector3 position);  ///< in the parent's space
  void setPosition(Axis axis, float value);      ///< keeps the other two

  graphics::Vector3 eulerAngles() const;          ///< radians about x, y and z
  void setEulerAngles(graphics::Vector3 angles);  ///< radians about x, y and z
  void setEulerAngle(Axis axis, float angle);     ///< keeps the other two

  std::shared_ptr<Geometry> geometry() const;            ///< null if there is none
  void setGeometry(std::shared_ptr<Geometry> geometry);  ///< null removes it
  std::shared_ptr<Camera> camera() const;                ///< null if there is none
  void setCamera(std::shared_ptr<Camera> camera);        ///< null removes it
  std::shared_ptr<Light> light() const;                  ///< null if there is none
  void setLight(std::shared_ptr<Light> light);           ///< null removes it

  bool castsShadow() const;               ///< true until set
  void setCastsShadow(bool castsShadow);  ///< whether the geometry casts a shadow
  bool isHidden() const;                  ///< includes all descendants; false until set
  void setHidden(bool hidden);            ///< with everything below

  /// Returns the color that replaces the colors and images of all materials when the node is drawn,
  /// or nothing if the materials are drawn unchanged. Does not apply to descendants.
  std::optional<graphics::Color> displayColor() const;

  /// Sets or removes the color. The opacities of the materials still apply.
  void setDisplayColor(std::optional<graphics::Color> color);

  /// Returns the opacity of the node with all descendants, 1 until set. They are blended as one
  /// with what is behind them: opaque parts of the node do not show through each other, except
  /// those of a descendant that has an opacity of its own, which is multiplied by this one. Lights,
  /// shadows and hit tests ignore the opacity, but parts with an opacity below 1 cast no shadow.
  float opacity() const;
  void setOpacity(float opacity);  ///< clamped to 0 (nothing is drawn) to 1

  /// Returns the lines drawn in the node's space, or null if there are none. They are not part of
  /// `boundingBox`, cast no shadow and are ignored by hit tests.
  std::shared_ptr<const Ribbons> ribbons() const;
  RibbonLook ribbonLook() const;  ///< as last set

  /// Replaces the lines and their look. Null removes the lines.
  void setRibbons(std::shared_ptr<const Ribbons> ribbons, RibbonLook look);

  std::vector<std::shared_ptr<ParticleSystem>> particleSystems() const;  ///< in the order of adding
  void addParticleSystem(std::shared_ptr<ParticleSystem> system);        ///< at the end of the list

  std::vector<std::shared_ptr<Node>> children() const;  ///< in drawing order

  /// Returns the children without a copy. The reference is valid as long as the transaction exists
  /// and the list of children does not change.
  const std::vector<std::shared_ptr<Node>>& children(const graphics::Transaction&) const {
    return children_;
  }
  std::shared_ptr<Node> parent() const;  ///< null for the topmost node

  /// Appends a child. It is first removed from its previous parent. Null, the node itself or one of
  /// its ancestors is a fatal error.
  void addChild(std::shared_ptr<Node> child);

  /// Same as `addChild`, but inserts the child at an index among the other children. An index
  /// beyond the end appends it.
  void insertChild(std::shared_ptr<Node> child, std::size_t index);
  void removeFromParent();  ///< does nothing for the topmost node

  /// Returns the first descendant with this name in breadth-first order, or null if there is none.
  std::shared_ptr<Node> childNode(std::string_view name) const;

  /// Returns all descendants for which `passes` returns true, parents before their children.
  /// `passes` is called under a `graphics::Transaction` and must not change the tree.
  std::vector<std::shared_ptr<Node>> childNodes(
      const std::function<bool(const Node&)>& passes) const;

  graphics::Matrix4 transform() const;       ///< to the parent's space
  graphics::Matrix4 worldTransform() const;  ///< to the space of the topmost node's parent

  /// Returns a box, in the node's space, that contains the geometries of the node and of all
  /// descendants, including hidden ones. It is computed from the transformed boxes of the
  /// geometries, so it may be larger than necessary if a node is rotated.
  graphics::Box boundingBox() const;

  /// Returns the merged geometry of all children for drawing, or null if it was not prepared; see
  /// `Batch`.
  std::shared_ptr<const Batch> preparedBatch() const;

  /// Sets the prepared batch; null removes it.
  void setPreparedBatch(std::shared_ptr<const Batch> batch);

 private:
  friend class Batch;

  explicit Node(std::shared_ptr<Geometry> geometry);
  bool isAbove(const Node& node) const;
  void detach(Node& child);

  std::optional<std::string> name_;
  graphics::Vector3 position_{0.0F};
  graphics::Vector3 eulerAngles_{0.0F};
  std::shared_ptr<Geometry> geometry_;
  std::shared_ptr<Camera> camera_;
  std::shared_ptr<Light> light_;
  std::shared_ptr<const Batch> preparedBatch_;
  std::shared_ptr<const Ribbons> ribbons_;
  RibbonLook ribbonLook_;
  std::vector<std::shared_ptr<ParticleSystem>> particleSystems_;
  std::vector<std::shared_ptr<Node>> children_;
  Node* parent_ = nullptr;
  std::optional<graphics::Color> displayColor_;
  bool castsShadow_ = true;
  bool hidden_ = false;
  float opacity_ = 1.0F;
};

}  // namespace orivanta::scene
