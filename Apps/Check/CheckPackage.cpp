#include "Apps/Check/CheckPackage.hpp"

#include <fmt/format.h>

#include "Apps/Check/PackageExtras.hpp"
#include "Apps/Check/PackageFiles.hpp"
#include "Apps/Check/PackageLinks.hpp"
#include "Apps/Check/PackageNetwork.hpp"
#include "Apps/Check/PackageRecords.hpp"
#include "Apps/Check/RecordMembers.hpp"

namespace orivanta::check {

bool isPackage(const std::filesystem::path& folder) {
  std::error_code ignored;
  const auto has = [&](RecordKind kind) {
    return std::filesystem::exists(folder / fmt::format("{}.json", nameOf(kind)), ignored);
  };
  if (has(RecordKind::venue)) return true;
  return static_cast<int>(has(RecordKind::map)) + static_cast<int>(has(RecordKind::node)) +
             static_cast<int>(has(RecordKind::location)) +
             static_cast<int>(has(RecordKind::polygon)) >=
         2;
}

importer::Findings checkPackage(const std::filesystem::path& folder, Depth depth) {
  Findings findings;
  PackageRecords records(folder, findings);
  checkMembers(records, findings);
  checkIdentifiers(records, findings);
  checkLinks(records, findings);
  checkExtras(records, findings);
  checkFiles(records, findings);
  if (records[RecordKind::node].document) {
    checkNetwork(records, findings);
    checkConnectors(records, findings);
  }
  if (depth == Depth::all) checkModels(records, findings);
  return findings;
}

}  // namespace orivanta::check
