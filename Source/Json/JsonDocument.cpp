#include "Source/Json/JsonDocument.hpp"

#include <fast_float/fast_float.h>

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/value_stack.hpp>
#include <cmath>
#include <system_error>
#include <utility>

#include "Source/Json/JsonArena.hpp"

namespace orivanta {

namespace json = boost::json;

namespace {

// Builds the value from the parser's events. The parser's doubles can be off by one unit in the
// last place, and it converts 1e400 to infinity, so they are parsed again from their text.
class DocumentHandler {
 public:
  static constexpr std::size_t max_object_size = json::object::max_size();
  static constexpr std::size_t max_array_size = json::array::max_size();
  static constexpr std::size_t max_key_size = json::string::max_size();
  static constexpr std::size_t max_string_size = json::string::max_size();

  DocumentHandler(JsonScratch* scratch, JsonArena* memory) : stack_(scratch) {
    stack_.reset(memory);
  }

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
  // The whole document is one buffer, so `text` is the complete number.
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

// The memory of the document and its root. The root's destructor does nothing: its contents are
// released with the memory, at any depth of nesting.
struct Document {
  JsonArena memory;
  json::value root;

  Document(std::size_t expectedBytes, const std::shared_ptr<foundation::MemoryBudget>& budget)
      : memory(expectedBytes, budget), root(&memory) {}
};

json::parse_options strictOptions() {
  json::parse_options options;
  options.max_depth = deepestJsonNesting;
  return options;
}

}  // namespace

std::shared_ptr<const json::value> parseJsonDocument(
    std::string_view text, const std::shared_ptr<foundation::MemoryBudget>& budget) {
  auto document = std::make_shared<Document>(text.size(), budget);
  JsonScratch scratch(budget);
  json::basic_parser<DocumentHandler> parser(strictOptions(), &scratch, &document->memory);
  json::error_code error;
  const std::size_t consumed = parser.write_some(false, text.data(), text.size(), error);
  if (error || consumed != text.size()) return nullptr;
  document->root = parser.handler().release();
  return {document, &document->root};
}

}  // namespace orivanta
