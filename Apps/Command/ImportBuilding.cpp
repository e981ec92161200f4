#include "Apps/Command/ImportBuilding.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <array>
#include <boost/json/object.hpp>
#include <charconv>
#include <string_view>
#include <utility>

#include "Apps/Command/FindingTexts.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/ProgressLine.hpp"
#include "Apps/Import/Import.hpp"
#include "Apps/Import/Report/Report.hpp"
#include "Apps/Import/Report/Summary.hpp"
#include "Apps/Import/SourceError.hpp"
#include "Apps/Import/Write/WritePackage.hpp"
#include "Apps/Package/ReplacedFolder.hpp"
#include "Apps/Text/Json.hpp"
#include "Apps/Text/Letters.hpp"

namespace orivanta::command {

namespace json = boost::json;
using importer::Format;

namespace {

constexpr std::array<std::pair<std::string_view, Format>, 7> formats = {{
    {"imdf", Format::imdf},
    {"osm-xml", Format::osmXml},
    {"osm-pbf", Format::osmPbf},
    {"overpass-json", Format::overpassJson},
    {"osm-geojson", Format::osmGeoJson},
    {"indoorgml", Format::indoorGml},
    {"stations", Format::stations},
}};

double numberOf(const char* option, std::string_view text) {
  double number = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size())
    throw CommandError(ExitCode::wrongUse, fmt::format("{}: \"{}\" is no number", option, text));
  return number;
}

std::vector<std::string> splitAtCommas(std::string_view text) {
  std::vector<std::string> parts;
  while (true) {
    const std::size_t comma = text.find(',');
    parts.emplace_back(text.substr(0, comma));
    if (comma == std::string_view::npos) return parts;
    text.remove_prefix(comma + 1);
  }
}

importer::Bounds boundsOf(std::string_view text) {
  const auto parts = splitAtCommas(text);
  importer::Bounds bounds{};
  if (parts.size() != bounds.size())
    throw CommandError(ExitCode::wrongUse,
                       fmt::format("--bounds: \"{}\" is not S,W,N,E in degrees", text));
  for (std::size_t i = 0; i < bounds.size(); ++i) bounds[i] = numberOf("--bounds", parts[i]);
  const auto [south, west, north, east] = bounds;
  if (south >= north || west >= east)
    throw CommandError(ExitCode::wrongUse,
                       "--bounds: the order is south, west, north, east, in degrees");
  return bounds;
}

std::pair<std::string, double> levelShiftOf(std::string_view text) {
  const std::size_t equals = text.rfind('=');
  if (equals == std::string_view::npos)
    throw CommandError(ExitCode::wrongUse,
                       fmt::format("--level-shift: \"{}\" is not BUILDING=N", text));
  return {std::string(text.substr(0, equals)), numberOf("--level-shift", text.substr(equals + 1))};
}

void showProgress(std::string_view stage, double share) {
  ProgressLine::standardError().show(share > 0.0
                                         ? fmt::format("{} ... {:.0f} %", stage, share * 100.0)
                                         : fmt::format("{} ...", stage),
                                     ProgressLine::Clock::now());
}

void write(const importer::Building& building, const ImportOptions& options) try {
  if (!options.quiet) showProgress("writing", 0.0);
  importer::writePackage(building, options.output,
                         options.quiet ? importer::Progress() : showProgress);
} catch (const std::runtime_error& error) {
  throw CommandError(ExitCode::outputFailed, error.what());
}

void writeReport(const importer::Building& building, const importer::Findings& findings,
                 const ImportOptions& options) try {
  importer::writeReport(importer::buildingReport(building, findings, sourceNames(options)),
                        *options.report);
} catch (const std::runtime_error& error) {
  throw CommandError(ExitCode::outputFailed, error.what());
}

std::string findingsPhrase(const importer::Findings& findings, const ImportOptions& options) {
  const std::size_t count =
      findings.count(importer::Severity::violation) + findings.count(importer::Severity::warning);
  if (count == 0) return "nothing to look at";
  const std::string phrase =
      fmt::format("{} {} to look at", count, count == 1 ? "thing" : "things");
  return options.report ? fmt::format("{}: {}", phrase, *options.report)
                        : phrase + " (--report FILE.html lists them)";
}

std::string summaryJson(const importer::Summary& summary, const ImportOptions& options,
                        bool written) {
  return text::jsonText(json::object{
      {"package", written ? json::value(options.output.string()) : json::value(nullptr)},
      {"floors", summary.floors},
      {"rooms", summary.rooms},
      {"roomsReachable", summary.roomsReachable},
      {"doorsGuessed", summary.doorsGuessed},
      {"lifts", summary.elevators},
      {"escalators", summary.escalators},
      {"stairs", summary.stairs},
      {"ramps", summary.ramps}});
}

importer::Building readBuilding(const ImportOptions& options, importer::Findings& findings) try {
  package::ReplacedFolder::checked(options.output, "import");
  return importer::importBuilding(importerOptions(options), findings);
} catch (const importer::SourceError& error) {
  throw CommandError(ExitCode::unreadableSource, error.what());
} catch (const CommandError&) {
  throw;
} catch (const std::runtime_error& error) {
  throw CommandError(ExitCode::wrongUse, error.what());
}

}  // namespace

