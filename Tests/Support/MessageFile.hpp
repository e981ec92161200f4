// Makes compiled message files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orivanta::test {

/// Returns a file with these pairs of an original ("key\4text") and its translation.
inline std::string messageFile(
    const std::vector<std::pair<std::string_view, std::string_view>>& messages,
    bool bigEndian = false) {
  std::string file;
  std::string texts;
  const auto add = [&](std::size_t number) {
    for (unsigned i = 0; i < 4; ++i)
      file += static_cast<char>(number >> 8U * (bigEndian ? 3 - i : i) & 0xFFU);
  };
  const std::size_t tableBytes = 8 * messages.size();
  for (const std::size_t number :
       {std::size_t{0x950412de}, std::size_t{0}, messages.size(), std::size_t{28}, 28 + tableBytes,
        std::size_t{0}, std::size_t{0}})
    add(number);
  for (const auto part : {&std::pair<std::string_view, std::string_view>::first,
                          &std::pair<std::string_view, std::string_view>::second}) {
    for (const auto& message : messages) {
      add((message.*part).size());
      add(28 + 2 * tableBytes + texts.size());
      texts += message.*part;
      texts += '\0';
    }
  }
  return file + texts;
}

}  // namespace orivanta::test
