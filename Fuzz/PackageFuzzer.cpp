// Reads the files of a venue package, separated by lines "%%", in the order of `RecordKind` and
// with the model of a floor at the end. The check must describe them, and a package without
// violations must be one that the server reads without loss.
#include <string>
#include <string_view>

#include "Apps/Check/CheckPackage.hpp"
#include "Apps/Check/PackagePlan.hpp"
#include "Apps/Check/PackageRecords.hpp"
#include "Apps/Server/VenuePackage.hpp"
#include "Fuzz/Fuzzer.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::check {
namespace {

void checkInput(std::string_view input) {
  static const test::TemporaryFolder folder;
  for (std::size_t index = 0; index < recordKindCount; ++index)
    folder.write(std::string(nameOf(static_cast<RecordKind>(index))) + ".json",
                 fuzz::takeUpTo("\n%%\n", input));
  folder.write("floor.obj", input);
  const importer::Findings findings = checkPackage(folder.path());
  for (const importer::Finding& finding : findings.sorted())
    ORIVANTA_REQUIRE(!finding.message.empty() && !finding.effect.empty() &&
                     !finding.advice.empty());
  const importer::Report report = packageReport(folder.path(), findings);
  ORIVANTA_REQUIRE(reportHtml(report).ends_with("</html>\n"));
  if (findings.count(importer::Severity::violation) > 0) return;
  const server::VenuePackage package = server::readPackage(folder.path());
  ORIVANTA_REQUIRE(!package.slug.empty());
}

}  // namespace
}  // namespace orivanta::check

ORIVANTA_FUZZER(Package, orivanta::check::checkInput)
