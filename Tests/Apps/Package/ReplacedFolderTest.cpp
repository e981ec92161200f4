#include "Apps/Package/ReplacedFolder.hpp"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::package {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

class ReplacedFolder : public testing::Test {
 protected:
  static void fill(package::ReplacedFolder& folder, const std::string& text) {
    folder.write("venue.json", text);
    folder.write("maps/a.obj", text);
  }

  void replace(const std::string& text) const {
    package::ReplacedFolder folder(target_, "import");
    fill(folder, text);
    folder.commit();
  }

  // The visible files below the root.
  Files files() const {
    Files all;
    for (const auto& entry : fs::recursive_directory_iterator(root_.path())) {
      std::ifstream stream(entry.path(), std::ios::binary);
      if (entry.is_regular_file() && !entry.path().filename().string().starts_with('.'))
        all[entry.path().lexically_relative(root_.path()).string()] =
            std::string(std::istreambuf_iterator<char>(stream), {});
    }
    return all;
  }

  const test::TemporaryFolder root_;
  const fs::path target_ = root_.path() / "new" / "mall";
  const Files written_ = {{"new/mall/venue.json", "one"}, {"new/mall/maps/a.obj", "one"}};
};

TEST_F(ReplacedFolder, KeepsFilesOfOthers) {
  replace("one");
  EXPECT_EQ(files(), written_);
  root_.write("new/mall/notes/thesis.txt", "words");
  root_.write("new/mall/.git/config", "words");
  fs::create_symlink("/nowhere", target_ / "link");
  fs::remove(target_ / "maps" / "a.obj");
  replace("two");
  EXPECT_EQ(files(), (Files{{"new/mall/venue.json", "two"},
                            {"new/mall/maps/a.obj", "two"},
                            {"new/mall/notes/thesis.txt", "words"},
                            {"new/mall/.git/config", "words"}}));
  EXPECT_TRUE(fs::is_symlink(target_ / "link"));
  EXPECT_EQ(std::distance(fs::directory_iterator(root_.path() / "new"), {}), 1);
}

TEST_F(ReplacedFolder, RefusesWhatWouldBeLost) {
  const struct {
    const char* reason;
    const char* file;  // written before
    const char* command = "import";
    const char* also = "venue.json";  // written by the command
  } rows[] = {{"was changed", "new/mall/maps/a.obj"},
              {"`orivanta publish` did not write it", "new/mall/notes", "publish"},
              {"`orivanta import` did not write it", "new/mall/.orivanta-import"},
              {"exists and is no folder", "new/mall/venue.json/thesis.txt", "import"},
              {"rename it", "new/mall/maps/b.obj", "import", "maps/b.obj"},
              {"rename it", "new/mall/notes", "import", "notes/b.obj"}};
  for (const auto& [reason, file, command, also] : rows) {
    fs::remove_all(root_.path() / "new");
    replace("one");
    if (std::string_view(file).ends_with("thesis.txt")) {
      fs::remove_all(target_);
      std::ofstream(target_) << "words";
    } else {
      root_.write(file, "words");
    }
    const Files before = files();
    try {
      package::ReplacedFolder folder(target_, command);
      fill(folder, "two");
      folder.write(also, "two");
      folder.commit();
      ADD_FAILURE() << reason;
    } catch (const std::runtime_error& error) {
      EXPECT_THAT(error.what(), testing::HasSubstr(reason));
    }
    EXPECT_EQ(files(), before) << reason;
    EXPECT_EQ(std::distance(fs::directory_iterator(root_.path() / "new"), {}), 1) << reason;
  }
}

// A limit of the size of files has the effect of a full disk.
TEST_F(ReplacedFolder, LeavesNothingIfTheDiskIsFull) {
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small = {1000, before.rlim_max};
  for (const bool exists : {false, true}) {
    if (exists) replace("one");
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_THROW(replace(std::string(100'000, 'x')), std::runtime_error);
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(files(), exists ? written_ : Files());
    EXPECT_EQ(fs::is_empty(root_.path()), !exists);
  }
  std::signal(SIGXFSZ, handler);
}

TEST_F(ReplacedFolder, LeavesNothingIfInterrupted) {
  const auto interrupt = [&] {
    package::ReplacedFolder folder(target_, "import");
    fill(folder, "one");
    std::raise(SIGINT);
    folder.commit();
  };
  EXPECT_EXIT(interrupt(), testing::KilledBySignal(SIGINT), "");
  EXPECT_TRUE(fs::is_empty(root_.path()));
}

}  // namespace
}  // namespace orivanta::package
