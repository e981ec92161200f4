#include "Apps/Import/Read/TextPool.hpp"

#include <algorithm>

namespace orivanta::importer {

std::string_view TextPool::keep(std::string_view text) {
  constexpr std::size_t blockBytes = 64U << 10U;
  if (text.empty()) return {};
  if (const auto known = texts_.find(text); known != texts_.end()) return *known;
  if (text.size() > left_) {
    left_ = std::max(blockBytes, text.size());
    bytes_ += left_;
    free_ = blocks_.emplace_back(new char[left_]).get();
  }
  std::copy(text.begin(), text.end(), free_);
  const std::string_view kept(free_, text.size());
  free_ += text.size();
  left_ -= text.size();
  texts_.insert(kept);
  return kept;
}

}  // namespace orivanta::importer
