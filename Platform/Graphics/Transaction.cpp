#include "Platform/Graphics/Transaction.hpp"

namespace orivanta::graphics {

// Never destroyed, because a thread that draws may still run after `main` returns.
std::recursive_mutex& Transaction::mutex() {
  static auto& instance = *new std::recursive_mutex;
  return instance;
}

}  // namespace orivanta::graphics
