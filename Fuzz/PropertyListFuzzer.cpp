// A file of settings, XML or binary.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "Platform/Foundation/PropertyList.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
  static const int file = ::memfd_create("settings", 0);
  static const std::string path = "/proc/self/fd/" + std::to_string(file);
  if (::ftruncate(file, 0) != 0) std::abort();
  if (::pwrite(file, bytes, count, 0) != static_cast<::ssize_t>(count)) std::abort();
  orivanta::foundation::readPropertyList(path);
  return 0;
}
