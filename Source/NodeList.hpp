// A list of nodes: the nodes of a record, the ends of a search or a path.
#pragma once

#include <memory>
#include <vector>

#include "Source/Fwd.hpp"

namespace orivanta {

/// Owns its nodes.
using NodeList = std::vector<std::shared_ptr<Node>>;

}  // namespace orivanta
