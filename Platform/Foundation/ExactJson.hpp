// Parses JSON with exact numbers into memory of the caller's choice. Needs Boost.JSON.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

// The parser's conversion of numbers depends on its arguments only, so calls whose results are not
// used can be omitted, and with them its table.
namespace boost::json::detail {
[[gnu::const]] double dec_to_float(std::uint64_t, std::int32_t, bool) noexcept;
}

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/value.hpp>
#include <boost/json/value_stack.hpp>

#include "Platform/Foundation/DecimalNumbers.hpp"

namespace orivanta::foundation {

/// A value, or what is wrong with its text.
struct ExactJson {
  boost::json::value value;
  boost::json::error_code error;  ///< of invalid JSON
  std::size_t read = 0;           ///< how much of the text is the value, or is valid
};

// Builds the value from the parser's events. The parser's doubles can be off by one unit in the
// last place, and it converts 1e400 to infinity, so they are parsed again from their text.
class ExactJsonHandler {
 public:
  static constexpr std::size_t max_object_size = boost::json::object::max_size();
  static constexpr std::size_t max_array_size = boost::json::array::max_size();
  static constexpr std::size_t max_key_size = boost::json::string::max_size();
  static constexpr std::size_t max_string_size = boost::json::string::max_size();

  ExactJsonHandler(boost::json::storage_ptr scratch, const boost::json::storage_ptr& memory)
      : stack_(std::move(scratch)) {
    stack_.reset(memory);
  }

  boost::json::value release() { return stack_.release(); }

  bool on_document_begin(boost::json::error_code&) { return true; }
  bool on_document_end(boost::json::error_code&) { return true; }
  bool on_object_begin(boost::json::error_code&) { return true; }
  bool on_array_begin(boost::json::error_code&) { return true; }
  bool on_object_end(std::size_t count, boost::json::error_code&) {
    stack_.push_object(count);
    return true;
  }
  bool on_array_end(std::size_t count, boost::json::error_code&) {
    stack_.push_array(count);
    return true;
  }
  bool on_key_part(boost::json::string_view part, std::size_t, boost::json::error_code&) {
    stack_.push_chars(part);
    return true;
  }
  bool on_key(boost::json::string_view part, std::size_t, boost::json::error_code&) {
    stack_.push_key(part);
    return true;
  }
  bool on_string_part(boost::json::string_view part, std::size_t, boost::json::error_code&) {
    stack_.push_chars(part);
    return true;
  }
  bool on_string(boost::json::string_view part, std::size_t, boost::json::error_code&) {
    stack_.push_string(part);
    return true;
  }
  bool on_number_part(boost::json::string_view, boost::json::error_code&) { return true; }
  bool on_int64(std::int64_t number, boost::json::string_view, boost::json::error_code&) {
    stack_.push_int64(number);
    return true;
  }
  bool on_uint64(std::uint64_t number, boost::json::string_view, boost::json::error_code&) {
    stack_.push_uint64(number);
    return true;
  }
  // The whole text is one buffer, so `text` is the complete number. Inlined, so that the compiler
  // sees that the parser's number is not used, and omits its computation.
  [[gnu::always_inline]] bool on_double(double, boost::json::string_view text,
                                        boost::json::error_code& error) {
    double number = 0.0;
    readNumber(text, number);
    if (std::isinf(number)) {
      error = boost::json::error::exponent_overflow;
      return false;
    }
    stack_.push_double(number);
    return true;
  }
  bool on_bool(bool value, boost::json::error_code&) {
    stack_.push_bool(value);
    return true;
  }
  bool on_null(boost::json::error_code&) {
    stack_.push_null();
    return true;
  }
  bool on_comment_part(boost::json::string_view, boost::json::error_code&) { return true; }
  bool on_comment(boost::json::string_view, boost::json::error_code&) { return true; }

 private:
  boost::json::value_stack stack_;
};

/// Parses strict JSON (RFC 8259) in UTF-8, with at most `deepest` arrays and objects within each
/// other. Numbers with a fraction, an exponent or more than 64 bits become the nearest double;
/// those outside its range are an error. Text after the value is not read. The value is allocated
/// from `memory`, and what the parser needs in the meantime from `scratch`. Throws `std::bad_alloc`
/// if one of them is exhausted.
inline ExactJson parseExactJson(std::string_view text, std::size_t deepest,
                                boost::json::storage_ptr scratch,
                                const boost::json::storage_ptr& memory) {
  boost::json::parse_options options;
  options.max_depth = deepest;
  boost::json::basic_parser<ExactJsonHandler> parser(options, std::move(scratch), memory);
  ExactJson result;
  result.read = parser.write_some(false, text.data(), text.size(), result.error);
  if (result.error) return {nullptr, result.error, result.read};
  return {parser.handler().release(), {}, result.read};
}

}  // namespace orivanta::foundation
