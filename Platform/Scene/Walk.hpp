// The walk through a node and all below it.
#pragma once

#include <utility>
#include <vector>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Node.hpp"

namespace orivanta::scene {

/// Calls `visit(node, transform)` for `root` and what is below it, parents before their children
/// and these in order, under one transaction. `transform` is that of `root` as given, times the
/// nodes' own on the way down. What is below a node for which `visit` returns false is left out.
/// Takes heap for the depth, not stack.
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
