#include "Apps/Import/Read/JsonText.hpp"

#include <boost/json/memory_resource.hpp>
#include <new>
#include <utility>

#include "Platform/Foundation/ExactJson.hpp"

namespace orivanta::importer {

namespace json = boost::json;

namespace {

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

}  // namespace

ParsedJson parseJson(std::string_view text, const json::storage_ptr& memory) try {
  foundation::ExactJson parsed =
      foundation::parseExactJson(text, deepestSourceJson, memory, memory);
  if (parsed.error) return {nullptr, parsed.error.message(), parsed.read};
  if (parsed.read != text.size()) return {nullptr, "text after the end of the value", parsed.read};
  return {std::move(parsed.value), {}, parsed.read};
} catch (const std::bad_alloc&) {
  return {nullptr, "it takes too much memory", 0};
}

json::storage_ptr boundedMemory(std::size_t bytes) {
  return json::make_shared_resource<BoundedMemory>(bytes);
}

std::string_view withoutByteOrderMark(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (text.substr(0, mark.size()) == mark) text.remove_prefix(mark.size());
  return text;
}

}  // namespace orivanta::importer
