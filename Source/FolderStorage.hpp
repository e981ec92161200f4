// Keeps the entries of a VenueStore in a folder.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/VenueStorage.hpp"

namespace orivanta {

/// Each entry is a file with its checksum, which replaces the former one atomically: processes see
/// either of the two, even if the disk is full, another process writes the same entry, or a process
/// or the system stops. A file whose length or checksum is wrong is removed when it is read. Only
/// the current user can read the folder.
///
/// Calls every callback before the function returns. Thread-safe.
class ORIVANTA_API FolderStorage : public VenueStorage {
 public:
  /// `folder` is created when it is needed. The folders of entries are below `filesFolder`, which
  /// is the cache folder for the files that a `MapView` fetches.
  FolderStorage(std::filesystem::path folder, std::filesystem::path filesFolder);

  void list(std::function<void(std::vector<Listed>)> done) override;
  void load(const std::string& key, std::function<void(std::optional<Loaded>)> done) override;

  /// An entry that has not changed is not written again.
  void save(const std::string& key, Entry entry,
            std::function<void(foundation::Result<void>)> done) override;
  void remove(const std::string& key, std::function<void(bool)> done) override;
  std::shared_ptr<void> hold(const std::string& key) override;

 private:
  std::filesystem::path fileOf(const std::string& key) const;
  std::filesystem::path lockOf(const std::string& key) const;

  const std::filesystem::path folder_;
  const std::filesystem::path filesFolder_;
};

}  // namespace orivanta
