// OpenGL ES 3.0, and owners of its object names.
#pragma once

#ifdef __EMSCRIPTEN__
#include <GLES3/gl3.h>
#else
#include <epoxy/gl.h>
#endif

#include <utility>

namespace orivanta::render::gl {

/// Owns one object name. Must be created and destroyed while the context is current.
template <class Kind>
class Name {
 public:
  Name() : name_(Kind::make()) {}
  ~Name() {
    if (name_ != 0) Kind::free(name_);
  }
  Name(Name&& other) noexcept : name_(std::exchange(other.name_, 0)) {}
  Name& operator=(Name&& other) noexcept {
    std::swap(name_, other.name_);
    return *this;
  }

  GLuint get() const { return name_; }

 private:
  GLuint name_;
};

struct BufferKind {
  static GLuint make() {
    GLuint name = 0;
    glGenBuffers(1, &name);
    return name;
  }
  static void free(GLuint name) { glDeleteBuffers(1, &name); }
};

struct VertexArrayKind {
  static GLuint make() {
    GLuint name = 0;
    glGenVertexArrays(1, &name);
    return name;
  }
  static void free(GLuint name) { glDeleteVertexArrays(1, &name); }
};

struct TextureKind {
  static GLuint make() {
    GLuint name = 0;
    glGenTextures(1, &name);
    return name;
  }
  static void free(GLuint name) { glDeleteTextures(1, &name); }
};

struct SamplerKind {
  static GLuint make() {
    GLuint name = 0;
    glGenSamplers(1, &name);
    return name;
  }
  static void free(GLuint name) { glDeleteSamplers(1, &name); }
};

struct FramebufferKind {
  static GLuint make() {
    GLuint name = 0;
    glGenFramebuffers(1, &name);
    return name;
  }
  static void free(GLuint name) { glDeleteFramebuffers(1, &name); }
};

struct RenderbufferKind {
  static GLuint make() {
    GLuint name = 0;
    glGenRenderbuffers(1, &name);
    return name;
  }
  static void free(GLuint name) { glDeleteRenderbuffers(1, &name); }
};

using Buffer = Name<BufferKind>;
using VertexArray = Name<VertexArrayKind>;
using Texture = Name<TextureKind>;
using Sampler = Name<SamplerKind>;
using Framebuffer = Name<FramebufferKind>;
using Renderbuffer = Name<RenderbufferKind>;

/// An offset into a bound buffer, in the form that OpenGL expects.
inline const void* offset(std::size_t bytes) {
  return reinterpret_cast<const void*>(bytes);  // NOLINT(performance-no-int-to-ptr)
}

/// The value of an integer parameter of the context.
inline GLint parameter(GLenum which) {
  GLint value = 0;
  glGetIntegerv(which, &value);
  return value;
}

}  // namespace orivanta::render::gl
