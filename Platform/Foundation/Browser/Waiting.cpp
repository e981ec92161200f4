#include "Platform/Foundation/Waiting.hpp"

#include "Platform/Foundation/Fatal.hpp"

namespace orivanta::foundation {

void waitUntil(std::condition_variable& /*changed*/, std::unique_lock<std::mutex>& /*lock*/,
               const std::function<bool()>& isMet) {
  if (!isMet()) fatalError("the page's only thread would wait forever");
}

bool waitFor(std::condition_variable& /*changed*/, std::unique_lock<std::mutex>& /*lock*/,
             std::chrono::duration<double> longest, const std::function<bool()>& isMet) {
  if (isMet()) return true;
  if (longest > longest.zero()) fatalError("the page's only thread must not wait");
  return false;
}

}  // namespace orivanta::foundation
