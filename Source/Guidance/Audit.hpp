// Checks how the places of a venue can be reached and left: without steps, and if a connector
// fails.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Guide.hpp"

namespace orivanta::guidance {

/// The places that cannot be reached without steps from an entrance.
struct EntranceFinding {
  std::shared_ptr<Location> entrance;  ///< never null
  PlaceList notStepFree;               ///< in the order of the venue
};

/// What happens if a connector fails.
struct ConnectorFinding {
  std::shared_ptr<Vortex> connector;  ///< never null
  PlaceList cutOff;          ///< places that no entrance reaches any more, in the venue's order
  PlaceList cutOffStepFree;  ///< the same without steps
};

/// The result of an audit. Owns its records.
struct Audit {
  std::vector<EntranceFinding> entrances;    ///< all entrances, in the order of the venue
  std::vector<ConnectorFinding> connectors;  ///< those whose failure cuts off a place
  PlaceList withoutNodes;  ///< places to which no route can lead, entrances among them
  PlaceList unreachable;   ///< places that no entrance reaches, whatever the profile
  /// Places that an entrance reaches, but from which no way leads to an entrance, whatever the
  /// profile: edges on the way exist in one direction only.
  PlaceList withoutWayBack;
  bool entranceAssumed = false;  ///< the venue has no entrance; a well-connected place replaces it
};

/// Returns whether a location is an entrance or an exit of the venue: its type, or the identifier
/// of one of its categories, is "entrance", "entrances", "exit" or "exits", or "cat-" and one of
/// these words.
ORIVANTA_API bool isEntrance(const Location& location);

/// Audits a loaded venue. Only places with nodes count. `guide` must be made of the venue. If it is
/// canceled, the result has only what was found until then. Runs on the calling thread and others;
/// takes a search per connector and profile.
ORIVANTA_API Audit audit(const Venue& venue, const Guide& guide,
                         const foundation::CancellationToken& token = {});

}  // namespace orivanta::guidance
