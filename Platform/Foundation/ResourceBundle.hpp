// Files that travel inside the library, so that nothing has to be installed beside it.
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

/// Read-only and alive as long as the process. The build makes one from a folder
/// (`orivanta_resources` in cmake/OrivantaResources.cmake) together with the function that adds it.
class ORIVANTA_API ResourceBundle {
 public:
  /// Makes a bundle known. `version` changes with the contents; what the arguments refer to lives
  /// as long as the process. An identifier that is known already keeps its bundle, which is what
  /// then comes back. Any thread.
  static const ResourceBundle& add(std::string_view identifier, std::string_view version,
                                   std::span<const Resource> resources);

  /// Null when no bundle of this identifier was added. Any thread.
  static const ResourceBundle* find(std::string_view identifier);

  /// The contents of the file "name.type"; nothing when there is none. Any thread.
  std::optional<std::span<const std::uint8_t>> bytes(std::string_view name,
                                                     std::string_view type) const;

  /// The same file as one on disk, for readers that need a path. All of the bundle is written
  /// below the caches directory, to a folder for this version, where it stays for the next time.
  /// Nothing when there is no such file or it cannot be written. Any thread.
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
