// Unpacks the input as a zip archive, and recognizes the format of the files in it.
#include <string_view>

#include "Fuzz/SourceFiles.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::importer {
namespace {

void checkArchive(std::string_view input) {
  static const test::TemporaryFolder folder;
  Limits limits;
  limits.bytes = 1U << 20U;
  try {
    const std::vector<SourceFile> files = readFiles({folder.write("a.zip", input)}, limits);
    std::size_t bytes = 0;
    for (const SourceFile& file : files) bytes += file.bytes.size();
    ORIVANTA_REQUIRE(!files.empty() && bytes <= limits.bytes);
    recognizeFormat(files);
  } catch (const SourceError& error) {
    ORIVANTA_REQUIRE(std::string_view(error.what()).substr(0, 5) == "a.zip");
  }
}

}  // namespace
}  // namespace orivanta::importer

ORIVANTA_FUZZER(Archive, orivanta::importer::checkArchive)
