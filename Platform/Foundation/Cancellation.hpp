// Ending work early: a source that cancels, and tokens that the work carries.
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

/// Keeps a callback of a token registered. Removes it when destroyed; a call that is already
/// running on another thread goes on. Movable.
class ORIVANTA_API CancellationRegistration {
 public:
  CancellationRegistration() = default;
  ~CancellationRegistration() { remove(); }

  /// Takes over the callback of another registration.
  CancellationRegistration(CancellationRegistration&& other) noexcept = default;

  /// Removes its own callback and takes over that of another registration.
  CancellationRegistration& operator=(CancellationRegistration&& other) noexcept;

  /// Removes the callback early. Any thread.
  void remove();

 private:
  friend class CancellationToken;
  std::weak_ptr<CancellationState> state_;
  std::uint64_t number_ = 0;
};

/// Tells work that it is not wanted any more. Copies refer to the same source. One made by default
/// is never canceled. Any thread.
class ORIVANTA_API CancellationToken {
 public:
  CancellationToken() = default;

  /// Whether the source has been canceled.
  bool isCanceled() const;

  /// Calls the function once when the source is canceled, on the thread that cancels; immediately
  /// if that has happened already. The function must return quickly and must not throw. Whatever it
  /// owns is released when the registration is destroyed, or after the call.
  [[nodiscard]] CancellationRegistration onCancel(std::function<void()> function) const;

 private:
  friend class CancellationSource;
  std::shared_ptr<CancellationState> state_;
};

/// Cancels all work that carries one of its tokens. Copies cancel the same work. Any thread.
class ORIVANTA_API CancellationSource {
 public:
  CancellationSource();

  /// A token for work that the source cancels.
  CancellationToken token() const { return token_; }

  /// Tells the tokens and calls the registered functions, in the order of their registration. The
  /// second call does nothing.
  void cancel() const;

  /// Whether `cancel` was called.
  bool isCanceled() const { return token_.isCanceled(); }

 private:
  CancellationToken token_;
};

}  // namespace orivanta::foundation
