#include "Platform/Foundation/Cancellation.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace orivanta::foundation {
namespace {

TEST(Cancellation, CallsWhatIsRegisteredOnceInOrder) {
  std::string calls;
  const auto add = [&](char letter) { return [&calls, letter] { calls += letter; }; };
  const CancellationSource source;
  const CancellationToken token = source.token();
  const auto a = token.onCancel(add('a'));
  auto removed = token.onCancel(add('x'));
  auto replaced = token.onCancel(add('y'));
  const auto b = token.onCancel([&] {
    calls += token.isCanceled() ? 'b' : '?';
    source.cancel();
  });
  removed.remove();
  replaced = token.onCancel(add('c'));
  EXPECT_FALSE(token.isCanceled());
  source.cancel();
  EXPECT_EQ(calls, "abc");
  const auto late = token.onCancel(add('d'));
  EXPECT_EQ(calls, "abcd");
  EXPECT_FALSE(CancellationToken().isCanceled());
  const auto never = CancellationToken().onCancel(add('z'));
}

TEST(Cancellation, RegistersAndCancelsOnSeveralThreads) {
  for (int round = 0; round < 200; ++round) {
    const CancellationSource source;
    std::atomic<int> calls = 0;
    std::thread canceler([&source] { source.cancel(); });
    const auto kept = source.token().onCancel([&] { ++calls; });
    source.token().onCancel([] {}).remove();
    canceler.join();
    EXPECT_EQ(calls, 1);
  }
}

}  // namespace
}  // namespace orivanta::foundation
