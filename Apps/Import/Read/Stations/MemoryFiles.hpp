// Lets shapelib read files in memory.
#pragma once

#include <shapefil.h>

#include <map>
#include <string>
#include <string_view>

namespace orivanta::importer {

/// As long as it exists, files with these names can be opened with the hooks on this thread. Only
/// one may exist per thread.
class MemoryFiles {
 public:
  explicit MemoryFiles(std::map<std::string, std::string_view> files);
  ~MemoryFiles();
  MemoryFiles(const MemoryFiles&) = delete;
  MemoryFiles& operator=(const MemoryFiles&) = delete;

  SAHooks* hooks() { return &hooks_; }

 private:
  std::map<std::string, std::string_view> files_;
  SAHooks hooks_;
};

}  // namespace orivanta::importer
