// Converts texts of other encodings to UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orivanta::importer {

bool isUtf8(std::string_view text);

/// The name of the encoding that a .cpg file contains, as iconv knows it; empty if iconv does not
/// know it.
std::string encodingOf(std::string_view cpg);

/// The text in UTF-8. Bytes that are not valid in the encoding become U+FFFD.
std::string toUtf8(std::string_view text, const std::string& encoding);

/// Converts the text of a file to UTF-8 if it says that it has another encoding: UTF-16 by its byte
/// order mark, XML in its first line. Returns false if the result is longer than `most` bytes.
bool decodeText(std::string& text, std::size_t most);

}  // namespace orivanta::importer
