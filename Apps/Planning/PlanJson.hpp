// Itineraries and instructions as JSON, for the command and the server.
#pragma once

#include <boost/json/object.hpp>
#include <string>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Guidance/Guide.hpp"
#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Narrator.hpp"
#include "Source/Guidance/Plan.hpp"
#include "Source/Guidance/Step.hpp"

namespace orivanta::planning {

/// Returns an itinerary with its instructions:
///
/// - `meters`, `seconds`: the length and the expected time; null if the venue has no scale
/// - `costMilliseconds`: what the search minimized
/// - `summary`: both as a text
/// - `path`: the identifiers of all nodes
/// - `visits`: for each stop `stop`, `leg` (the number of legs before it) and `location`
/// - `legs`: `kind` ("walk" or "ride"), `nodes`, `meters`, `seconds`, `map`, `connector`,
///   `connectorKind`, `floors` (up; negative if down)
/// - `steps`: `kind`, `leg`, `nodes` (first and last index into the leg's nodes), `turnDegrees`
///   (left is positive), `secondTurnDegrees`, `side`, `landmark`, `landmarkCategory`,
///   `landmarkPosition`, `place`, `opposite`, `passed` (`location`, `category`, `side`),
///   `through` (rooms on the way), `meters` (to the next step), `seconds`, `text`
///
/// Places, nodes and connectors are identifiers. A place with a category is named by that: its own
/// name is not usable. Members without a value are null, and so are nodes at positions between
/// nodes. If the work is canceled, there are no steps.
boost::json::object itineraryJson(const guidance::Guide& guide,
                                  const guidance::Itinerary& itinerary,
                                  const guidance::Narrator& narrator,
                                  const foundation::CancellationToken& token = {});

/// Returns the best itinerary of the plan as `itineraryJson` does, with `language`, and with
/// `alternatives` if there are any. If the plan has a problem, returns `problem` with `kind`,
/// `stop` and `text`.
boost::json::object planJson(const guidance::Guide& guide, const guidance::Plan& plan,
                             const guidance::Request& request, const guidance::Narrator& narrator,
                             const foundation::CancellationToken& token = {});

}  // namespace orivanta::planning
