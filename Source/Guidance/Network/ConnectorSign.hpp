// The name that a connector's sign shows.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "Source/Fwd.hpp"

namespace orivanta::guidance {

/// Knows the categories of a venue, which must outlive it unchanged.
class ConnectorSigns {
 public:
  explicit ConnectorSigns(const Venue& venue);
  explicit ConnectorSigns(const std::vector<std::shared_ptr<Category>>& categories);

  /// Returns the name of a connector, or an empty text if no sign shows it: if the record has
  /// `"nameGenerated": true`, or if the name is only the name of one of its categories and a number
  /// after a space, such as "Escalator 2".
  std::string signOf(const Vortex& connector) const;

 private:
  std::unordered_map<std::string, const Category*> categories_;  // by identifier
};

}  // namespace orivanta::guidance