importer::Options importerOptions(const ImportOptions& given) {
  importer::Options options;
  options.sources = given.sources;
  if (given.format)
    for (const auto& [name, format] : formats)
      if (name == *given.format) options.format = format;
  options.building = given.building;
  if (given.bounds) options.bounds = boundsOf(*given.bounds);
  for (const std::string& list : given.languages)
    for (const std::string& language : splitAtCommas(list))
      if (!language.empty()) options.languages.push_back(text::lowerCase(language));
  for (const std::string& shift : given.levelShifts)
    options.levelShifts.insert(levelShiftOf(shift));
  options.storeyHeight = given.storeyHeight;
  options.network = given.network == "source"   ? importer::NetworkChoice::source
                    : given.network == "derive" ? importer::NetworkChoice::derive
                                                : importer::NetworkChoice::automatic;
  options.doors =
      given.doors == "strict" ? importer::DoorChoice::strict : importer::DoorChoice::guess;
  options.attribution = given.attribution;
  options.license = given.license;
  if (given.fixes) options.fixes = *given.fixes;
  if (!given.quiet) options.progress = showProgress;
  return options;
}

std::string sourceNames(const ImportOptions& options) {
  std::vector<std::string> names;
  names.reserve(options.sources.size());
  for (const auto& source : options.sources) names.push_back(source.string());
  return fmt::format("{}", fmt::join(names, " "));
}

std::vector<std::string> importFormats() {
  std::vector<std::string> names;
  names.reserve(formats.size());
  for (const auto& [name, format] : formats) names.emplace_back(name);
  return names;
}

ExitCode importBuilding(const ImportOptions& options) {
  importer::Findings findings;
  const importer::Building building = readBuilding(options, findings);
  const bool refused = options.strict && findings.count(importer::Severity::violation) +
                                                 findings.count(importer::Severity::warning) >
                                             0;
  if (!refused) write(building, options);
  if (options.report) writeReport(building, findings, options);
  ProgressLine::standardError().clear();
  const importer::Summary summary = importer::summarize(building);
  if (options.json)
    writeOutput(findingsJson(findings, sourceNames(options)) +
                summaryJson(summary, options, !refused) + "\n");
  else
    writeOutput(
        fmt::format("{}; {}\n", importer::summaryText(summary), findingsPhrase(findings, options)));
  if (refused)
    complain(fmt::format("{} was not written because of --strict", options.output.string()));
  return refused ? ExitCode::notFound : ExitCode::success;
}

}  // namespace orivanta::command
