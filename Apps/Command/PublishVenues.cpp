#include "Apps/Command/PublishVenues.hpp"

#include <fmt/format.h>

#include <memory>
#include <stdexcept>
#include <utility>

#include "Apps/Check/CheckPackage.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Import/Report/Report.hpp"
#include "Apps/Publish/StaticFiles.hpp"
#include "Apps/Server/PackageError.hpp"

namespace orivanta::command {

namespace {

void refuseViolations(const server::VenuePackage& package) {
  const importer::Findings findings = check::checkPackage(package.source);
  if (findings.count(importer::Severity::violation) == 0) return;
  throw CommandError(ExitCode::wrongUse,
                     fmt::format("{0}: {1}; run `orivanta check {0}`, or publish with --force",
                                 package.source.string(), importer::summaryOf(findings)));
}

std::string summaryOf(const publish::Publication& publication, const PublishOptions& options) {
  std::string baseUrl = options.baseUrl;
  while (baseUrl.ends_with('/')) baseUrl.pop_back();
  std::string text;
  for (const publish::PublishedVenue& venue : publication.venues) {
    text += fmt::format("{}/{}/default/1/\n", baseUrl, venue.slug);
    for (const std::string& language : venue.languages)
      text += fmt::format("{}/{}/{}/1/\n", baseUrl, venue.slug, language);
  }
  const auto megabytes = [](std::size_t bytes) { return static_cast<double>(bytes) / 1e6; };
  return text + fmt::format("{} files, {:.1f} MB ({:.1f} MB compressed)\n", publication.files,
                            megabytes(publication.bytes), megabytes(publication.compressedBytes));
}

}  // namespace

ExitCode publishVenues(const PublishOptions& options) try {
  const server::CrossOrigin crossOrigin(options.allowedOrigins);
  std::vector<std::shared_ptr<const server::VenuePackage>> packages;
  for (server::VenuePackage& package : server::readPackages(options.packages)) {
    if (!options.force) refuseViolations(package);
    packages.push_back(std::make_shared<const server::VenuePackage>(std::move(package)));
  }
  writeOutput(summaryOf(
      publish::publishVenues(packages, options.output, options.baseUrl, crossOrigin), options));
  return ExitCode::success;
} catch (const server::PackageError& error) {
  throw CommandError(ExitCode::wrongUse, error.what());
} catch (const publish::PublishError& error) {
  throw CommandError(ExitCode::wrongUse, error.what());
} catch (const std::invalid_argument& error) {
  throw CommandError(ExitCode::wrongUse, error.what());
} catch (const CommandError&) {
  throw;
} catch (const std::runtime_error& error) {
  throw CommandError(ExitCode::outputFailed, error.what());
}

}  // namespace orivanta::command
