#include "Platform/Graphics/Transaction.hpp"

namespace orivanta::graphics {

// Never destroyed: a thread that draws may outlive the end of `main`.
std::recursive_mutex& Transaction::mutex() {
  static auto& instance = *new std::recursive_mutex;
  return instance;
}

}  // namespace orivanta::graphics
