// Reads the input as an XML or binary property list.
#include <sys/mman.h>
#include <unistd.h>

#include <string>

#include "Fuzz/Fuzzer.hpp"
#include "Platform/Foundation/PropertyList.hpp"

namespace orivanta::foundation {
namespace {

void readFromMemory(std::string_view input) {
  static const int file = ::memfd_create("settings", 0);
  static const std::string path = "/proc/self/fd/" + std::to_string(file);
  ORIVANTA_REQUIRE(::ftruncate(file, 0) == 0);
  ORIVANTA_REQUIRE(::pwrite(file, input.data(), input.size(), 0) ==
                   static_cast<::ssize_t>(input.size()));
  readPropertyList(path);
}

}  // namespace
}  // namespace orivanta::foundation

ORIVANTA_FUZZER(PropertyList, orivanta::foundation::readFromMemory)
