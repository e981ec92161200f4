#include "Platform/Render/WebCanvas/CanvasSurface.hpp"

#include "Platform/Render/WebCanvas/PageFunctions.hpp"

namespace orivanta::render {

foundation::Result<std::unique_ptr<CanvasSurface>> CanvasSurface::make(int canvas) {
  const int context = orivantaOpenContext(canvas);
  if (context == 0) return foundation::failure("WebGL", 1, "the browser does not support WebGL 2");
  return std::unique_ptr<CanvasSurface>(new CanvasSurface(context));
}

CanvasSurface::~CanvasSurface() { orivantaCloseContext(context_); }

void CanvasSurface::makeCurrent() { orivantaUseContext(context_); }

}  // namespace orivanta::render
