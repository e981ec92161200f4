#include "Apps/Package/ReplacedFolder.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "Apps/Package/WrittenFiles.hpp"
#include "Platform/Foundation/Files.hpp"

namespace orivanta::package {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const fs::path& path, std::string_view reason) {
  throw std::runtime_error(fmt::format("{}: {}", path.string(), reason));
}

std::error_code lastError() { return {errno, std::generic_category()}; }

[[noreturn]] void failToReplace(const fs::path& target, const std::error_code& error) {
  if (error == std::errc::device_or_resource_busy || error == std::errc::cross_device_link)
    fail(target, "a mounted folder cannot be replaced; choose a folder inside it");
  fail(target, error.message());
}

bool contains(const fs::path& file, std::string_view bytes) {
  std::error_code error;
  if (fs::file_size(file, error) != bytes.size() || error) return false;
  const auto contents = foundation::readFile(file, bytes.size());
  return contents && *contents == bytes;
}

// Both names then lead to the file, or the new one to a copy if the file system has no links.
void keep(const fs::path& file, const fs::path& kept) {
  std::error_code error;
  fs::create_directories(kept.parent_path(), error);
  if (!error) fs::create_hard_link(file, kept, error);
  if (error && error != std::errc::file_exists && error != std::errc::not_a_directory)
    fs::copy(file, kept, fs::copy_options::copy_symlinks, error);
  if (error == std::errc::file_exists || error == std::errc::not_a_directory)
    fail(file,
         "this file is not from the command that replaces the folder, which writes a file of "
         "the same name; rename it or move it away");
  if (error) fail(file, error.message());
}

}  // namespace

fs::path ReplacedFolder::checked(const fs::path& target, std::string_view command) {
  if (target.empty()) throw std::runtime_error("the name of the folder to write is empty");
  fs::path folder = fs::weakly_canonical(fs::absolute(target));
  if (!folder.has_filename()) folder = folder.parent_path();
  if (!fs::exists(folder)) return folder;
  if (!fs::is_directory(folder)) fail(target, "exists and is no folder; choose another name");
  if (fs::is_empty(folder)) return folder;
  WrittenFiles listed(command);
  if (!listed.load(folder))
    fail(target, fmt::format("the folder exists and is not replaced, because `orivanta {}` did not "
                             "write it; choose another name, or remove it",
                             command));
  if (const auto changed = listed.changedIn(folder))
    fail(folder / *changed,
         "the file was changed after it was written, so the folder is not replaced; move the file "
         "away, or choose another name for the folder");
  return folder;
}

ReplacedFolder::ReplacedFolder(const fs::path& target, std::string_view command)
    : command_(command), target_(checked(target, command)) {
  for (fs::path parent = target_.parent_path(); !fs::exists(parent); parent = parent.parent_path())
    madeParents_.push_back(parent);
  std::error_code error;
  fs::create_directories(target_.parent_path(), error);
  std::string pattern = target_.parent_path() / ("." + target_.filename().string() + ".XXXXXX");
  if (!error && ::mkdtemp(pattern.data()) == nullptr) error = lastError();
  if (error) {
    removeParents();
    fail(target, error.message());
  }
  folder_ = pattern;
  fs::permissions(folder_, fs::perms(0755));
}

ReplacedFolder::~ReplacedFolder() {
  std::error_code ignored;
  if (folder_.empty()) return;
  fs::remove_all(folder_, ignored);
  removeParents();
}

// Those that are not empty stay.
void ReplacedFolder::removeParents() const {
  std::error_code ignored;
  for (const fs::path& parent : madeParents_) fs::remove(parent, ignored);
}

void ReplacedFolder::stopIfInterrupted() const {
  if (signals_.arrived())
    fail(target_, "the folder was not written, because the program was interrupted");
}

void ReplacedFolder::write(const fs::path& name, std::string_view bytes) {
  stopIfInterrupted();
  const fs::path file = folder_ / name;
  std::error_code error;
  fs::create_directories(file.parent_path(), error);
  if (error) fail(target_ / name, error.message());
  errno = EIO;
  std::ofstream stream(file, std::ios::binary);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  stream.close();
  if (!stream) fail(target_ / name, lastError().message());
  if (!contains(target_ / name, bytes)) return;
  const auto time = fs::last_write_time(target_ / name, error);
  if (!error) fs::last_write_time(file, time, error);  // if it fails, clients fetch the file again
}

void ReplacedFolder::commit() {
  checked(target_, command_);  // it may have changed in the meantime
  WrittenFiles(command_).save(folder_);
  keepFilesOfOthers();
  stopIfInterrupted();
  exchange();
  const fs::path old = std::exchange(folder_, {});
  std::error_code error;
  fs::remove_all(old, error);
  if (error) fail(old, error.message());
}

void ReplacedFolder::keepFilesOfOthers() {
  WrittenFiles listed(command_);
  if (!listed.load(target_)) return;
  for (const fs::path& name : listed.othersIn(target_)) keep(target_ / name, folder_ / name);
}

// Afterward `folder_` is the old folder, if there was one.
void ReplacedFolder::exchange() {
  if (::rename(folder_.c_str(), target_.c_str()) == 0) return;  // there was none, or an empty one
  if (errno != ENOTEMPTY && errno != EEXIST) failToReplace(target_, lastError());
  if (::renameat2(AT_FDCWD, folder_.c_str(), AT_FDCWD, target_.c_str(), RENAME_EXCHANGE) == 0)
    return;
  if (errno != EINVAL && errno != ENOSYS) failToReplace(target_, lastError());
  // The file system cannot exchange folders; the target is missing for a moment.
  const fs::path old = folder_.string() + ".old";
  if (::rename(target_.c_str(), old.c_str()) != 0) failToReplace(target_, lastError());
  if (::rename(folder_.c_str(), target_.c_str()) != 0) {
    const std::error_code error = lastError();
    if (::rename(old.c_str(), target_.c_str()) != 0) fail(old, "the old folder is now here");
    failToReplace(target_, error);
  }
  folder_ = old;
}

}  // namespace orivanta::package
