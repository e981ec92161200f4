// Sets or removes an environment variable during a test.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace orivanta::test {

/// Use only while no other thread reads the environment.
class EnvironmentVariable {
 public:
  EnvironmentVariable(std::string name, const std::optional<std::string>& value)
      : name_(std::move(name)) {
    if (const char* earlier = std::getenv(name_.c_str())) earlier_ = earlier;
    set(value);
  }
  ~EnvironmentVariable() { set(earlier_); }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

 private:
  void set(const std::optional<std::string>& value) const {
    if (value)
      ::setenv(name_.c_str(), value->c_str(), 1);
    else
      ::unsetenv(name_.c_str());
  }

  std::string name_;
  std::optional<std::string> earlier_;
};

}  // namespace orivanta::test
