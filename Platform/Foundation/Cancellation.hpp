// Cancellation: a source cancels work, and the work checks a token of that source.
//
//   CancellationSource source;
//   start(work, source.token());
//   source.cancel();                        // from any thread
//
//   for (const Item& item : items) {        // in the work
//     if (token.isCanceled()) return;
//     ...
//   }
// Public header.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

struct CancellationState;

/// The registration of a callback with a token. The destructor removes the callback. A call that is
/// already running on another thread continues. Movable.
class ORIVANTA_API CancellationRegistration {
 public:
  CancellationRegistration() = default;
  ~CancellationRegistration() { remove(); }

  /// Moves the callback from another registration to this one.
  CancellationRegistration(CancellationRegistration&& other) noexcept = default;

  /// Removes the current callback and moves the callback from another registration to this one.
  CancellationRegistration& operator=(CancellationRegistration&& other) noexcept;

  /// Removes the callback before the registration is destroyed. Any thread.
  void remove();

 private:
  friend class CancellationToken;
  std::weak_ptr<CancellationState> state_;
  std::uint64_t number_ = 0;
};

/// Reports whether work has been canceled. Copies refer to the same source. A default-constructed
/// token is never canceled. Any thread.
class ORIVANTA_API CancellationToken {
 public:
  CancellationToken() = default;

  /// Returns whether the source has been canceled.
  bool isCanceled() const;

  /// Calls the function once when the source is canceled, on the thread that cancels it, or
  /// immediately if the source is already canceled. The function must return quickly and must not
  /// throw. It is destroyed with the registration, or after the call.
  [[nodiscard]] CancellationRegistration onCancel(std::function<void()> function) const;

 private:
  friend class CancellationSource;
  std::shared_ptr<CancellationState> state_;
};

/// Cancels all work that has one of its tokens. Copies cancel the same work. Any thread.
class ORIVANTA_API CancellationSource {
 public:
  CancellationSource();

  /// Returns a token of this source.
  CancellationToken token() const { return token_; }

  /// Cancels the tokens and calls the registered functions in the order of their registration.
  /// Further calls do nothing.
  void cancel() const;

  /// Returns whether `cancel` was called.
  bool isCanceled() const { return token_.isCanceled(); }

 private:
  CancellationToken token_;
};

}  // namespace orivanta::foundation
