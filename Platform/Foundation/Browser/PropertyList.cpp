#include "Platform/Foundation/PropertyList.hpp"

namespace orivanta::foundation {

// A page passes its settings through the API.
std::optional<PropertyListDictionary> readPropertyList(const std::filesystem::path& /*file*/) {
  return std::nullopt;
}

}  // namespace orivanta::foundation
