#include "Apps/Command/ShowVenue.hpp"

#include <fmt/format.h>

#include "Apps/Command/Output.hpp"
#include "Apps/Command/Session.hpp"
#include "Apps/Command/VenueReport.hpp"
#include "Apps/Text/Json.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

ExitCode listLocations(const Venue& venue, const std::string& text, bool json) {
  const auto locations = locationsContaining(venue, text);
  writeOutput(json ? text::jsonText(locationsJson(locations)) + '\n' : locationsText(locations));
  if (!locations.empty()) return ExitCode::success;
  complain(text.empty()
               ? "the venue has no locations"
               : fmt::format("no location whose name or identifier contains \"{}\"", text));
  return ExitCode::notFound;
}

}  // namespace

ExitCode showVenue(const ShowVenueOptions& options) {
  Session session(options.connection);
  const auto venue =
      session.loadVenue(options.slug, options.accessible,
                        {"location", "category", "map", "node", "vortex", "polygon"});
  if (options.locations) return listLocations(*venue, *options.locations, options.json);
  writeOutput(options.json ? text::jsonText(venueJson(*venue, options.accessible)) + '\n'
                           : venueText(*venue, options.accessible));
  return ExitCode::success;
}

}  // namespace orivanta::command
