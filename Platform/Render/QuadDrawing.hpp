// Draws the rectangles of a 2D frame.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "Platform/Render/FrameStatistics.hpp"
#include "Platform/Render/Gl.hpp"
#include "Platform/Render/ImageTextures.hpp"
#include "Platform/Render/Program.hpp"
#include "Platform/Render/Quad.hpp"
#include "Platform/Render/SceneTarget.hpp"
#include "Platform/Render/SheetTextures.hpp"

namespace orivanta::render {

/// Later rectangles cover earlier ones. Adjacent ones with the same contents share a draw call.
/// Colors are blended as sRGB values.
class QuadDrawing {
 public:
  QuadDrawing(ImageTextures& images, const SheetTextures& sheets);

  /// Waits until the programs are compiled, see `SceneRenderer::prepare`.
  void prepare();

  /// Draws to the lower left `width` by `height` pixels of the bound framebuffer, with the scissor
  /// test enabled. The scenes must be finished, and the sheets uploaded. Changes the scissor box.
  void draw(std::span<const Quad> quads, std::span<const SceneTarget> scenes, GLsizei width,
            GLsizei height, FrameStatistics& statistics);

 private:
  struct Variant {
    explicit Variant(Compilation&& compilation);
    Program program;
    GLint pictureSize;
  };

  struct Shaders {
    Shaders();
    Compilation plain;
    Compilation withImage;
    Compilation withSheet;
    Compilation withScene;
  };

  struct Variants {
    explicit Variants(Shaders&& shaders);
    Variant plain;
    Variant withImage;
    Variant withSheet;
    Variant withScene;
  };

  const Variant& variantFor(const Quad& quad) const;
  void bindContents(const Quad& quad, std::span<const SceneTarget> scenes,
                    FrameStatistics& statistics);
  static void pointAttributesAt(std::size_t firstQuad);

  ImageTextures& images_;
  const SheetTextures& sheets_;
  std::unique_ptr<Shaders> shaders_;    // until the first frame
  std::unique_ptr<Variants> variants_;  // from then on
  gl::VertexArray vertexArray_;
  gl::Buffer buffer_;
  std::vector<QuadVertex> vertices_;
};

}  // namespace orivanta::render
