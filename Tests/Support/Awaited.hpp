// What a test waits for: a value that a callback gives on another thread, and the end of whatever
// the callbacks hold.
#pragma once

#include <future>
#include <memory>
#include <stdexcept>
#include <utility>

#include "Tests/Support/Latch.hpp"

namespace orivanta::test {

/// Copies refer to the same value. A second `give` fails the program, since a callback that is
/// promised once has come twice.
template <class T>
class Awaited {
 public:
  void give(T value) const { promise_->set_value(std::move(value)); }

  /// The value, once; an exception, and with it a failed test, when patience runs out.
  T take() const {
    auto value = promise_->get_future();
    if (value.wait_for(patience) != std::future_status::ready)
      throw std::runtime_error("nothing has arrived");
    return value.get();
  }

 private:
  std::shared_ptr<std::promise<T>> promise_ = std::make_shared<std::promise<T>>();
};

/// A handle that opens the latch when its last copy is gone. Callbacks that hold one tell that way
/// that they were let go and will not be called any more.
inline std::shared_ptr<void> opensWhenGone(std::shared_ptr<Latch> latch) {
  void* const address = latch.get();
  return {address, [latch = std::move(latch)](void*) { latch->open(); }};
}

}  // namespace orivanta::test
