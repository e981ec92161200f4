// A place in a scene: a position and a turn, what stands there, and the nodes that move with it.
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

enum class Axis { x, y, z };

/// Held by handle; a parent owns its children, a child does not own its parent. A node turns by its
/// Euler angles (radians) about x first, then y, then z, and is then moved by its position.
///
/// Safe from any thread, one operation at a time; hold a `graphics::Transaction` around changes
/// that a frame should show together, and around walks through `children`.
class ORIVANTA_API Node : public std::enable_shared_from_this<Node> {
 public:
  static std::shared_ptr<Node> make(std::shared_ptr<Geometry> geometry = nullptr);
  ~Node();
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  std::optional<std::string> name() const;
  void setName(std::optional<std::string> name);

  graphics::Vector3 position() const;
  void setPosition(graphics::Vector3 position);
  void setPosition(Axis axis, float value);  ///< keeps the other two

  graphics::Vector3 eulerAngles() const;
  void setEulerAngles(graphics::Vector3 angles);
  void setEulerAngle(Axis axis, float angle);  ///< keeps the other two

  std::shared_ptr<Geometry> geometry() const;
  void setGeometry(std::shared_ptr<Geometry> geometry);
  std::shared_ptr<Camera> camera() const;
  void setCamera(std::shared_ptr<Camera> camera);
  std::shared_ptr<Light> light() const;
  void setLight(std::shared_ptr<Light> light);

  bool castsShadow() const;  ///< true until set
  void setCastsShadow(bool castsShadow);
  bool isHidden() const;  ///< with everything below; false until set
  void setHidden(bool hidden);

  std::vector<std::shared_ptr<ParticleSystem>> particleSystems() const;
  void addParticleSystem(std::shared_ptr<ParticleSystem> system);

  std::vector<std::shared_ptr<Node>> children() const;

  /// Without a copy, for as long as the transaction lives and the children stay.
  const std::vector<std::shared_ptr<Node>>& children(const graphics::Transaction&) const {
    return children_;
  }
  std::shared_ptr<Node> parent() const;  ///< null at the top

  /// Takes the child from its former parent first. A null child, the node itself or one above it is
  /// a fatal error. The index counts without the child; one beyond the end appends.
  void addChild(std::shared_ptr<Node> child);
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
