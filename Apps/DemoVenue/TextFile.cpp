#include "Apps/DemoVenue/TextFile.hpp"

#include <fstream>
#include <stdexcept>

namespace orivanta::demo {

void writeFile(const std::filesystem::path& file, std::string_view bytes) {
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!stream.flush()) throw std::runtime_error("cannot write " + file.string());
}

}  // namespace orivanta::demo
