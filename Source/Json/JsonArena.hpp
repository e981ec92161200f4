// The memory of one JSON document, allocated piece by piece and released as a whole, and the
// temporary memory of the parser.
#pragma once

#include <boost/json/memory_resource.hpp>
#include <boost/json/storage_ptr.hpp>
#include <cstddef>
#include <memory>
#include <vector>

#include "Platform/Foundation/MemoryBudget.hpp"

namespace orivanta {

/// Values and texts are in separate blocks: texts, most of which are keys, need no alignment, and
/// without the gaps a document is about 5 percent smaller. Allocating more than 2 GiB, which no
/// ordinary document needs, or more than the budget throws `std::bad_alloc`.
class JsonArena final : public boost::json::memory_resource {
 public:
  /// `textBytes` is the expected size of the JSON text. The blocks count against the budget, which
  /// may be null.
  explicit JsonArena(std::size_t textBytes,
                     std::shared_ptr<foundation::MemoryBudget> budget = nullptr);

 private:
  // A list of blocks, each larger than the previous one, and the free bytes of the last one.
  struct Row {
    std::byte* next = nullptr;
    std::byte* end = nullptr;
    std::size_t nextBlockBytes;
  };

  void* do_allocate(std::size_t bytes, std::size_t alignment) override;
  void do_deallocate(void*, std::size_t, std::size_t) override {}
  bool do_is_equal(const boost::json::memory_resource& other) const noexcept override {
    return this == &other;
  }
  void addBlock(Row& row, std::size_t bytes);

  Row values_;
  Row texts_;
  std::vector<std::unique_ptr<std::byte[]>> blocks_;
  std::size_t blockBytes_ = 0;
  foundation::BudgetShare share_;
};

/// The temporary memory of the parser. Large pieces are returned to the system immediately; the
/// heap might keep them. No piece is larger than 2 GiB.
class JsonScratch final : public boost::json::memory_resource {
 public:
  explicit JsonScratch(std::shared_ptr<foundation::MemoryBudget> budget = nullptr)
      : share_(std::move(budget)) {}

 private:
  void* do_allocate(std::size_t bytes, std::size_t alignment) override;
  void do_deallocate(void* piece, std::size_t bytes, std::size_t alignment) override;
  bool do_is_equal(const boost::json::memory_resource& other) const noexcept override {
    return this == &other;
  }

  foundation::BudgetShare share_;
};

}  // namespace orivanta

template <>
struct boost::json::is_deallocate_trivial<orivanta::JsonArena> {
  static constexpr bool value = true;
};
