#include "Platform/Render/Program.hpp"

#include <fmt/core.h>

#include <array>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"

namespace orivanta::render {

namespace {

constexpr std::string_view preamble = R"(#version 300 es
precision highp float;
precision highp int;
precision highp sampler2D;
precision highp sampler2DShadow;
)";

template <class Get, class Read>
std::string logOf(GLuint name, Get get, Read read) {
  GLint length = 0;
  get(name, GL_INFO_LOG_LENGTH, &length);
  std::string log(static_cast<std::size_t>(length), '\0');
  read(name, length, nullptr, log.data());
  return log;
}

GLuint compile(GLenum kind, std::string_view definitions, std::string_view source) {
  const std::array<std::string_view, 3> parts{preamble, definitions, source};
  std::array<const char*, 3> texts{};
  std::array<GLint, 3> lengths{};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    texts[i] = parts[i].empty() ? "" : parts[i].data();  // null is not allowed
    lengths[i] = static_cast<GLint>(parts[i].size());
  }
  const GLuint shader = glCreateShader(kind);
  glShaderSource(shader, static_cast<GLsizei>(texts.size()), texts.data(), lengths.data());
  glCompileShader(shader);
  return shader;
}

}  // namespace

// Asking for the success of a step would wait for the driver.
Compilation::Compilation(std::string_view definitions, std::string_view vertex,
                         std::string_view fragment)
    : name_(glCreateProgram()),
      shaders_{compile(GL_VERTEX_SHADER, definitions, vertex),
               compile(GL_FRAGMENT_SHADER, definitions, fragment)} {
  for (const GLuint shader : shaders_) glAttachShader(name_, shader);
  glLinkProgram(name_);
}

Compilation::~Compilation() {
  for (const GLuint shader : shaders_) glDeleteShader(shader);
  glDeleteProgram(name_);  // ignores 0
}

GLuint Compilation::finish() {
  GLint succeeded = 0;
  glGetProgramiv(name_, GL_LINK_STATUS, &succeeded);
  if (succeeded == 0) {
    std::string log = logOf(name_, glGetProgramiv, glGetProgramInfoLog);
    for (const GLuint shader : shaders_) log += logOf(shader, glGetShaderiv, glGetShaderInfoLog);
    foundation::fatalError(fmt::format("a shader program failed to compile: {}", log));
  }
  return std::exchange(name_, 0);
}

Program::Program(std::string_view definitions, std::string_view vertex, std::string_view fragment)
    : Program(Compilation(definitions, vertex, fragment)) {}

Program::Program(Compilation&& compilation) : name_(compilation.finish()) {}

Program::~Program() { glDeleteProgram(name_); }

void Program::set(GLint uniform, const graphics::Matrix4& matrix) const {
  glUniformMatrix4fv(uniform, 1, GL_FALSE, &matrix[0][0]);
}

void Program::set(GLint uniform, const graphics::Vector3& vector) const {
  glUniform3f(uniform, vector.x, vector.y, vector.z);
}

void Program::setSampler(const char* name, GLint unit) const {
  use();
  glUniform1i(uniform(name), unit);
}

}  // namespace orivanta::render
