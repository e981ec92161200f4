// Where the demo venue is, so that a server without folders has something to serve.
#pragma once

#include <filesystem>
#include <optional>

namespace orivanta::demo {

/// The package that was installed beside the running program, else the one of the build that the
/// program comes from; nothing when there is neither.
std::optional<std::filesystem::path> demoVenueFolder();

}  // namespace orivanta::demo
