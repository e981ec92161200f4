#include "Source/Json/JsonArena.hpp"

#include <sys/mman.h>

#include <algorithm>
#include <cstdint>
#include <new>
#include <utility>

namespace orivanta {

namespace {

constexpr std::size_t smallestBlockBytes = 1024;
constexpr std::size_t smallestMappedBytes = std::size_t{128} << 10U;
constexpr std::size_t largestBlockBytes = std::size_t{4} << 20U;
constexpr std::size_t mostBytes = std::size_t{2} << 30U;

std::byte* alignedUp(std::byte* address, std::size_t alignment) {
  const auto misalignment = reinterpret_cast<std::uintptr_t>(address) & (alignment - 1);
  return misalignment == 0 ? address : address + (alignment - misalignment);
}

}  // namespace

JsonArena::JsonArena(std::size_t textBytes, std::shared_ptr<foundation::MemoryBudget> budget)
    : share_(std::move(budget)) {
  const std::size_t first = std::clamp(textBytes, smallestBlockBytes, largestBlockBytes);
  values_.nextBlockBytes = first;
  texts_.nextBlockBytes = first;
}

void* JsonArena::do_allocate(std::size_t bytes, std::size_t alignment) {
  Row& row = alignment < alignof(void*) ? texts_ : values_;
  std::byte* start = alignedUp(row.next, alignment);
  if (row.next == nullptr || static_cast<std::size_t>(row.end - start) < bytes || start > row.end) {
    addBlock(row, bytes + alignment);
    start = alignedUp(row.next, alignment);
  }
  row.next = start + bytes;
  return start;
}

void JsonArena::addBlock(Row& row, std::size_t bytes) {
  const std::size_t blockBytes = std::max(bytes, row.nextBlockBytes);
  if (blockBytes > mostBytes - blockBytes_) throw std::bad_alloc();
  share_.take(blockBytes);
  blocks_.emplace_back(new std::byte[blockBytes]);
  blockBytes_ += blockBytes;
  row.next = blocks_.back().get();
  row.end = row.next + blockBytes;
  row.nextBlockBytes = std::min(largestBlockBytes, row.nextBlockBytes * 2);
}

void* JsonScratch::do_allocate(std::size_t bytes, std::size_t) {
  if (bytes > mostBytes) throw std::bad_alloc();
  share_.take(bytes);
  if (bytes < smallestMappedBytes) return ::operator new(bytes);
  void* piece = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (piece == MAP_FAILED) throw std::bad_alloc();
  return piece;
}

void JsonScratch::do_deallocate(void* piece, std::size_t bytes, std::size_t) {
  share_.giveBack(bytes);
  if (bytes < smallestMappedBytes)
    ::operator delete(piece);
  else
    munmap(piece, bytes);
}

}  // namespace orivanta
