// Venue loading: the entry points for data.
//
//   getVenues([](const auto& venues) {
//     if (venues.empty()) return;
//     getVenue(venues.front(), /*accessible=*/true, [](const auto& venue) { ... });
//   });
//
// The first call creates the API session of the process. ApiSettings.hpp describes where its
// settings come from.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/ActiveVenue.hpp"
#include "Source/ApiSettings.hpp"
#include "Source/Fwd.hpp"
#include "Source/LoadReport.hpp"
#include "Source/WebApi.hpp"

namespace orivanta {

/// Lists the venues that the account can access, in the API's order. `callback` is called once, on
/// a background thread. The list is empty if the request failed. In this function and in
/// `getVenue`, a `Link` header with a parameter whose value is a single quote stops the program.
ORIVANTA_API void getVenues(std::function<void(std::vector<std::shared_ptr<Venue>>)> callback);

/// Makes `venue` the active venue, loads its six collections concurrently, joins them, builds the
/// navigation graph and calls `callback` once with the venue, on a background thread. If
/// `accessible` is true, the graph excludes connectors that are not accessible. The loaded fields
/// of the previously active venue are cleared; records that the application keeps stay valid.
///
/// A collection whose request fails counts as empty. If a request never ends, neither does the
/// load. If the polygons arrive last, the joins that do not need polygons run before and after
/// their arrival, so the lists that they fill contain each link twice. A load that exceeds its
/// memory budget (`ApiSettings::loadBytes`) or runs out of memory ends with a venue whose
/// collections are all empty.
///
/// Wait for one load to finish before you start the next one. Otherwise both loads run
/// concurrently, which is memory-safe, but the first load fills the venue of the second one, and
/// its callback receives that venue. Do not read the fields of a venue while a load may fill it;
/// `getDirections` may be called at any time. Stops the program if the venue is null or has no
/// slug.
ORIVANTA_API void getVenue(const std::shared_ptr<Venue>& venue, bool accessible,
                           std::function<void(std::shared_ptr<Venue>)> callback);

/// Overload with `accessible` set to false.
ORIVANTA_API void getVenue(const std::shared_ptr<Venue>& venue,
                           std::function<void(std::shared_ptr<Venue>)> callback);

/// Like `getVenue`, with a session of the caller. Unless that is `APISession` or a session made by
/// `WebApiSession::fillingActiveVenue`, the load fills only `venue` and does not change the active
/// venue or any other venue, so an application can keep several venues and load them concurrently.
/// To search routes in them, use the overloads of `getDirections` that take a venue.
ORIVANTA_API void loadVenue(const WebApiSession& session, const std::shared_ptr<Venue>& venue,
                            bool accessible, std::function<void(std::shared_ptr<Venue>)> callback);

/// Like `getVenues` and `loadVenue`, and reports the progress and the failures of the load: a
/// failed collection can be distinguished from an empty one. A load ends early if its pages do not
/// end, if they are slower than the session's lowest rate, or if it exceeds its memory budget. A
/// collection fails if a link or a redirect leads from HTTPS to HTTP. The session's observer is not
/// called. Thread-safe; the handlers specify where they are called.
ORIVANTA_API std::shared_ptr<LoadHandle> loadVenuesReporting(
    const WebApiSession& session, LoadHandlers<VenueListReport> handlers);

/// Like `getVenue`, with the same reports.
ORIVANTA_API std::shared_ptr<LoadHandle> loadVenueReporting(const WebApiSession& session,
                                                            const std::shared_ptr<Venue>& venue,
                                                            bool accessible,
                                                            LoadHandlers<VenueLoadReport> handlers);

/// Like `loadVenuesReporting`, but loads the list from the store of the session, without network
/// access, without the venues that are not stored. The list is empty if the session has no store,
/// or the store has no list for the session's endpoint, languages and user name.
ORIVANTA_API std::shared_ptr<LoadHandle> loadStoredVenues(const WebApiSession& session,
                                                          LoadHandlers<StoredListReport> handlers);

/// Like `loadVenueReporting`, but loads the venue with this slug from the store of the session,
/// without network access. The venue is null if it is not stored. The files of the floors are
/// loaded by `MapView::loadFloors`, without network access if the downloader of the map view is an
/// `OfflineDownloader`.
ORIVANTA_API std::shared_ptr<LoadHandle> loadStoredVenue(const WebApiSession& session,
                                                         const std::string& slug, bool accessible,
                                                         LoadHandlers<StoredVenueReport> handlers);

}  // namespace orivanta
