// Taking JSON text apart without building values, so that numbers and texts stay as they are
// written.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orivanta::server {

// All functions take one JSON value, white space around it included, that is known to be
// well-formed; what they return points into it.

struct JsonMember {
  std::string key;           ///< decoded
  std::string_view keyText;  ///< as written, in its quotes
  std::string_view value;
};

enum class JsonKind { object, array, text, other };

JsonKind jsonKind(std::string_view value);

/// The elements of an array, in order.
std::vector<std::string_view> jsonElements(std::string_view array);

/// The members of an object, in order, repeated keys included.
std::vector<JsonMember> jsonMembers(std::string_view object);

/// The characters of a text, its escapes resolved.
std::string jsonTextContent(std::string_view text);

/// Appends the value without the white space between its parts.
void appendCompactJson(std::string& output, std::string_view value);

}  // namespace orivanta::server
