#include "Apps/Command/AuditVenues.hpp"

#include <fmt/format.h>

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <set>

#include "Apps/Command/Output.hpp"
#include "Apps/Command/Render/RenderVenue.hpp"
#include "Apps/Server/PackageVenue.hpp"
#include "Apps/Server/VenueServer.hpp"
#include "Apps/Text/Json.hpp"
#include "Source/Guidance/Audit.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::command {

namespace json = boost::json;

namespace {

json::array identifiers(const guidance::PlaceList& places) {
  json::array array;
  for (const auto& place : places) array.emplace_back(*place->id);
  return array;
}

json::object auditJson(const Venue& venue, const guidance::Audit& audit) {
  json::array entrances;
  for (const auto& finding : audit.entrances)
    entrances.push_back(json::object{{"entrance", *finding.entrance->id},
                                     {"notStepFree", identifiers(finding.notStepFree)}});
  json::array connectors;
  for (const auto& finding : audit.connectors)
    connectors.push_back(json::object{{"connector", *finding.connector->id},
                                      {"cutOff", identifiers(finding.cutOff)},
                                      {"cutOffStepFree", identifiers(finding.cutOffStepFree)}});
  return {{"venue", *venue.slug},
          {"entranceAssumed", audit.entranceAssumed},
          {"withoutNodes", identifiers(audit.withoutNodes)},
          {"unreachable", identifiers(audit.unreachable)},
          {"withoutWayBack", identifiers(audit.withoutWayBack)},
          {"entrances", std::move(entrances)},
          {"connectors", std::move(connectors)}};
}

// Returns the places that no entrance reaches without steps, in the order of the venue.
guidance::PlaceList neverStepFree(const guidance::Audit& audit) {
  if (audit.entrances.empty()) return {};
  guidance::PlaceList list = audit.entrances.front().notStepFree;
  for (const auto& finding : audit.entrances) {
    const std::set<std::shared_ptr<Location>> here(finding.notStepFree.begin(),
                                                   finding.notStepFree.end());
    std::erase_if(list, [&](const auto& place) { return !here.contains(place); });
  }
  return list;
}

// Places that are drawn in one color.
struct Group {
  const char* color;
  const char* meaning;
  guidance::PlaceList places;
};

// Returns the groups, the most important one first.
std::vector<Group> groupsOf(const guidance::Audit& audit) {
  guidance::PlaceList cutOff;
  guidance::PlaceList cutOffStepFree;
  for (const auto& finding : audit.connectors) {
    cutOff.insert(cutOff.end(), finding.cutOff.begin(), finding.cutOff.end());
    cutOffStepFree.insert(cutOffStepFree.end(), finding.cutOffStepFree.begin(),
                          finding.cutOffStepFree.end());
  }
  return {{"#d7191c", "Cannot be reached", audit.unreachable},
          {"#7b3294", "Cannot be left", audit.withoutWayBack},
          {"#2c7bb6", "Cut off if a connector fails", cutOff},
          {"#f28e2b", "No way without steps", neverStepFree(audit)},
          {"#92c5de", "No way without steps if a connector fails", cutOffStepFree}};
}

// Colors the places of the groups. A place in several groups has the color of the first one.
void addColors(RenderVenueOptions& options, const guidance::Audit& audit) {
  std::set<std::shared_ptr<Location>> colored;
  for (const Group& group : groupsOf(audit)) {
    bool isShown = false;
    for (const auto& place : group.places) {
      if (!colored.insert(place).second) continue;
      options.highlights.push_back(fmt::format("{}={}", *place->id, group.color));
      isShown = true;
    }
    if (isShown) options.legend.push_back({*graphics::Color::parse(group.color), group.meaning});
  }
}

// Draws the floors of one package as `render` does.
void drawPicture(const std::filesystem::path& folder, const Venue& venue,
                 const guidance::Audit& audit, const std::string& file) {
  server::ServerOptions served;
  served.folders = {folder};
  const server::VenueServer server(served);
  RenderVenueOptions options;
  options.connection.endpoint = server.root();
  options.connection.quiet = true;
  options.slug = *venue.slug;
  options.map = "all";
  options.style = "plain";  // the colors say what is wrong
  options.labels = true;
  options.output = file;
  options.printsFiles = false;  // the output is JSON
  addColors(options, audit);
  if (renderVenue(options) != ExitCode::success)
    throw CommandError(ExitCode::noAnswer, "--picture: not all floors can be drawn");
}

}  // namespace

ExitCode auditVenues(const AuditOptions& options) try {
  const auto packages = server::readPackages(options.folders);
  if (options.picture && packages.size() != 1)
    throw CommandError(ExitCode::wrongUse, "--picture needs exactly one package");
  ExitCode code = ExitCode::success;
  for (const server::VenuePackage& package : packages) {
    const auto venue = server::loadPackage(std::make_shared<const server::VenuePackage>(package));
    const auto guide = guidance::Guide::make(*venue);
    if (!guide)
      throw CommandError(ExitCode::wrongUse, package.source.string() + ": no walking network");
    const guidance::Audit audit = guidance::audit(*venue, *guide);
    writeOutput(text::jsonText(auditJson(*venue, audit)) + '\n');
    if (!audit.unreachable.empty() || !audit.withoutWayBack.empty()) code = ExitCode::notFound;
    if (options.picture) drawPicture(package.source, *venue, audit, *options.picture);
  }
  return code;
} catch (const server::PackageError& error) {
  throw CommandError(ExitCode::wrongUse, error.what());
}

}  // namespace orivanta::command
