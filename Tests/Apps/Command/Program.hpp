// The command `orivanta` as a process, with its input and output.
#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orivanta::test {

struct ProgramResult {
  int exitCode = 0;  ///< if a signal ended the program, minus its number
  std::string output;
  std::string errors;
};

/// Runs from construction to `finish`. The environment is that of the test without the variables
/// that the program reads, plus the given ones, such as "ORIVANTA_USERNAME=me".
class Program {
 public:
  explicit Program(const std::vector<std::string>& arguments,
                   const std::vector<std::string>& environment = {}, int standardOutput = -1,
                   int standardError = -1)
      : errors_(std::tmpfile()) {
    std::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> input{};
    std::array<int, 2> output{};
    if (pipe2(input.data(), O_CLOEXEC) != 0 || pipe2(output.data(), O_CLOEXEC) != 0)
      throw std::runtime_error("cannot create a pipe");
    start(arguments, environment, input[0], standardOutput < 0 ? output[1] : standardOutput,
          standardError < 0 ? fileno(errors_) : standardError);
    close(input[0]);
    close(output[1]);
    input_ = input[1];
    output_ = fdopen(output[0], "r");
  }

  ~Program() {
    if (running_) {
      kill(process_, SIGKILL);
      finish();
    }
    std::fclose(output_);
    std::fclose(errors_);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  void send(std::string_view text) const {
    while (!text.empty()) {
      const ssize_t count = ::write(input_, text.data(), text.size());
      if (count < 0) throw std::runtime_error("cannot write to the program");
      text.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  /// Returns the next line of standard output with its line break. Blocks until the line is
  /// complete. At the end of the output, returns what is left.
  std::string readLine() { return read(output_, '\n'); }

  void endWith(int signal) const { kill(process_, signal); }

  /// Closes the program's input, reads the rest of its output and waits until it ends.
  ProgramResult finish() {
    close(input_);
    const std::string rest = read(output_);
    int status = 0;
    waitpid(process_, &status, 0);
    running_ = false;
    std::rewind(errors_);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), rest, read(errors_)};
  }

 private:
  static std::vector<std::string> environmentWith(const std::vector<std::string>& given) {
    std::vector<std::string> result = given;
    for (char** entry = environ; *entry != nullptr; ++entry) {
      const std::string_view text = *entry;
      if (!text.starts_with("ORIVANTA_") && !text.starts_with("XDG_") && !text.starts_with("HOME="))
        result.emplace_back(text);
    }
    result.emplace_back("HOME=/dev/null");
    return result;
  }

  static std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
  }

  void start(const std::vector<std::string>& arguments, const std::vector<std::string>& given,
             int input, int output, int errors) {
    std::vector<std::string> command = {ORIVANTA_COMMAND};
    command.insert(command.end(), arguments.begin(), arguments.end());
    std::vector<std::string> environment = environmentWith(given);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errors, STDERR_FILENO);
    const int failure = posix_spawn(&process_, ORIVANTA_COMMAND, &actions, nullptr,
                                    pointersTo(command).data(), pointersTo(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) throw std::runtime_error("cannot start " ORIVANTA_COMMAND);
    running_ = true;
  }

  // Reads up to and including the character, or to the end.
  static std::string read(std::FILE* file, int last = EOF) {
    std::string text;
    for (int byte = 0; byte != last && (byte = std::fgetc(file)) != EOF;)
      text += static_cast<char>(byte);
    return text;
  }

  std::FILE* errors_;
  pid_t process_ = 0;
  bool running_ = false;
  int input_ = -1;
  std::FILE* output_ = nullptr;
};

/// Runs the program and waits until it ends.
inline ProgramResult runProgram(const std::vector<std::string>& arguments,
                                const std::vector<std::string>& environment = {},
                                std::string_view input = "") {
  Program program(arguments, environment);
  program.send(input);
  return program.finish();
}

}  // namespace orivanta::test
