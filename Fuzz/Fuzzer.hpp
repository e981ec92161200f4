// What every fuzzer is made of: an entry point and checks.
//
// A fuzzer is one source file that ends with
//
//   ORIVANTA_FUZZER(Model, orivanta::scene::obj::checkModel)
//
// The name is that of its folder in Fuzz/Corpus; the function takes the input as a string_view.
// With libFuzzer each file is a program of its own. Without it all files are linked into
// fuzz_replay, which runs every input of the corpus through the function of its folder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace orivanta::fuzz {

using Target = void (*)(std::string_view input);

/// Adds a fuzzer to those of fuzz_replay.
struct Registration {
  Registration(const char* corpus, Target target);
};

[[noreturn]] inline void stop(const char* condition, const char* file, int line) {
  std::fprintf(stderr, "%s:%d: not so: %s\n", file, line, condition);
  std::abort();
}

/// Removes the text up to the next separator, and the separator, from the front of `rest`.
inline std::string_view takeUpTo(std::string_view separator, std::string_view& rest) {
  const std::size_t end = rest.find(separator);
  const std::string_view taken = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + separator.size());
  return taken;
}

}  // namespace orivanta::fuzz

/// Stops the program when a promise of the code under test is broken.
#define ORIVANTA_REQUIRE(condition) \
  ((condition) ? void() : ::orivanta::fuzz::stop(#condition, __FILE__, __LINE__))

#ifdef ORIVANTA_FUZZ_REPLAY
#define ORIVANTA_FUZZER(corpus, target) \
  static const ::orivanta::fuzz::Registration registrationOf##corpus(#corpus, target);
#else
#define ORIVANTA_FUZZER(corpus, target)                                                 \
  extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) { \
    target({reinterpret_cast<const char*>(bytes), count});                              \
    return 0;                                                                           \
  }
#endif
