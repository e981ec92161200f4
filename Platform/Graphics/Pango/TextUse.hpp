// The libraries that lay out texts, while the process ends.
#pragma once

#include <shared_mutex>

namespace orivanta::graphics {

/// Hold one while texts are laid out. The libraries below free what all threads share in handlers
/// of `atexit`, while background threads still run. Such a handler waits for every `TextUse`; after
/// it no text can be laid out any more.
class TextUse {
 public:
  TextUse();

  /// Returns false if the process is ending. Then use no text library.
  explicit operator bool() const;

 private:
  std::shared_lock<std::shared_mutex> lock_;
};

}  // namespace orivanta::graphics
