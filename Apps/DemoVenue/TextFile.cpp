#include "Apps/DemoVenue/TextFile.hpp"

#include <stdexcept>

#include "Platform/Foundation/Files.hpp"

namespace orivanta::demo {

void writeFile(const std::filesystem::path& file, std::string_view bytes) {
  if (const auto error = foundation::writeFileAtomically(file, bytes))
    throw std::runtime_error(error->description);
}

}  // namespace orivanta::demo
