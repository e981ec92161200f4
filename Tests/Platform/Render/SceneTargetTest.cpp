#include "Platform/Render/SceneTarget.hpp"

#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "Platform/Render/Offscreen/OffscreenSurface.hpp"

namespace orivanta::render {
namespace {

auto driversStorage = epoxy_glRenderbufferStorageMultisample;
GLsizei mostSamples = 0;

void storeUpToTheMost(GLenum target, GLsizei samples, GLenum format, GLsizei width,
                      GLsizei height) {
  if (samples <= mostSamples) driversStorage(target, samples, format, width, height);
}

// A driver that rejects more than a given number of samples, whatever it reports.
class TightDriver {
 public:
  explicit TightDriver(GLsizei most) {
    supportedSamples();  // the function pointer is loaded by the first call
    mostSamples = most;
    driversStorage = std::exchange(epoxy_glRenderbufferStorageMultisample, &storeUpToTheMost);
  }
  ~TightDriver() { epoxy_glRenderbufferStorageMultisample = driversStorage; }
  TightDriver(const TightDriver&) = delete;
  TightDriver& operator=(const TightDriver&) = delete;
};

TEST(SceneTarget, TakesFewerSamplesWhereTheDriverRefusesThem) {
  const auto surface = OffscreenSurface::make(8, 8).value();
  surface->makeCurrent();
  for (const auto& [most, expected] : {std::pair{2, 2}, {1, 1}, {0, 0}}) {
    const TightDriver driver(most);
    EXPECT_EQ(supportedSamples(), expected);
    const SceneTarget target(8, 8, 4);
    EXPECT_EQ(target.samples(), expected);
    target.begin();
    glClearColor(0, 1, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    target.finish();
    glBindFramebuffer(GL_READ_FRAMEBUFFER, surface->framebuffer());
    glFramebufferTexture2D(GL_READ_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
                           target.texture(), 0);
    std::array<unsigned char, 4> bytes{};
    glReadPixels(4, 4, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, bytes.data());
    EXPECT_EQ(bytes, (std::array<unsigned char, 4>{0, 255, 0, 255})) << most;
  }
}

TEST(SceneTargetDeathTest, StopsWhereTheDriverRefusesEvenNone) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto surface = OffscreenSurface::make(8, 8).value();
  surface->makeCurrent();
  const TightDriver driver(-1);
  EXPECT_DEATH(SceneTarget(8, 8, 4), "cannot create a framebuffer of 8 x 8 pixels");
}

}  // namespace
}  // namespace orivanta::render
