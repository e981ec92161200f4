// Files that are embedded in the library, so that they need not be installed.
// Public header.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// One embedded file.
struct Resource {
  std::string_view fileName;            ///< such as "MapLogo.png"
  std::span<const std::uint8_t> bytes;  ///< the contents of the file
};

/// A read-only set of embedded files that lives as long as the process. The build generates a
/// bundle and the function that adds it from a folder (`orivanta_resources` in
/// cmake/OrivantaResources.cmake).
class ORIVANTA_API ResourceBundle {
 public:
  /// Registers a bundle and returns it. `version` must change with the contents. The data that the
  /// arguments refer to must live as long as the process. If the identifier is already registered,
  /// returns the existing bundle unchanged. Any thread.
  static const ResourceBundle& add(std::string_view identifier, std::string_view version,
                                   std::span<const Resource> resources);

  /// Returns the bundle with this identifier, or null if none was added. Any thread.
  static const ResourceBundle* find(std::string_view identifier);

  /// Returns all files. Any thread.
  std::span<const Resource> resources() const { return resources_; }

  /// Returns the contents of the file "name.type", or nothing if there is no such file. Any thread.
  std::optional<std::span<const std::uint8_t>> bytes(std::string_view name,
                                                     std::string_view type) const;

  /// Returns the path of a copy of the file "name.type" on disk. The whole bundle is written to a
  /// folder for this version below the caches directory, and is kept there for later use. Returns
  /// nothing if there is no such file or the bundle cannot be written. Any thread.
  std::optional<std::filesystem::path> file(std::string_view name, std::string_view type) const;

 private:
  ResourceBundle(std::string_view identifier, std::string_view version,
                 std::span<const Resource> resources)
      : identifier_(identifier), version_(version), resources_(resources) {}
  const Resource* resource(std::string_view fileName) const;

  std::string_view identifier_;
  std::string_view version_;
  std::span<const Resource> resources_;
};

}  // namespace orivanta::foundation
