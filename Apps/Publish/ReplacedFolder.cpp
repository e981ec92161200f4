#include "Apps/Publish/ReplacedFolder.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include "Platform/Foundation/Files.hpp"

namespace orivanta::publish {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const fs::path& path, const std::error_code& error) {
  throw std::runtime_error(fmt::format("{}: {}", path.string(), error.message()));
}

std::error_code lastError() { return {errno, std::generic_category()}; }

bool contains(const fs::path& file, std::string_view bytes) {
  std::error_code error;
  if (fs::file_size(file, error) != bytes.size() || error) return false;
  const auto contents = foundation::readFile(file, bytes.size());
  return contents && *contents == bytes;
}

}  // namespace

ReplacedFolder::ReplacedFolder(const fs::path& target)
    : target_(target), folder_(target.string() + fmt::format(".new-{}", ::getpid())) {
  std::error_code error;
  fs::create_directories(target_.parent_path(), error);
  if (!error) fs::remove_all(folder_, error);  // of a process that was killed
  if (!error) fs::create_directory(folder_, error);
  if (error) fail(folder_, error);
}

ReplacedFolder::~ReplacedFolder() {
  std::error_code ignored;
  if (!committed_) fs::remove_all(folder_, ignored);
}

void ReplacedFolder::write(const fs::path& name, std::string_view bytes) {
  const fs::path file = folder_ / name;
  std::error_code error;
  fs::create_directories(file.parent_path(), error);
  if (error) fail(file, error);
  std::ofstream stream(file, std::ios::binary);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  stream.close();
  if (!stream) fail(file, std::make_error_code(std::errc::io_error));
  if (!contains(target_ / name, bytes)) return;
  const auto time = fs::last_write_time(target_ / name, error);
  if (!error) fs::last_write_time(file, time, error);  // if it fails, clients fetch the file again
}

void ReplacedFolder::commit() {
  if (::rename(folder_.c_str(), target_.c_str()) == 0) {  // there is none, or an empty one
    committed_ = true;
    return;
  }
  if (errno != ENOTEMPTY && errno != EEXIST) fail(target_, lastError());
  if (::renameat2(AT_FDCWD, folder_.c_str(), AT_FDCWD, target_.c_str(), RENAME_EXCHANGE) != 0) {
    if (errno != EINVAL && errno != ENOSYS) fail(target_, lastError());
    // The file system cannot exchange folders; the target is missing for a moment.
    const fs::path old = folder_.string() + ".old";
    if (::rename(target_.c_str(), old.c_str()) != 0) fail(target_, lastError());
    if (::rename(folder_.c_str(), target_.c_str()) != 0) {
      const std::error_code error = lastError();
      if (::rename(old.c_str(), target_.c_str()) != 0) fail(old, lastError());
      fail(target_, error);
    }
    folder_ = old;
  }
  committed_ = true;
  std::error_code error;
  fs::remove_all(folder_, error);  // now the old one
  if (error) fail(folder_, error);
}

}  // namespace orivanta::publish
