// The names of places and connectors on a map.
#pragma once

#include <memory>
#include <string>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// Returns the name of a place or connector of a venue for a label. If no sign shows the name, for
/// example because a converter invented it, the name of the place's first category replaces it; for
/// a connector, the result is then empty. The venue must be loaded.
ORIVANTA_API std::string labelName(const Venue& venue, const Location& place);

namespace guidance {
class ConnectorSigns;
}

/// Returns what `labelName` returns, faster if it is called for many connectors.
class ORIVANTA_API LabelNames {
 public:
  /// Prepares the names of a loaded venue. Its categories must outlive the object unchanged.
  explicit LabelNames(const Venue& venue);
  ~LabelNames();  ///< needs no preparation
  LabelNames(const LabelNames&) = delete;
  LabelNames& operator=(const LabelNames&) = delete;

  /// Returns the name of a place or connector of the venue.
  std::string of(const Location& place) const;

 private:
  std::unique_ptr<const guidance::ConnectorSigns> signs_;
};

}  // namespace orivanta
