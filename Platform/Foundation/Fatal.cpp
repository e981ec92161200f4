#include "Platform/Foundation/Fatal.hpp"

#include <cstdio>
#include <cstdlib>

namespace orivanta::foundation {

void fatalError(std::string_view message) {
  std::fprintf(stderr, "fatal error: %.*s\n", static_cast<int>(message.size()), message.data());
  std::abort();
}

void fatalAbsence() { fatalError("unexpectedly found nil while unwrapping an Optional value"); }

}  // namespace orivanta::foundation
