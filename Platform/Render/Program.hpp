// A shader program.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "Platform/Graphics/Vector.hpp"
#include "Platform/Render/Gl.hpp"

namespace orivanta::render {

/// A program that the driver may still be compiling. Making one does not wait for the driver.
class Compilation {
 public:
  /// `definitions` (lines of #define) precede both sources, which have no #version line.
  Compilation(std::string_view definitions, std::string_view vertex, std::string_view fragment);
  ~Compilation();
  Compilation(const Compilation&) = delete;
  Compilation& operator=(const Compilation&) = delete;

 private:
  friend class Program;

  // Waits for the driver and gives the program away. Stops the program with a fatal error if the
  // driver rejects it.
  GLuint finish();

  GLuint name_;  // 0 after `finish`
  const std::array<GLuint, 2> shaders_;
};

/// GLSL ES 3.00 with high precision. Call `use` before setting uniforms; uniforms that the program
/// does not have are ignored.
class Program {
 public:
  /// `definitions` (lines of #define) precede both sources, which have no #version line. If the
  /// driver rejects a shader, the program stops with a fatal error.
  Program(std::string_view definitions, std::string_view vertex, std::string_view fragment);
  /// Waits until a program is compiled.
  explicit Program(Compilation&& compilation);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  void use() const { glUseProgram(name_); }
  GLint uniform(const char* name) const { return glGetUniformLocation(name_, name); }

  void set(GLint uniform, const graphics::Matrix4& matrix) const;
  void set(GLint uniform, const graphics::Vector3& vector) const;
  void set(GLint uniform, float x, float y) const { glUniform2f(uniform, x, y); }
  void set(GLint uniform, float value) const { glUniform1f(uniform, value); }

  /// Sets the texture unit of a sampler. Binds the program.
  void setSampler(const char* name, GLint unit) const;

 private:
  GLuint name_;
};

}  // namespace orivanta::render
