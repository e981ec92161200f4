// Parses JSON with exact numbers and bounded memory.
#pragma once

#include <boost/json/storage_ptr.hpp>
#include <boost/json/value.hpp>
#include <cstddef>
#include <string>
#include <string_view>

namespace orivanta::importer {

/// The maximum nesting of arrays and objects.
constexpr std::size_t deepestSourceJson = 64;

/// The value, or what is wrong with the text.
struct ParsedJson {
  boost::json::value value;
  std::string error;       ///< such as "syntax error"; empty if the text is valid
  std::size_t offset = 0;  ///< where the error is, in bytes from the start of the text
};

/// Parses strict JSON (RFC 8259) in UTF-8. Doubles are the nearest ones; numbers beyond the range
/// of a double are an error. Everything is allocated from `memory`; if it is exhausted, that is an
/// error as well.
ParsedJson parseJson(std::string_view text, const boost::json::storage_ptr& memory);

/// Memory from the heap, at most `bytes` at the same time. Beyond that it throws `std::bad_alloc`.
/// Not safe for concurrent use.
boost::json::storage_ptr boundedMemory(std::size_t bytes);

/// The text without a byte order mark.
std::string_view withoutByteOrderMark(std::string_view text);

}  // namespace orivanta::importer
