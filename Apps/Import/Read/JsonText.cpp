#include "Apps/Import/Read/JsonText.hpp"

#include <fast_float/fast_float.h>

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/value_stack.hpp>
#include <cmath>
#include <new>
#include <utility>

namespace orivanta::importer {

namespace json = boost::json;

namespace {

// Builds the value from the parser's events. The parser's own doubles can be off by one unit in the
// last place, and it converts 1e400 to infinity, so doubles are parsed again from their text.
class Handler {
 public:
  static constexpr std::size_t max_object_size = json::object::max_size();
  static constexpr std::size_t max_array_size = json::array::max_size();
  static constexpr std::size_t max_key_size = json::string::max_size();
  static constexpr std::size_t max_string_size = json::string::max_size();

  explicit Handler(const json::storage_ptr& memory) : stack_(memory) { stack_.reset(memory); }

  json::value release() { return stack_.release(); }

  bool on_document_begin(json::error_code&) { return true; }
  bool on_document_end(json::error_code&) { return true; }
  bool on_object_begin(json::error_code&) { return true; }
  bool on_array_begin(json::error_code&) { return true; }
  bool on_object_end(std::size_t count, json::error_code&) {
    stack_.push_object(count);
    return true;
  }
  bool on_array_end(std::size_t count, json::error_code&) {
    stack_.push_array(count);
    return true;
  }
  bool on_key_part(json::string_view part, std::size_t, json::error_code&) {
    stack_.push_chars(part);
    return true;
  }
  bool on_key(json::string_view part, std::size_t, json::error_code&) {
    stack_.push_key(part);
    return true;
  }
  bool on_string_part(json::string_view part, std::size_t, json::error_code&) {
    stack_.push_chars(part);
    return true;
  }
  bool on_string(json::string_view part, std::size_t, json::error_code&) {
    stack_.push_string(part);
    return true;
  }
  bool on_number_part(json::string_view, json::error_code&) { return true; }
  bool on_int64(std::int64_t number, json::string_view, json::error_code&) {
    stack_.push_int64(number);
    return true;
  }
  bool on_uint64(std::uint64_t number, json::string_view, json::error_code&) {
    stack_.push_uint64(number);
    return true;
  }
  // The text is one buffer, so `text` is the complete number.
  bool on_double(double, json::string_view text, json::error_code& error) {
    double number = 0.0;
    fast_float::from_chars(text.data(), text.data() + text.size(), number);
    if (std::isinf(number)) {
      error = json::error::exponent_overflow;
      return false;
    }
    stack_.push_double(number);
    return true;
  }
  bool on_bool(bool value, json::error_code&) {
    stack_.push_bool(value);
    return true;
  }
  bool on_null(json::error_code&) {
    stack_.push_null();
    return true;
  }
  bool on_comment_part(json::string_view, json::error_code&) { return true; }
  bool on_comment(json::string_view, json::error_code&) { return true; }

 private:
  json::value_stack stack_;
};

}  // namespace

// Boost.JSON frees some strings with another alignment than it has requested. None is greater than
// that of every allocation.
void* BoundedMemory::do_allocate(std::size_t bytes, std::size_t /*alignment*/) {
  if (bytes > left_) throw std::bad_alloc();
  void* piece = ::operator new(bytes);
  left_ -= bytes;
  return piece;
}

void BoundedMemory::do_deallocate(void* piece, std::size_t bytes, std::size_t /*alignment*/) {
  left_ += bytes;
  ::operator delete(piece);
}

ParsedJson parseJson(std::string_view text, json::storage_ptr memory) {
  json::parse_options options;
  options.max_depth = deepestSourceJson;
  json::basic_parser<Handler> parser(options, memory);
  json::error_code error;
  const std::size_t read = parser.write_some(false, text.data(), text.size(), error);
  if (error) return {nullptr, error.message(), read};
  if (read != text.size()) return {nullptr, "text after the end of the value", read};
  return {parser.handler().release(), {}, read};
}

std::string_view withoutByteOrderMark(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (text.substr(0, mark.size()) == mark) text.remove_prefix(mark.size());
  return text;
}

}  // namespace orivanta::importer
