#include "Tests/Support/BinaryPropertyLists.hpp"

#include <plist/plist.h>

#include <cstdlib>

namespace orivanta::test {

std::string binaryPropertyList(const std::string& xml) {
  plist_t root = nullptr;
  plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &root);
  char* bytes = nullptr;
  std::uint32_t length = 0;
  plist_to_bin(root, &bytes, &length);
  std::string binary(bytes, length);
  plist_free(root);
  std::free(bytes);
  return binary;
}

}  // namespace orivanta::test
