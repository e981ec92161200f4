// Unpacks zip archives.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Import/Read/Sources.hpp"

namespace orivanta::importer {

/// Whether the file begins as a zip archive does.
bool isZipArchive(std::string_view bytes);

/// Unpacks the members for whose names `wanted` returns true, in the order of their names.
/// `bytesLeft` is what all of them may have together, and is reduced by what they have. Throws
/// `SourceError` if the archive is damaged, encrypted or larger.
std::vector<SourceFile> unpackZip(const std::filesystem::path& path, const std::string& name,
                                  const std::function<bool(std::string_view)>& wanted,
                                  std::size_t& bytesLeft);

}  // namespace orivanta::importer
