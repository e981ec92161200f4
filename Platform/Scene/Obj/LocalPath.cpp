#include "Platform/Scene/Obj/LocalPath.hpp"

#include <algorithm>
#include <string>

namespace orivanta::scene::obj {

std::optional<std::filesystem::path> localPath(std::string_view name) {
  constexpr std::size_t longestName = 4096;
  if (name.size() > longestName || name.find('\0') != std::string_view::npos) return std::nullopt;
  std::string text(name);
  std::replace(text.begin(), text.end(), '\\', '/');
  const bool hasDrive = text.size() > 1 && text[1] == ':';
  if (hasDrive) text.replace(0, 2, "/");
  auto path = std::filesystem::path(text).lexically_normal();
  if (path.is_absolute() || (!path.empty() && *path.begin() == "..")) path = path.filename();
  const auto last = path.filename();
  if (last.empty() || last == "." || last == "..") return std::nullopt;
  return path;
}

}  // namespace orivanta::scene::obj
