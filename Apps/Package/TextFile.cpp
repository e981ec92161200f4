#include "Apps/Package/TextFile.hpp"

#include <stdexcept>

#include "Platform/Foundation/Files.hpp"

namespace orivanta::package {

void writeFile(const std::filesystem::path& file, std::string_view bytes) {
  if (const auto written = foundation::writeFileAtomically(file, bytes); !written)
    throw std::runtime_error(written.error().description);
}

}  // namespace orivanta::package
