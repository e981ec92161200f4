#include "Source/UI/MapView.hpp"

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/View/ImageView.hpp"
#include "Source/UI/Display/Styled/StyledMap.hpp"
#include "Source/UI/Parts/MapViewParts.hpp"
#include "Source/UI/SdkBundle.hpp"

namespace orivanta {

namespace {

using view::LayoutAttribute;

constexpr graphics::Size logoSize{70, 30};
constexpr double logoAlpha = 0.7;
constexpr double logoMargin = 10;
constexpr double logoBottomMargin = 5;
constexpr graphics::Color veil = graphics::Color::fromWhite(0, 0.7F);

}  // namespace

std::optional<MotionType> makeMotionType(int rawValue) {
  if (rawValue < static_cast<int>(MotionType::Zooming) ||
      rawValue > static_cast<int>(MotionType::Multi))
    return std::nullopt;
  return static_cast<MotionType>(rawValue);
}

void boundInside(view::View& subview, view::View& superview) {
  subview.setTranslatesAutoresizingMaskIntoConstraints(false);
  for (const char* format : {"H:|-0-[subview]-0-|", "V:|-0-[subview]-0-|"})
    superview.addConstraints(
        view::constraintsWithVisualFormat(format, "subview", subview, superview));
}

std::shared_ptr<MapView> MapView::make(graphics::Rect frame) {
  return std::make_shared<MapView>(frame);
}

MapView::MapView() : MapView(graphics::Rect()) {}

MapView::MapView(graphics::Rect frame)
    : View(frame),
      bundle(sdkBundle()),
      assetLoader(std::make_shared<AssetLoader>()),
      downloader(std::make_shared<HttpDownloader>()),
      sceneView(std::make_shared<view::SceneView>(frame)),
      activityIndicator(std::make_shared<view::ActivityIndicatorView>()),
      parts_(std::make_unique<Parts>(*this)) {
  initView();
}

MapView::MapView(const view::Coder& coder) : MapView(View(coder).frame()) {}

// Others may keep the scene view, so it must not refer to this object any more. The venue owns the
// models, so they must not keep the style.
MapView::~MapView() {
  setStyle(nullptr);
  if (const auto load = parts_->floorLoad) load->cancel();
  sceneView->setRendererDelegate(nullptr);
  sceneView->allowSimultaneous({});
  for (const auto& recognizer : parts_->recognizers)
    sceneView->removeGestureRecognizer(*recognizer);
}

void MapView::initView() {
  sceneView->setFrame(frame());
  sceneView->setRendererDelegate(this);
  sceneView->allowSimultaneous(
      [this](const auto&, const auto&) { return allowsSimultaneousGestures; });
  addSubview(sceneView);
  boundInside(*sceneView, *this);

  addMapLogo();

  spriteScene = MapViewOverlay2D::make(bounds().size);
  sceneView->setOverlayScene(spriteScene);

  activityIndicator->setStyle(view::ActivityIndicatorStyle::gray);  // sets the frame's size, too
  activityIndicator->setFrame(frame());
  activityIndicator->setColor(graphics::colors::white);
  activityIndicator->setBackgroundColor(veil);
  showActivity();
}

void MapView::showActivity() {
  addSubview(activityIndicator);
  bringSubviewToFront(*activityIndicator);
  activityIndicator->setTranslatesAutoresizingMaskIntoConstraints(false);
  for (const LayoutAttribute attribute :
       {LayoutAttribute::centerX, LayoutAttribute::centerY, LayoutAttribute::leading,
        LayoutAttribute::trailing, LayoutAttribute::top, LayoutAttribute::bottom})
    addConstraint({activityIndicator.get(), attribute, this, attribute});
  activityIndicator->startAnimating();
}

void MapView::hideActivity() {
  activityIndicator->stopAnimating();
  activityIndicator->removeFromSuperview();
}

void MapView::addMapLogo() {
  const auto bytes = foundation::unwrap(bundle.bytes("MapLogo", "png"));
  const auto logo = std::make_shared<view::ImageView>(graphics::decodeImage(bytes));
  logo->setAlpha(logoAlpha);
  logo->setFrame({{0, 0}, logoSize});
  addSubview(logo);
  parts_->logo = logo;
  logo->setTranslatesAutoresizingMaskIntoConstraints(false);
  addConstraint({logo.get(), LayoutAttribute::right, this, LayoutAttribute::right, 1, -logoMargin});
  addConstraint(
      {logo.get(), LayoutAttribute::bottom, this, LayoutAttribute::bottom, 1, -logoBottomMargin});
  addConstraint(
      {.first = logo.get(), .firstAttribute = LayoutAttribute::width, .constant = logoSize.width});
  addConstraint({.first = logo.get(),
                 .firstAttribute = LayoutAttribute::height,
                 .constant = logoSize.height});
}

// The overlay of a view that was created without a size has no size and shows no markers.
void MapView::didLayOut() {
  if (spriteScene && spriteScene->size() == graphics::Size()) spriteScene->setSize(bounds().size);
  parts_->rig.viewResized();
}

void MapView::renewOverlay() {
  const graphics::Transaction transaction;
  const auto renewed = MapViewOverlay2D::make(bounds().size);
  parts_->markers.moveTo(*renewed);
  spriteScene = renewed;
  sceneView->setOverlayScene(renewed);
  updateMarkerPositions();
}

const std::shared_ptr<Map>& MapView::currentMap() const { return parts_->currentMap; }

void MapView::setStyle(std::shared_ptr<MapStyle> style) {
  if (style == parts_->style) return;
  const graphics::Transaction transaction;
  parts_->shapes.highlightChanged = {};
  if (parts_->style) parts_->style->styled_->detach();
  parts_->style = std::move(style);
  if (!parts_->style) return parts_->routes.styleChanged();
  StyledMap& styled = *parts_->style->styled_;
  if (MapView* const former = styled.view()) former->setStyle(nullptr);
  styled.attach({this, parts_->sun, parts_->logo});
  parts_->routes.styleChanged();
  for (const auto& shape : parts_->shapes.highlightedShapes()) styled.setHighlighted(*shape, true);
  parts_->shapes.highlightChanged = [&styled](scene::Node& shape, bool isHighlighted) {
    styled.setHighlighted(shape, isHighlighted);
  };
}

const std::shared_ptr<MapStyle>& MapView::style() const { return parts_->style; }

StyledMap* MapView::styled() const {
  return parts_->style ? parts_->style->styled_.get() : nullptr;
}

MapCamera& MapView::camera() const { return parts_->camera; }

bool MapView::isAnimating() const { return parts_->camera.isGliding() || View::isAnimating(); }

std::vector<std::shared_ptr<MapViewMarker>> MapView::markers() const {
  return parts_->markers.markers();
}

void MapView::addMarker(const std::shared_ptr<MapViewMarker2D>& marker) {
  parts_->markers.add(marker);
}

void MapView::removeMarker(const std::shared_ptr<MapViewMarker2D>& marker) {
  parts_->markers.remove(marker);
}

void MapView::updateMarkerPositions() { parts_->markers.updatePositions(); }

void MapView::updateMarkerVisibility() { parts_->markers.updateVisibility(); }

MapViewOverlay2D& MapView::overlay() const { return foundation::unwrap(spriteScene); }

void MapView::willRenderScene(view::SceneView&, const std::shared_ptr<scene::Scene>&, double time) {
  updateMarkerPositions();
  if (StyledMap* const style = styled()) style->prepareFrame(time);
}

}  // namespace orivanta
