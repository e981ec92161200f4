// Copies of a station network beside each other, as a larger source of the same kind.
#pragma once

#include <cstddef>
#include <filesystem>

namespace orivanta::benchmarks {

/// Writes the GeoJSON files in `folder` with `copies` of each feature to `target`, in a square
/// grid. Each copy has identifiers of its own. Returns the number of positions that were written.
/// Throws `std::runtime_error` if a file cannot be read or written.
std::size_t repeatSource(const std::filesystem::path& folder, std::size_t copies,
                         const std::filesystem::path& target);

}  // namespace orivanta::benchmarks
