#include "Platform/Graphics/Changes.hpp"

#include <atomic>

namespace orivanta::graphics {

namespace {

std::atomic<std::uint64_t> changes = 1;

}  // namespace

std::uint64_t changeCount() { return changes; }

void noteChange() { ++changes; }

}  // namespace orivanta::graphics
