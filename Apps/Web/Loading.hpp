// Loads of venue lists and venues for the page.
#pragma once

#include <string>
#include <string_view>

#include "Apps/Web/PackageTransport.hpp"

namespace orivanta::web {

/// From where and how to load, as the page writes it: a JSON object with
///
/// - `endpoint`: the API root, ending in a slash
/// - `username` and `password`: may be missing
/// - `languages`: the value of `Accept-Language`; "en" if it is missing
/// - `slug`: the venue to load; if it is missing, the venues are listed
/// - `accessible`: whether to leave out connectors that are not accessible
///
/// If `package` has texts, they are the responses, and `endpoint` is not needed. Starts the load
/// and returns its number, or 0 if the text is not such an object.
///
/// Calls the page's `orivantaLoadProgressed` and then, once and in a later turn,
/// `orivantaLoadEnded` with `venues` (see `venueJson`) or `venue` (a number of `VenueTable`), and
/// `failures`: `collection`, `kind` (the name of an enumerator of `LoadProblem`), `status` and
/// `reason`. Without `venue`, the venue could not be loaded.
int startLoad(std::string_view settings, PackageTransport::Texts package);

/// Ends a load. The page's functions are not called for it any more. Does nothing if it has ended.
void cancelLoad(int number);

}  // namespace orivanta::web
