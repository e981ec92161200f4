// Writes zip archives for tests.
#pragma once

#include <zip.h>

#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace orivanta::test {

struct ArchiveMember {
  std::string name;
  std::string bytes;
  bool link = false;       ///< a symbolic link
  bool encrypted = false;  ///< with AES
};

inline void writeArchive(const std::filesystem::path& path,
                         const std::vector<ArchiveMember>& members) {
  zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  if (archive == nullptr) throw std::runtime_error("cannot write " + path.string());
  for (const ArchiveMember& member : members) {
    zip_source_t* source = zip_source_buffer(archive, member.bytes.data(), member.bytes.size(), 0);
    const auto index =
        static_cast<zip_uint64_t>(zip_file_add(archive, member.name.c_str(), source, 0));
    if (member.link)
      zip_file_set_external_attributes(archive, index, 0, ZIP_OPSYS_UNIX, 0120777U << 16U);
    if (member.encrypted) zip_file_set_encryption(archive, index, ZIP_EM_AES_256, "secret");
  }
  if (zip_close(archive) != 0) throw std::runtime_error(zip_strerror(archive));
}

}  // namespace orivanta::test
