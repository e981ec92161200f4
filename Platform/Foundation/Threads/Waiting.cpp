#include "Platform/Foundation/Waiting.hpp"

namespace orivanta::foundation {

void waitUntil(std::condition_variable& changed, std::unique_lock<std::mutex>& lock,
               const std::function<bool()>& isMet) {
  changed.wait(lock, isMet);
}

bool waitFor(std::condition_variable& changed, std::unique_lock<std::mutex>& lock,
             std::chrono::duration<double> longest, const std::function<bool()>& isMet) {
  return changed.wait_for(lock, longest, isMet);
}

}  // namespace orivanta::foundation
