#include "Source/Loading/AnswerRecorder.hpp"

#include <new>
#include <utility>

namespace orivanta {

namespace {

bool isArray(std::string_view body) {
  const std::size_t first = body.find_first_not_of(" \t\r\n");
  return first != std::string_view::npos && body[first] == '[';
}

}  // namespace

void AnswerRecorder::take(std::string_view collection, int statusCode, std::string_view body) {
  const std::lock_guard lock(mutex_);
  bytes_ += body.size();
  if (statusCode < 200 || statusCode > 299 || !isArray(body) || bytes_ > mostBytes_)
    hasFailed_ = true;
  if (hasFailed_) return pages_.clear();
  try {
    pages_[std::string(collection)].emplace_back(body);
  } catch (const std::bad_alloc&) {  // the load itself may go on
    hasFailed_ = true;
    pages_.clear();
  }
}

void AnswerRecorder::end(std::string_view) {
  const std::lock_guard lock(mutex_);
  ++ended_;
}

std::optional<StoredPages> AnswerRecorder::pages() {
  const std::lock_guard lock(mutex_);
  if (std::exchange(hasFailed_, true) || ended_ != collections_) return std::nullopt;
  return std::exchange(pages_, {});
}

}  // namespace orivanta
