// What is closed at the moment: connectors, places and nodes.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::guidance {

/// A set of identifiers of records that routes must not use: connectors, locations or nodes.
/// Nothing that is closed is entered, but a traveler who starts there can leave.
///
/// A closed location is no destination. If it is a room, which means that a polygon of it has
/// entrances, the nodes inside are closed too, unless they also belong to a room that is open. A
/// place without a room, such as a cash machine in a corridor, does not block the way. Unknown
/// identifiers have no effect. Immutable; copies share the identifiers. Thread-safe.
class ORIVANTA_API Closures {
 public:
  /// Nothing is closed.
  Closures() = default;

  /// Closes the records with these identifiers. Duplicates and the order have no effect.
  explicit Closures(std::vector<std::string> identifiers);

  /// Returns whether nothing is closed.
  bool empty() const { return !identifiers_; }

  /// Returns whether an identifier is in the set.
  bool contains(std::string_view identifier) const;

  /// Returns the identifiers in ascending order, each once.
  const std::vector<std::string>& identifiers() const;

  /// Equal sets are equal, whether or not they share their identifiers.
  ORIVANTA_API friend bool operator==(const Closures& left, const Closures& right);

 private:
  std::shared_ptr<const std::vector<std::string>> identifiers_;  // null if empty
};

}  // namespace orivanta::guidance
