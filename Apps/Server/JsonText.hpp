// Splits JSON text without parsing its values, so that numbers and strings are kept as written.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orivanta::server {

// All functions take one well-formed JSON value, with optional white space around it. The results
// point into it.

struct JsonMember {
  std::string key;           ///< decoded
  std::string_view keyText;  ///< as written, with its quotes
  std::string_view value;
};

enum class JsonKind { object, array, text, other };

JsonKind jsonKind(std::string_view value);

/// The elements of an array, in order.
std::vector<std::string_view> jsonElements(std::string_view array);

/// The members of an object in order, including repeated keys.
std::vector<JsonMember> jsonMembers(std::string_view object);

/// The characters of a string, with escapes decoded.
std::string jsonTextContent(std::string_view text);

/// Appends the value without the white space between its parts.
void appendCompactJson(std::string& output, std::string_view value);

}  // namespace orivanta::server
