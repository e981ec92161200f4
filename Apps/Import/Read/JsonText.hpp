// Parses JSON with exact numbers and bounded memory.
#pragma once

#include <boost/json/memory_resource.hpp>
#include <boost/json/value.hpp>
#include <cstddef>
#include <string>
#include <string_view>

namespace orivanta::importer {

/// The maximum nesting of arrays and objects.
constexpr std::size_t deepestSourceJson = 64;

/// Allocates from the heap, at most `limit` bytes at the same time. Beyond that it throws
/// `std::bad_alloc`. Not safe for concurrent use.
class BoundedMemory final : public boost::json::memory_resource {
 public:
  explicit BoundedMemory(std::size_t limit) : left_(limit) {}

 private:
  void* do_allocate(std::size_t bytes, std::size_t alignment) override;
  void do_deallocate(void* piece, std::size_t bytes, std::size_t alignment) override;
  bool do_is_equal(const boost::json::memory_resource& other) const noexcept override {
    return this == &other;
  }

  std::size_t left_;
};

/// The value, or what is wrong with the text.
struct ParsedJson {
  boost::json::value value;
  std::string error;       ///< such as "syntax error"; empty if the text is valid
  std::size_t offset = 0;  ///< where the error is, in bytes from the start of the text
};

/// Parses strict JSON (RFC 8259) in UTF-8. Doubles are the nearest ones; numbers beyond the range
/// of a double are an error. The value is allocated from `memory`.
ParsedJson parseJson(std::string_view text, boost::json::storage_ptr memory = {});

/// The text without a byte order mark.
std::string_view withoutByteOrderMark(std::string_view text);

}  // namespace orivanta::importer
