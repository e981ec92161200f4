#include "Source/UI/MapView.hpp"

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/View/ImageView.hpp"
#include "Source/UI/Floors/FloorLoading.hpp"
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
      activityIndicator(std::make_shared<view::ActivityIndicatorView>()) {
  initView();
}

MapView::MapView(const view::Coder& coder) : MapView(View(coder).frame()) {}

// The scene view may be kept by others: nothing in it may lead back here.
MapView::~MapView() {
  if (const auto load = floorLoad_) load->cancel();
  sceneView->setRendererDelegate(nullptr);
  sceneView->allowSimultaneous({});
  for (const auto& recognizer : recognizers_) sceneView->removeGestureRecognizer(*recognizer);
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

// A view that was made without a size has an overlay without one, in which no marker shows.
void MapView::didLayOut() {
  if (spriteScene && spriteScene->size() == graphics::Size()) spriteScene->setSize(bounds().size);
}

MapViewOverlay2D& MapView::overlay() const { return foundation::unwrap(spriteScene); }

void MapView::willRenderScene(view::SceneView&, const std::shared_ptr<scene::Scene>&, double) {
  updateMarkerPositions();
}

}  // namespace orivanta
