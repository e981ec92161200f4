// Venue loading: the entry points for data.
//
//   getVenues([](const auto& venues) {
//     if (venues.empty()) return;
//     getVenue(venues.front(), /*accessible=*/true, [](const auto& venue) { ... });
//   });
//
// The first call of the process creates the one API session of the process; see ApiSettings.hpp for
// where its settings come from.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/ActiveVenue.hpp"
#include "Source/ApiSettings.hpp"
#include "Source/Fwd.hpp"
#include "Source/LoadReport.hpp"
#include "Source/WebApi.hpp"

namespace orivanta {

/// Lists the venues that the account may see, in the API's order. `callback` is called once, on a
/// background thread; the list is empty when the request failed. Here and in `getVenue` the server
/// can stop the program: with a `Link` header that has a parameter of a single quote.
ORIVANTA_API void getVenues(std::function<void(std::vector<std::shared_ptr<Venue>>)> callback);

/// Makes `venue` the active one, loads its six collections side by side, joins them, builds its
/// navigation graph and calls `callback` once with it, on a background thread. With `accessible`
/// the graph leaves out the connectors that are not accessible. What the venue that was active
/// before held is cleared; records that the application kept stay valid.
///
/// A collection whose request fails counts as empty. One that never answers keeps the venue
/// waiting. When the polygons arrive last, the links that need no polygons are made before them and
/// again after them, so that those lists hold each link twice. A load that exceeds its budget of
/// memory (`ApiSettings::loadBytes`), or that runs out of memory, ends with a venue whose
/// collections are all empty.
///
/// Wait for one load to finish before the next one starts. If you do not, both loads run side by
/// side and memory stays safe, but the first one fills the venue of the second one, and its
/// callback receives that venue. Do not read the fields of a venue while a load may fill it;
/// `getDirections` may be called at any time. A null venue, or one without a slug, stops the
/// program.
ORIVANTA_API void getVenue(const std::shared_ptr<Venue>& venue, bool accessible,
                           std::function<void(std::shared_ptr<Venue>)> callback);

/// As above, with `accessible` false.
ORIVANTA_API void getVenue(const std::shared_ptr<Venue>& venue,
                           std::function<void(std::shared_ptr<Venue>)> callback);

/// As `getVenue`, through a session of the caller's own. Unless that is `APISession`, or a session
/// made by `WebApiSession::fillingActiveVenue`, the load fills `venue` alone: the active venue and
/// all other venues stay as they are, so that several venues live side by side and may be loaded at
/// the same time. Routes in them are found by the overloads of `getDirections` that take a venue.
ORIVANTA_API void loadVenue(const WebApiSession& session, const std::shared_ptr<Venue>& venue,
                            bool accessible, std::function<void(std::shared_ptr<Venue>)> callback);

/// As `getVenues` and `loadVenue`, and reports how the load goes: a collection that failed is told
/// from one that is empty. A load whose pages do not end or come below the session's lowest rate,
/// or that exceeds its budget of memory, is given up. A collection that a link or a redirect would
/// lead from HTTPS to HTTP fails. The session's own observer is not told. Any thread; the handlers
/// say on which one they are called.
ORIVANTA_API std::shared_ptr<LoadHandle> loadVenuesReporting(
    const WebApiSession& session, LoadHandlers<VenueListReport> handlers);

/// As `getVenue`, in the same way.
ORIVANTA_API std::shared_ptr<LoadHandle> loadVenueReporting(const WebApiSession& session,
                                                            const std::shared_ptr<Venue>& venue,
                                                            bool accessible,
                                                            LoadHandlers<VenueLoadReport> handlers);

}  // namespace orivanta
