#include "Platform/Render/CanvasPainter.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Platform/Render/SpriteGatherer.hpp"
#include "Platform/View/SceneView.hpp"

namespace orivanta::render {

namespace {

std::array<float, 4> multiplied(const graphics::Color& color, double alpha) {
  const float a = color.alpha * static_cast<float>(alpha);
  return {color.red * a, color.green * a, color.blue * a, a};
}

bool isEmpty(const QuadVertex& vertex) {
  return !(vertex.halfSize[0] > 0 && vertex.halfSize[1] > 0);
}

// Aligns an image to whole pixels if its rectangle has the image's size in pixels, so that it stays
// sharp.
void snapToPixels(QuadVertex& vertex, const std::array<std::uint32_t, 2>& sides) {
  for (std::size_t axis = 0; axis < 2; ++axis)
    if (std::abs(static_cast<float>(sides[axis]) - 2 * vertex.halfSize[axis]) > 0.01F) return;
  for (std::size_t axis = 0; axis < 2; ++axis) {
    const float half = static_cast<float>(sides[axis]) / 2;
    vertex.halfSize[axis] = half;
    vertex.center[axis] = std::round(vertex.center[axis] - half) + half;
  }
}

}  // namespace

void CanvasPainter::paint(view::View& view, graphics::Point origin, double alpha) {
  alpha *= view.alpha();
  if (view.isHidden() || alpha <= 0) return;
  origin_ = origin;
  alpha_ = alpha;
  const auto outerClip = clip_;
  view.draw(*this);
  for (const auto& child : view.subviews()) {
    const graphics::Point offset = child->frame().origin;
    paint(*child, {origin.x + offset.x, origin.y + offset.y}, alpha);
  }
  clip_ = outerClip;
}

void CanvasPainter::clip(const graphics::Rect& rect) {
  const auto pixel = [&](double points) { return static_cast<int>(std::lround(points * scale_)); };
  PixelBox box{pixel(origin_.x + rect.minX()), pixel(origin_.y + rect.minY()),
               pixel(origin_.x + rect.maxX()), pixel(origin_.y + rect.maxY())};
  if (clip_)
    box = {std::max(box.left, clip_->left), std::max(box.top, clip_->top),
           std::min(box.right, clip_->right), std::min(box.bottom, clip_->bottom)};
  clip_ = box;
}

void CanvasPainter::add(Quad quad) {
  if (clip_ && (clip_->right <= clip_->left || clip_->bottom <= clip_->top)) return;
  quad.clip = clip_;
  quads.push_back(std::move(quad));
}

QuadVertex CanvasPainter::place(const graphics::Rect& rect) const {
  QuadVertex vertex;
  vertex.center = {static_cast<float>((origin_.x + rect.midX()) * scale_),
                   static_cast<float>((origin_.y + rect.midY()) * scale_)};
  vertex.halfSize = {static_cast<float>(rect.size.width / 2 * scale_),
                     static_cast<float>(rect.size.height / 2 * scale_)};
  return vertex;
}

void CanvasPainter::fill(const graphics::Rect& rect, const graphics::Color& color,
                         double cornerRadius) {
  Quad quad{place(rect), nullptr, std::nullopt};
  if (isEmpty(quad.vertex)) return;
  const auto& half = quad.vertex.halfSize;
  quad.vertex.color = multiplied(color, alpha_);
  quad.vertex.cornerRadius =
      std::clamp(static_cast<float>(cornerRadius * scale_), 0.0F, std::min(half[0], half[1]));
  add(std::move(quad));
}

void CanvasPainter::draw(const std::shared_ptr<const graphics::Image>& image,
                         const graphics::Rect& rect, double alpha, double turn) {
  if (!image) return;
  Quad quad{placeImage(rect, {image->width(), image->height()}, alpha, turn), image};
  if (!isEmpty(quad.vertex)) add(std::move(quad));
}

QuadVertex CanvasPainter::placeImage(const graphics::Rect& rect,
                                     const std::array<std::uint32_t, 2>& sides, double alpha,
                                     double turn) const {
  QuadVertex vertex = place(rect);
  vertex.color = multiplied(graphics::colors::white, alpha_ * alpha);
  if (turn == 0)
    snapToPixels(vertex, sides);
  else
    vertex.turn = {static_cast<float>(std::cos(turn)), static_cast<float>(std::sin(turn))};
  return vertex;
}

void CanvasPainter::draw(const std::shared_ptr<graphics::Sheet>& sheet,
                         std::span<const view::SheetPiece> pieces) {
  if (!sheet) return;
  const std::uint64_t lastSerial = sheets_.choose(sheet);
  bool isComplete = true;
  for (const view::SheetPiece& piece : pieces) {
    const graphics::SheetPlace& at = piece.place;
    Quad quad{placeImage(piece.rect, {at.width, at.height}, piece.alpha, piece.turn), nullptr};
    if (isEmpty(quad.vertex) || !sheet->image(at)) continue;
    if (at.serial > lastSerial) {
      isComplete = false;
      continue;
    }
    quad.vertex.texels = {static_cast<float>(at.x), static_cast<float>(at.y),
                          static_cast<float>(at.width), static_cast<float>(at.height)};
    quad.sheet = sheet;
    add(std::move(quad));
  }
  if (!isComplete) view::View::setNeedsFrame();  // for the next frame, since this one has begun
}

void CanvasPainter::draw(view::SceneView& view, const graphics::Rect& rect) {
  const auto overlay = view.overlayScene();
  if (auto* delegate = view.rendererDelegate(); delegate != nullptr && view.scene())
    delegate->willRenderScene(view, view.scene(), time_);
  if (overlay) overlay->update(time_);

  Quad quad{place(rect), nullptr, scenes.size()};
  if (isEmpty(quad.vertex)) return;
  const auto& half = quad.vertex.halfSize;
  quad.vertex.color = multiplied(graphics::colors::white, alpha_);
  scenes.push_back({gatherer_.gather(view, time_, scale_),
                    static_cast<std::uint32_t>(std::max(1L, std::lround(2 * half[0]))),
                    static_cast<std::uint32_t>(std::max(1L, std::lround(2 * half[1])))});
  add(std::move(quad));
  if (overlay) paintOverlay(view, rect);
}

void CanvasPainter::paintOverlay(const view::SceneView& view, const graphics::Rect& rect) {
  const auto overlay = view.overlayScene();
  const graphics::Size size = overlay->size();
  if (!(size.width > 0 && size.height > 0)) return;
  const double xStretch = rect.size.width / size.width;
  const double yStretch = rect.size.height / size.height;
  for (const PlacedSprite& sprite : gatherSprites(*overlay, scale_ * yStretch)) {
    const graphics::Rect frame{
        {rect.minX() + sprite.frame.minX() * xStretch,
         rect.maxY() - sprite.frame.maxY() * yStretch},
        {sprite.frame.size.width * xStretch, sprite.frame.size.height * yStretch}};
    draw(sprite.image, frame, sprite.alpha, 0.0);
  }
}

}  // namespace orivanta::render
