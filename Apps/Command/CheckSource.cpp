#include "Apps/Command/CheckSource.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <exception>

#include "Apps/Check/CheckPackage.hpp"
#include "Apps/Check/PackagePlan.hpp"
#include "Apps/Command/FindingTexts.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/ProgressLine.hpp"
#include "Apps/Import/Import.hpp"
#include "Apps/Import/Report/Report.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::command {

namespace fs = std::filesystem;

namespace {

// The packages that a path stands for; empty if it is a source.
std::vector<fs::path> packagesAt(const fs::path& path) {
  std::error_code ignored;
  if (!fs::is_directory(path, ignored)) return {};
  if (check::isPackage(path)) return {path};
  std::vector<fs::path> packages;
  for (const auto& entry : fs::directory_iterator(path, ignored))
    if (entry.is_directory(ignored) && check::isPackage(entry.path()))
      packages.push_back(entry.path());
  std::sort(packages.begin(), packages.end());
  return packages;
}

// The packages of all paths; empty if these are the files of a source.
std::vector<fs::path> packagesAt(const std::vector<fs::path>& paths) {
  std::vector<fs::path> packages;
  for (const fs::path& path : paths) {
    const auto here = packagesAt(path);
    if (here.empty()) return {};
    packages.insert(packages.end(), here.begin(), here.end());
  }
  return packages;
}

ExitCode print(const importer::Findings& findings, const std::string& source,
               const CheckOptions& options) {
  writeOutput(options.json ? findingsJson(findings, source) : findingsText(findings, source));
  const bool failed = findings.count(importer::Severity::violation) > 0 ||
                      (options.strict && findings.count(importer::Severity::warning) > 0);
  return failed ? ExitCode::notFound : ExitCode::success;
}

void writeReport(const importer::Report& report, const std::string& file) try {
  importer::writeReport(report, file);
} catch (const std::runtime_error& error) {
  throw CommandError(ExitCode::outputFailed, error.what());
}

ExitCode checkPackages(const std::vector<fs::path>& packages, const CheckOptions& options) {
  if (options.html && packages.size() != 1)
    throw CommandError(ExitCode::wrongUse, "--html needs exactly one package or source");
  ExitCode code = ExitCode::success;
  for (const fs::path& package : packages) {
    const importer::Findings findings = check::checkPackage(package);
    if (print(findings, package.string(), options) != ExitCode::success) code = ExitCode::notFound;
    if (options.html) writeReport(check::packageReport(package, findings), *options.html);
  }
  return code;
}

ExitCode checkFiles(const CheckOptions& options) try {
  importer::Findings findings;
  const importer::Building building =
      importer::importBuilding(importerOptions(options.import), findings);
  ProgressLine::standardError().clear();
  const std::string source = sourceNames(options.import);
  if (options.html)
    writeReport(importer::buildingReport(building, findings, source), *options.html);
  return print(findings, source, options);
} catch (const importer::SourceError& error) {
  throw CommandError(ExitCode::unreadableSource, error.what());
} catch (const CommandError&) {
  throw;
} catch (const std::runtime_error& error) {
  throw CommandError(ExitCode::wrongUse, error.what());
}

}  // namespace

ExitCode checkSource(const CheckOptions& options) {
  for (const fs::path& path : options.import.sources) {
    std::error_code ignored;
    if (!fs::exists(path, ignored))
      throw CommandError(ExitCode::wrongUse, path.string() + ": no such file or folder");
  }
  const std::vector<fs::path> packages = packagesAt(options.import.sources);
  return packages.empty() ? checkFiles(options) : checkPackages(packages, options);
}

std::string checkAdvice(const std::vector<fs::path>& folders) {
  if (packagesAt(folders).empty()) return {};
  std::string advice = "; run `orivanta check";
  for (const fs::path& folder : folders) advice += ' ' + folder.string();
  return advice + '`';
}

void summarizePackages(const std::vector<fs::path>& folders) noexcept try {
  for (const fs::path& package : packagesAt(folders)) {
    const importer::Findings findings = check::checkPackage(package, check::Depth::records);
    if (findings.count(importer::Severity::violation) +
            findings.count(importer::Severity::warning) ==
        0)
      continue;
    complain(fmt::format("{}: {}; run `orivanta check {}`", package.string(),
                         importer::summaryOf(findings), package.string()));
  }
} catch (const std::exception&) {
  return;  // the server works without the summary
}

}  // namespace orivanta::command
