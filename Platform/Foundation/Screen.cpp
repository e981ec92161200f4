#include "Platform/Foundation/Screen.hpp"

#include <atomic>

namespace orivanta::foundation {

namespace {
std::atomic<double> scale = 1.0;
}

double mainScreenScale() { return scale.load(); }

void setMainScreenScale(double pixelsPerPoint) {
  if (pixelsPerPoint > 0.0) scale.store(pixelsPerPoint);
}

}  // namespace orivanta::foundation
