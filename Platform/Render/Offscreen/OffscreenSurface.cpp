#include "Platform/Render/Offscreen/OffscreenSurface.hpp"

#include <epoxy/egl.h>
#include <epoxy/gl.h>
#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

namespace orivanta::render {

struct OffscreenSurface::Context {
  EGLDisplay display = EGL_NO_DISPLAY;
  EGLContext context = EGL_NO_CONTEXT;
  GLuint framebuffer = 0;
  GLuint renderbuffer = 0;
  std::uint32_t width = 0;
  std::uint32_t height = 0;

  Context() = default;
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  // The display stays initialized, because other surfaces of the process may use it.
  ~Context() {
    if (context == EGL_NO_CONTEXT) return;
    makeCurrent();
    if (framebuffer != 0) glDeleteFramebuffers(1, &framebuffer);
    if (renderbuffer != 0) glDeleteRenderbuffers(1, &renderbuffer);
    eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglDestroyContext(display, context);
  }

  bool makeCurrent() const {
    return eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context) == EGL_TRUE;
  }
};

namespace {

auto error(std::string_view what, EGLint code = eglGetError()) {
  return foundation::failure("EGL", code, std::string(what));
}

bool hasExtension(EGLDisplay display, std::string_view name) {
  const char* all = eglQueryString(display, EGL_EXTENSIONS);
  return all != nullptr && std::string_view(all).find(name) != std::string_view::npos;
}

// Uses a platform without a screen if the client library supports it, or else the default display.
EGLDisplay findDisplay() {
  if (hasExtension(EGL_NO_DISPLAY, "EGL_MESA_platform_surfaceless") &&
      hasExtension(EGL_NO_DISPLAY, "EGL_EXT_platform_base")) {
    EGLDisplay display =
        eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if (display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr) == EGL_TRUE)
      return display;
  }
  EGLDisplay display = eglGetDisplay(EGL_DEFAULT_DISPLAY);
  if (display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr) == EGL_TRUE)
    return display;
  return EGL_NO_DISPLAY;
}

EGLContext makeContext(EGLDisplay display) {
  constexpr std::array wanted{EGL_RENDERABLE_TYPE, EGL_OPENGL_ES3_BIT, EGL_SURFACE_TYPE, 0,
                              EGL_NONE};
  EGLConfig config = nullptr;
  EGLint count = 0;
  eglBindAPI(EGL_OPENGL_ES_API);
  if (eglChooseConfig(display, wanted.data(), &config, 1, &count) != EGL_TRUE || count == 0)
    return EGL_NO_CONTEXT;
  constexpr std::array version{EGL_CONTEXT_MAJOR_VERSION, 3, EGL_CONTEXT_MINOR_VERSION, 0,
                               EGL_NONE};
  return eglCreateContext(display, config, EGL_NO_CONTEXT, version.data());
}

// Converts premultiplied to straight alpha, in place.
void divideByAlpha(std::vector<std::uint8_t>& pixels) {
  for (std::size_t i = 0; i < pixels.size(); i += 4) {
    const unsigned alpha = pixels[i + 3];
    if (alpha == 0 || alpha == 255) continue;
    for (std::size_t c = i; c < i + 3; ++c)
      pixels[c] = static_cast<std::uint8_t>(std::min((pixels[c] * 255U + alpha / 2) / alpha, 255U));
  }
}

}  // namespace

OffscreenSurface::OffscreenSurface(std::unique_ptr<Context> context)
    : context_(std::move(context)) {}
OffscreenSurface::~OffscreenSurface() = default;

foundation::Result<std::unique_ptr<OffscreenSurface>> OffscreenSurface::make(std::uint32_t width,
                                                                             std::uint32_t height) {
  auto context = std::make_unique<Context>();
  context->display = findDisplay();
  if (context->display == EGL_NO_DISPLAY)
    return error("no EGL display is available: is an EGL driver installed?");
  if (!hasExtension(context->display, "EGL_KHR_surfaceless_context"))
    return error("the EGL driver cannot draw without a surface", EGL_BAD_ACCESS);
  context->context = makeContext(context->display);
  if (context->context == EGL_NO_CONTEXT)
    return error("the EGL driver does not support OpenGL ES 3.0: is an OpenGL driver installed?");
  if (!context->makeCurrent()) return error("the OpenGL ES context cannot be made current");

  GLint largest = 0;
  glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &largest);
  const auto side = static_cast<std::uint32_t>(largest);
  if (!graphics::Image::allows(width, height) || width > side || height > side)
    return error(
        fmt::format("cannot create an image of {} x {} pixels: each side must be from 1 to {}",
                    width, height, side),
        EGL_BAD_PARAMETER);
  context->width = width;
  context->height = height;
  glGenRenderbuffers(1, &context->renderbuffer);
  glBindRenderbuffer(GL_RENDERBUFFER, context->renderbuffer);
  glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, static_cast<GLsizei>(width),
                        static_cast<GLsizei>(height));
  glGenFramebuffers(1, &context->framebuffer);
  glBindFramebuffer(GL_FRAMEBUFFER, context->framebuffer);
  glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER,
                            context->renderbuffer);
  if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE)
    return error("not enough memory for the image", EGL_BAD_ALLOC);
  return std::unique_ptr<OffscreenSurface>(new OffscreenSurface(std::move(context)));
}

void OffscreenSurface::makeCurrent() { context_->makeCurrent(); }

unsigned OffscreenSurface::framebuffer() const { return context_->framebuffer; }

std::shared_ptr<const graphics::Image> OffscreenSurface::read(double scale) {
  const std::size_t stride = std::size_t{4} * context_->width;
  std::vector<std::uint8_t> upsideDown(stride * context_->height);
  glBindFramebuffer(GL_READ_FRAMEBUFFER, context_->framebuffer);
  glPixelStorei(GL_PACK_ALIGNMENT, 4);
  glReadPixels(0, 0, static_cast<GLsizei>(context_->width), static_cast<GLsizei>(context_->height),
               GL_RGBA, GL_UNSIGNED_BYTE, upsideDown.data());
  std::vector<std::uint8_t> pixels(upsideDown.size());
  for (std::size_t row = 0; row < context_->height; ++row)
    std::memcpy(&pixels[row * stride], &upsideDown[(context_->height - 1 - row) * stride], stride);
  divideByAlpha(pixels);
  return graphics::Image::make(context_->width, context_->height, std::move(pixels), scale);
}

}  // namespace orivanta::render
