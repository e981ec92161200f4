#include "Platform/Foundation/Bundle.hpp"

#include <algorithm>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

#include "Platform/Foundation/ExecutablePath.hpp"
#include "Platform/Foundation/UserFolder.hpp"

namespace orivanta::foundation {

namespace fs = std::filesystem;

namespace {

struct MainBundle {
  std::mutex mutex;
  std::optional<fs::path> folder;
};

MainBundle& mainBundle() {
  static auto& instance = *new MainBundle;
  return instance;
}

std::vector<fs::path> mainBundleFolders() {
  const std::lock_guard lock(mainBundle().mutex);
  if (mainBundle().folder) return {*mainBundle().folder};
  std::vector<fs::path> folders;
  const fs::path executable = executablePath();
  if (executable.empty()) return folders;
  folders.push_back(executable.parent_path() / "Resources");
  if (const auto configuration = userFolder("XDG_CONFIG_HOME", ".config"))
    folders.push_back(*configuration);
  return folders;
}

}  // namespace

void setMainBundleFolder(fs::path folder) {
  const std::lock_guard lock(mainBundle().mutex);
  mainBundle().folder = std::move(folder);
}

std::vector<fs::path> mainBundleFiles(std::string_view type) {
  const std::string extension = "." + std::string(type);
  std::vector<fs::path> files;
  for (const fs::path& folder : mainBundleFolders()) {
    const auto firstOfFolder = static_cast<std::ptrdiff_t>(files.size());
    std::error_code failure;
    fs::directory_iterator entry(folder, failure);
    while (!failure && entry != fs::directory_iterator()) {
      std::error_code statusFailure;
      if (entry->path().extension() == extension && entry->is_regular_file(statusFailure))
        files.push_back(entry->path());
      entry.increment(failure);
    }
    std::sort(files.begin() + firstOfFolder, files.end());
  }
  return files;
}

}  // namespace orivanta::foundation
