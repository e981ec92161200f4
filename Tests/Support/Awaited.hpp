// Lets a test wait for a value that a callback provides on another thread, and for the callbacks to
// be released.
#pragma once

#include <future>
#include <memory>
#include <stdexcept>
#include <utility>

#include "Tests/Support/Latch.hpp"

namespace orivanta::test {

/// Copies refer to the same value. A second `give` aborts the program, since the callback must run
/// only once.
template <class T>
class Awaited {
 public:
  void give(T value) const { promise_->set_value(std::move(value)); }

  /// Returns the value; may be called once. Throws, so that the test fails, if no value arrives
  /// within `patience`.
  T take() const {
    auto value = promise_->get_future();
    if (value.wait_for(patience) != std::future_status::ready)
      throw std::runtime_error("timed out");
    return value.get();
  }

 private:
  std::shared_ptr<std::promise<T>> promise_ = std::make_shared<std::promise<T>>();
};

/// A handle that opens the latch when its last copy is destroyed. If callbacks capture it, the
/// latch opens when they are released and cannot be called any more.
inline std::shared_ptr<void> opensWhenGone(std::shared_ptr<Latch> latch) {
  void* const address = latch.get();
  return {address, [latch = std::move(latch)](void*) { latch->open(); }};
}

}  // namespace orivanta::test
