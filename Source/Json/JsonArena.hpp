// The memory of one JSON document, taken piece by piece and given back all at once, and the memory
// that parsing it needs for a moment.
#pragma once

#include <boost/json/memory_resource.hpp>
#include <boost/json/storage_ptr.hpp>
#include <cstddef>
#include <memory>
#include <vector>

#include "Platform/Foundation/MemoryBudget.hpp"

namespace orivanta {

/// Values and texts lie in blocks of their own: texts, the keys above all, need no alignment, and
/// without the gaps a document takes about a twentieth less. Beyond 2 GiB, which only documents
/// made for it need, or beyond the budget, allocating throws `std::bad_alloc`.
class JsonArena final : public boost::json::memory_resource {
 public:
  /// Expects a document of about so many bytes of JSON. The budget, if there is one, pays for the
  /// blocks.
  explicit JsonArena(std::size_t textBytes,
                     std::shared_ptr<foundation::MemoryBudget> budget = nullptr);

 private:
  // A row of blocks, each larger than the one before, and the free bytes of the last.
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

/// Memory that parsing needs for a moment. Large pieces go back to the system at once, where the
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
