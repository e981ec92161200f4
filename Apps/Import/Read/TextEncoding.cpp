#include "Apps/Import/Read/TextEncoding.hpp"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <limits>

#include "Apps/Import/Read/JsonMembers.hpp"

namespace orivanta::importer {

namespace {

class Converter {
 public:
  explicit Converter(const std::string& encoding)
      : handle_(iconv_open("UTF-8", encoding.c_str())) {}
  ~Converter() {
    if (isOpen()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  bool isOpen() const {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the value that iconv_open returns on failure
    return handle_ != reinterpret_cast<iconv_t>(std::intptr_t{-1});
  }

  // Stops when the result is longer than `most`.
  std::string convert(std::string_view text,
                      std::size_t most = std::numeric_limits<std::size_t>::max()) {
    std::string result;
    constexpr std::size_t mostBytes = 3;  // of what is one byte in most encodings
    if (text.size() > 4096) result.reserve(std::min(most, mostBytes * text.size()) + 4096);
    // iconv does not write through this pointer.
    char* from = const_cast<char*>(text.data());
    std::size_t left = text.size();
    while (left > 0 && result.size() <= most) {
      std::array<char, 4096> piece;
      char* to = piece.data();
      std::size_t room = piece.size();
      const std::size_t converted = iconv(handle_, &from, &left, &to, &room);
      result.append(piece.data(), to);
      if (converted != static_cast<std::size_t>(-1) || errno == E2BIG) continue;
      result += "\xEF\xBF\xBD";
      ++from;
      --left;
    }
    return result;
  }

 private:
  iconv_t handle_;
};

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char character) { return static_cast<unsigned char>(character) < 128; });
}

}  // namespace

bool isUtf8(std::string_view text) {
  if (isAscii(text)) return true;
  // Converting rejects what is not valid.
  Converter converter("UTF-8");
  return !converter.isOpen() || converter.convert(text) == text;
}

std::string encodingOf(std::string_view cpg) {
  std::string name(trimmed(cpg.substr(0, 64)));
  const std::string lower = lowerCase(name);
  // Windows calls its variant of Shift_JIS code page 932.
  if (lower.find("932") != lower.npos || lower.find("jis") != lower.npos) name = "CP932";
  if (!name.empty() && name.find_first_not_of("0123456789") == name.npos)
    name = name == "65001" ? "UTF-8" : "CP" + name;
  if (lower.starts_with("ansi ")) name = "CP" + name.substr(5);
  return !name.empty() && Converter(name).isOpen() ? name : std::string();
}

std::string toUtf8(std::string_view text, const std::string& encoding) {
  if (isAscii(text)) return std::string(text);
  Converter converter(encoding);
  return converter.isOpen() ? converter.convert(text) : std::string(text);
}

bool decodeText(std::string& text, std::size_t most) {
  const auto convert = [&](const std::string& encoding) {
    text = Converter(encoding).convert(text, most);
    text.shrink_to_fit();
    return text.size() <= most;
  };
  const std::string_view start = std::string_view(text).substr(0, 200);
  const bool isWide = start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF");
  if (isWide && !convert("UTF-16")) return false;
  const std::string_view declaration =
      std::string_view(text).substr(0, text.substr(0, 200).find("?>"));
  const std::size_t name = declaration.find("encoding=");
  if (!declaration.starts_with("<?xml") || name == declaration.npos) return true;
  const std::size_t from = name + 10;
  const std::size_t end = declaration.find_first_of("\"'", from);
  if (end == declaration.npos) return true;
  const std::string stated = lowerCase(declaration.substr(from, end - from));
  if (stated == "utf-8" || stated == "utf8" || stated == "us-ascii") return true;
  // Some programs declare the encoding that the text had in their memory. It can be read here, so
  // it has one byte for each letter of the declaration.
  const bool isConverted = isWide || stated.starts_with("utf-16") || stated.starts_with("utf-32");
  const std::string encoding = isConverted ? "UTF-8" : encodingOf(stated);
  if (encoding.empty()) return true;
  text.replace(from, end - from, "UTF-8");
  return isConverted || convert(encoding);
}

}  // namespace orivanta::importer
