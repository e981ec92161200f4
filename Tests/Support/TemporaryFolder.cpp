#include "Tests/Support/TemporaryFolder.hpp"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace orivanta::test {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (fs::temp_directory_path() / "orivanta-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr)
    throw std::runtime_error("cannot create a temporary folder");
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

fs::path TemporaryFolder::write(const fs::path& name, std::string_view contents) const {
  fs::path file = path_ / name;
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary)
      .write(contents.data(), static_cast<std::streamsize>(contents.size()));
  return file;
}

}  // namespace orivanta::test
