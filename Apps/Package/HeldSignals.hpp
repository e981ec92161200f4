// Delays Ctrl+C while files are written.
#pragma once

#include <csignal>

namespace orivanta::package {

/// From construction to destruction, the signals that end a program from outside wait. One that has
/// arrived takes effect in the destructor. Applies to the calling thread and to threads that it
/// starts.
class HeldSignals {
 public:
  HeldSignals() {
    sigemptyset(&held_);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&held_, signal);
    pthread_sigmask(SIG_BLOCK, &held_, &before_);
  }
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;
  ~HeldSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

  /// Whether a signal waits.
  bool arrived() const {
    sigset_t waiting;
    sigpending(&waiting);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
      if (sigismember(&waiting, signal) == 1) return true;
    return false;
  }

 private:
  sigset_t held_{};
  sigset_t before_{};
};

}  // namespace orivanta::package
