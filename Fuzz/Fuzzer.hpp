// The entry point and the checks that all fuzzers use.
//
// A fuzzer is one source file that ends with
//
//   ORIVANTA_FUZZER(Model, orivanta::scene::obj::checkModel)
//
// The name is that of its folder in Fuzz/Corpus, and the function takes the input as a string_view.
// With libFuzzer, each file is a separate program. Otherwise all files are linked into fuzz_replay,
// which passes every input of the corpus to the function for its folder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace orivanta::fuzz {

using Target = void (*)(std::string_view input);

/// Registers a fuzzer with fuzz_replay.
struct Registration {
  Registration(const char* corpus, Target target);
};

[[noreturn]] inline void stop(const char* condition, const char* file, int line) {
  std::fprintf(stderr, "%s:%d: check failed: %s\n", file, line, condition);
  std::abort();
}

/// Removes the text up to and including the next separator from the front of `rest`, and returns it
/// without the separator.
inline std::string_view takeUpTo(std::string_view separator, std::string_view& rest) {
  const std::size_t end = rest.find(separator);
  const std::string_view taken = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + separator.size());
  return taken;
}

}  // namespace orivanta::fuzz

/// Aborts the program if an expectation about the tested code is not met.
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
