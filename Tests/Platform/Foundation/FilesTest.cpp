#include "Platform/Foundation/Files.hpp"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <iterator>
#include <thread>

#include "Platform/Foundation/ExecutablePath.hpp"
#include "Tests/Support/EnvironmentVariable.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::foundation {
namespace {

namespace fs = std::filesystem;
using test::EnvironmentVariable;
using test::TemporaryFolder;

std::ptrdiff_t fileCount(const fs::path& folder) {
  return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

TEST(Files, TheCachesDirectoryIsTheUsersAndExists) {
  const TemporaryFolder folder;
  const EnvironmentVariable home("HOME", folder.path() / "home");
  const fs::path program = executablePath().filename();
  const fs::path inHome = folder.path() / "home" / ".cache" / program;
  for (const auto& [configured, expected] :
       {std::pair{std::optional<std::string>(), inHome},
        {"", inHome},
        {"relative", inHome},
        {folder.path() / "x", folder.path() / "x" / program}}) {
    const EnvironmentVariable caches("XDG_CACHE_HOME", configured);
    EXPECT_EQ(cachesDirectory(), expected);
    EXPECT_TRUE(fs::is_directory(expected));
  }
  const EnvironmentVariable caches("XDG_CACHE_HOME", std::nullopt);
  const EnvironmentVariable noHome("HOME", std::nullopt);
  EXPECT_EQ(cachesDirectory(), std::nullopt);
}

TEST(Files, AreReadUpToALimit) {
  const TemporaryFolder folder;
  const std::string contents("a\0b\n", 4);
  const fs::path file = folder.write("a", contents);
  EXPECT_EQ(readFile(file, 4), contents);
  EXPECT_EQ(readBytes(file, 4)->text(), contents);
  EXPECT_EQ(readFile(folder.write("empty", ""), 0), "");
  const fs::path pipe = folder.path() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const auto& [unreadable, code] : {std::pair<fs::path, int>{file, EFBIG},
                                         {folder.path() / "missing", ENOENT},
                                         {folder.path(), EINVAL},
                                         {"/dev/zero", EINVAL},
                                         {pipe, EINVAL}}) {
    EXPECT_FALSE(readFile(unreadable, 3));
    const auto error = readBytes(unreadable, 3).error();
    EXPECT_EQ(error.code, code);
    EXPECT_EQ(error.description.find(unreadable.string() + ": "), 0U);
  }
}

TEST(Files, AreReplacedAndLeaveNothingBeside) {
  const TemporaryFolder folder;
  const fs::path file = folder.path() / "a";
  for (const std::string& contents : {std::string("longer"), std::string(), std::string("\0", 1)}) {
    EXPECT_TRUE(writeFileAtomically(file, contents));
    EXPECT_EQ(readFile(file, 100), contents);
    EXPECT_EQ(fileCount(folder.path()), 1);
  }
  EXPECT_EQ(writeFileAtomically(folder.path() / "no" / "a", "x").error().code, ENOENT);
  const auto written = writeFileAtomically(folder.path(), "x");
  ASSERT_FALSE(written);
  EXPECT_NE(written.error().description.find(folder.path().string()), std::string::npos);
}

TEST(Files, AFailedWriteLeavesTheOldContents) {
  const TemporaryFolder folder;
  const fs::path file = folder.write("a", "old");
  rlimit earlier{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &earlier), 0);
  auto* const earlierHandler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit tight{100'000, earlier.rlim_max};
  setrlimit(RLIMIT_FSIZE, &tight);
  const auto written = writeFileAtomically(file, std::string(200'000, 'x'));
  setrlimit(RLIMIT_FSIZE, &earlier);
  std::signal(SIGXFSZ, earlierHandler);
  ASSERT_FALSE(written);
  EXPECT_EQ(written.error().code, EFBIG);
  EXPECT_EQ(readFile(file, 100), "old");
  EXPECT_EQ(fileCount(folder.path()), 1);
}

TEST(Files, StayWholeWhenSeveralWriteThemAndOneTidiesUp) {
  const TemporaryFolder folder;
  const auto contentsOf = [](char letter) {
    return std::string(static_cast<std::size_t>(letter - 'a' + 1) * 20'000, letter);
  };
  const fs::path file = folder.write("a", contentsOf('a'));
  std::vector<std::thread> writers;
  for (const char letter : {'a', 'b', 'c'})
    writers.emplace_back([&, letter] {
      for (int i = 0; i < 20; ++i) EXPECT_TRUE(writeFileAtomically(file, contentsOf(letter)));
    });
  const fs::path abandoned = folder.write(".0123456789abcdef.part", "of a killed process");
  for (int i = 0; i < 200; ++i) {
    removeAbandonedFiles(folder.path());
    const auto bytes = readFile(file, 100'000);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(*bytes, contentsOf(bytes->front()));
  }
  for (std::thread& writer : writers) writer.join();
  EXPECT_FALSE(fs::exists(abandoned));
  EXPECT_EQ(fileCount(folder.path()), 1);
  folder.write(".0123456789abcdeg.part", "of somebody else");
  removeAbandonedFiles(folder.path());
  EXPECT_EQ(fileCount(folder.path()), 2);
}

}  // namespace
}  // namespace orivanta::foundation
