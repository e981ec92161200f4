// The map as a Qt widget: the first venue of the web API, with a button for each of its floors.
#include <QApplication>
#include <QMainWindow>
#include <QOpenGLWidget>
#include <QToolBar>
#include <QTouchEvent>
#include <chrono>
#include <cmath>
#include <iostream>
#include <orivanta/ui.hpp>

using namespace orivanta;

namespace {

double now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

class MapWidget : public QOpenGLWidget {
 public:
  MapWidget() {
    setAttribute(Qt::WA_AcceptTouchEvents);
    mapView->allowsSimultaneousGestures = true;
    foundation::mainQueue::setWake([this] {
      const auto drain = [this] {
        if (foundation::mainQueue::drain()) update();
      };
      QMetaObject::invokeMethod(this, drain, Qt::QueuedConnection);
    });
  }
  ~MapWidget() override {
    foundation::mainQueue::setWake(nullptr);
    makeCurrent();  // the renderer must be destroyed in its context
    renderer_.reset();
  }

  /// Call `update` after changing what it shows.
  const std::shared_ptr<MapView> mapView = MapView::make();

 protected:
  void initializeGL() override { renderer_ = std::make_unique<render::Renderer>(); }

  void paintGL() override {
    const graphics::Size size{static_cast<double>(width()), static_cast<double>(height())};
    mapView->setFrame({{0, 0}, size});
    mapView->camera().advance(now());
    renderer_->render(*mapView, size, devicePixelRatio(), now(), defaultFramebufferObject());
    if (mapView->needsFrame()) update();
  }

  bool event(QEvent* event) override {
    const auto* const touch = dynamic_cast<QTouchEvent*>(event);
    if (touch == nullptr) return QOpenGLWidget::event(event);
    send(*touch);
    return true;
  }
  void mousePressEvent(QMouseEvent* event) override { send(*event); }
  void mouseMoveEvent(QMouseEvent* event) override { send(*event); }
  void mouseReleaseEvent(QMouseEvent* event) override { send(*event); }

  /// Zooms toward the pointer.
  void wheelEvent(QWheelEvent* event) override {
    const QPointF at = event->position();
    mapView->camera().zoomBy(std::exp(event->angleDelta().y() / 600.0), {at.x(), at.y()},
                             CameraMotion::glide);
    update();
  }

 private:
  /// Sends mouse events as touches.
  void send(const QPointerEvent& event) {
    if (event.type() == QEvent::TouchCancel) return fingers_.cancelAll(now());
    std::vector<view::Touch> touches;
    for (const QEventPoint& point : event.points()) {
      const auto phase = point.state() == QEventPoint::Pressed    ? view::TouchPhase::began
                         : point.state() == QEventPoint::Released ? view::TouchPhase::ended
                                                                  : view::TouchPhase::moved;
      const graphics::Point position{point.position().x(), point.position().y()};
      touches.push_back({static_cast<std::uint64_t>(point.id()), phase, position, now()});
    }
    fingers_.dispatch(touches);
    update();
  }

  view::TouchDispatcher fingers_{mapView};
  std::unique_ptr<render::Renderer> renderer_;
};

/// Loads the first venue and shows it. All handlers are called on the main queue.
void showFirstVenue(MapWidget& map, QToolBar& floorButtons) {
  FloorLoadHandlers handlers;
  handlers.ended = [&](const auto& floors) {
    for (const FloorProgress& floor : floors) {
      if (floor.state != FloorState::ready) continue;
      floorButtons.addAction(QString::fromStdString(floor.map->name), [&, shown = floor.map] {
        map.mapView->changeMap(shown);
        map.update();
      });
    }
  };
  const auto showFloors = [mapView = map.mapView, handlers](const VenueLoadReport& report) {
    mapView->venue = report.venue;
    mapView->loadFloors(handlers);
  };
  const auto loadFirst = [showFloors](const VenueListReport& report) {
    if (report.venues.empty()) {
      std::cerr << "no venue; is ORIVANTA_ENDPOINT set?\n";
      return;
    }
    loadVenueReporting(APISession(), report.venues.front(), /*accessible=*/false,
                       {.ended = showFloors, .executor = foundation::mainQueue::async});
  };
  loadVenuesReporting(APISession(), {.ended = loadFirst, .executor = foundation::mainQueue::async});
}

}  // namespace

int main(int argc, char** argv) {
  if (const char* const endpoint = std::getenv("ORIVANTA_ENDPOINT"))
    setApiSettings({.endpoint = endpoint});
  QSurfaceFormat format;
  format.setRenderableType(QSurfaceFormat::OpenGLES);
  format.setVersion(3, 0);
  QSurfaceFormat::setDefaultFormat(format);

  const QApplication application(argc, argv);
  QMainWindow window;
  auto* const map = new MapWidget;
  window.setCentralWidget(map);  // takes ownership
  showFirstVenue(*map, *window.addToolBar("Floors"));
  window.resize(1000, 700);
  window.show();
  return QApplication::exec();
}
