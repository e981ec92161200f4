// A place in a scene: a position and a turn, what stands there, and the nodes that move with it.
// Public header.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Platform/Scene/ParticleSystem.hpp"

namespace orivanta::scene {

/// An axis of a coordinate system.
enum class Axis {
  x,  ///< the first
  y,  ///< the second
  z   ///< the third
};

/// Held by handle; a parent owns its children, a child does not own its parent. A node turns by its
/// Euler angles (radians) about x first, then y, then z, and is then moved by its position.
///
/// Safe from any thread, one operation at a time; hold a `graphics::Transaction` around changes
/// that a frame should show together, and around walks through `children`.
class ORIVANTA_API Node : public std::enable_shared_from_this<Node> {
 public:
  /// A node at the origin, without a parent. The geometry may be null.
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
  void setCastsShadow(bool castsShadow);  ///< of the geometry
  bool isHidden() const;                  ///< with everything below; false until set
  void setHidden(bool hidden);            ///< with everything below

  std::vector<std::shared_ptr<ParticleSystem>> particleSystems() const;  ///< in the order of adding
  void addParticleSystem(std::shared_ptr<ParticleSystem> system);        ///< at the end of the list

  std::vector<std::shared_ptr<Node>> children() const;  ///< in the order in which they are drawn

  /// Without a copy, for as long as the transaction lives and the children stay.
  const std::vector<std::shared_ptr<Node>>& children(const graphics::Transaction&) const {
    return children_;
  }
  std::shared_ptr<Node> parent() const;  ///< null at the top

  /// Appends a child, which is first removed from its former parent. A null child, the node itself
  /// or one above it is a fatal error.
  void addChild(std::shared_ptr<Node> child);

  /// As `addChild`, at an index among the other children. An index beyond the end appends.
  void insertChild(std::shared_ptr<Node> child, std::size_t index);
  void removeFromParent();  ///< nothing at the top

  /// The first node below, nearest levels first, with that name; null without one.
  std::shared_ptr<Node> childNode(std::string_view name) const;

  /// All nodes below that pass, parents before their children. `passes` is called under a
  /// `graphics::Transaction` and leaves the tree alone.
  std::vector<std::shared_ptr<Node>> childNodes(
      const std::function<bool(const Node&)>& passes) const;

  graphics::Matrix4 transform() const;       ///< to the parent's space
  graphics::Matrix4 worldTransform() const;  ///< to the space of the topmost node's parent

  /// Of the node's geometry and everything below, hidden or not, in the node's own space: it
  /// holds the turned boxes of the geometries, so turned shapes may leave some room in it.
  graphics::Box boundingBox() const;

  /// The geometry of all children merged for drawing, if somebody prepared it; see `Batch`.
  std::shared_ptr<const Batch> preparedBatch() const;

  /// See `preparedBatch`; null removes it.
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
  std::vector<std::shared_ptr<ParticleSystem>> particleSystems_;
  std::vector<std::shared_ptr<Node>> children_;
  Node* parent_ = nullptr;
  bool castsShadow_ = true;
  bool hidden_ = false;
};

}  // namespace orivanta::scene
