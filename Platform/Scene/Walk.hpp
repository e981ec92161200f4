// Traverses a node and its descendants.
#pragma once

#include <utility>
#include <vector>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Node.hpp"

namespace orivanta::scene {

/// Calls `visit(node, transform)` for `root` and its descendants, parents before children and
/// children in order, in one transaction. `transform` is the transform passed for `root`,
/// multiplied by the nodes' own transforms along the path. The descendants of a node are skipped if
/// `visit` returns false for it. Deep trees use heap memory, not stack.
template <class AnyNode, class Visit>
void walk(AnyNode& root, const graphics::Matrix4& rootTransform, const Visit& visit) {
  const graphics::Transaction transaction;
  std::vector<std::pair<AnyNode*, graphics::Matrix4>> pending{{&root, rootTransform}};
  while (!pending.empty()) {
    const auto [node, transform] = pending.back();
    pending.pop_back();
    if (!visit(*node, transform)) continue;
    const auto& children = node->children(transaction);
    for (auto child = children.rbegin(); child != children.rend(); ++child)
      pending.emplace_back(child->get(), transform * (*child)->transform());
  }
}

}  // namespace orivanta::scene
