// Runs every input of the corpus through its fuzzer, without libFuzzer.
//
//   fuzz_replay CORPUS [NAME]     with NAME, only the inputs in that folder
//
// Prints the name of each input before it runs, so that the last name identifies the input that
// stopped the program. Exits with 1 if a fuzzer has no inputs or a folder has no fuzzer.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "Fuzz/Fuzzer.hpp"

namespace orivanta::fuzz {

namespace fs = std::filesystem;

namespace {

std::map<std::string, Target>& targets() {
  static std::map<std::string, Target> registered;
  return registered;
}

std::set<fs::path> entriesOf(const fs::path& folder) {
  if (!fs::is_directory(folder)) return {};
  return {fs::directory_iterator(folder), fs::directory_iterator()};
}

// Returns the number of inputs.
std::size_t replay(const fs::path& folder, Target target) {
  const std::set<fs::path> files = entriesOf(folder);
  for (const fs::path& file : files) {
    std::cout << file.string() << std::endl;
    std::ifstream stream(file, std::ios::binary);
    target(std::string(std::istreambuf_iterator<char>(stream), {}));
  }
  return files.size();
}

int replayAll(const fs::path& corpus, const std::string& only) {
  int missing = 0;
  for (const auto& [name, target] : targets()) {
    if (!only.empty() && name != only) continue;
    if (replay(corpus / name, target) > 0) continue;
    std::cerr << name << " has no input in " << corpus << '\n';
    missing = 1;
  }
  for (const fs::path& folder : entriesOf(corpus)) {
    if (targets().contains(folder.filename().string())) continue;
    std::cerr << folder << " does not belong to any fuzzer\n";
    missing = 1;
  }
  return missing;
}

}  // namespace

Registration::Registration(const char* corpus, Target target) { targets().emplace(corpus, target); }

}  // namespace orivanta::fuzz

int main(int count, char** arguments) {
  if (count != 2 && count != 3) {
    std::cerr << "usage: fuzz_replay CORPUS [NAME]\n";
    return 2;
  }
  return orivanta::fuzz::replayAll(arguments[1], count == 3 ? arguments[2] : "");
}
