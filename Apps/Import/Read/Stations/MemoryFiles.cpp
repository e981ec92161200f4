#include "Apps/Import/Read/Stations/MemoryFiles.hpp"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

#include "Apps/Import/Read/JsonMembers.hpp"

namespace orivanta::importer {

namespace {

struct OpenFile {
  std::string_view bytes;
  SAOffset at = 0;
};

thread_local const std::map<std::string, std::string_view>* currentFiles = nullptr;

OpenFile& fileOf(SAFile handle) { return *reinterpret_cast<OpenFile*>(handle); }

SAFile openFile(const char* name, const char*) {
  const auto found = currentFiles->find(name);
  if (found == currentFiles->end()) return nullptr;
  return reinterpret_cast<SAFile>(new OpenFile{found->second});
}

SAOffset readFile(void* target, SAOffset size, SAOffset count, SAFile handle) {
  OpenFile& file = fileOf(handle);
  if (size == 0 || file.at >= file.bytes.size()) return 0;
  const SAOffset whole = std::min<SAOffset>(count, (file.bytes.size() - file.at) / size);
  std::memcpy(target, file.bytes.data() + file.at, whole * size);
  file.at += whole * size;
  return whole;
}

SAOffset writeFile(void*, SAOffset, SAOffset, SAFile) { return 0; }

SAOffset seekFile(SAFile handle, SAOffset offset, int whence) {
  OpenFile& file = fileOf(handle);
  if (whence == SEEK_CUR) offset += file.at;
  if (whence == SEEK_END) offset += file.bytes.size();
  file.at = offset;
  return 0;
}

SAOffset tellFile(SAFile handle) { return fileOf(handle).at; }

int flushFile(SAFile) { return 0; }

int closeFile(SAFile handle) {
  delete &fileOf(handle);
  return 0;
}

int removeFile(const char*) { return -1; }

void ignoreError(const char*) {}

double toNumber(const char* text) { return numberIn(text).value_or(0.0); }

}  // namespace

MemoryFiles::MemoryFiles(std::map<std::string, std::string_view> files)
    : files_(std::move(files)), hooks_{openFile,  readFile,  writeFile,  seekFile,    tellFile,
                                       flushFile, closeFile, removeFile, ignoreError, toNumber} {
  currentFiles = &files_;
}

MemoryFiles::~MemoryFiles() { currentFiles = nullptr; }

}  // namespace orivanta::importer
