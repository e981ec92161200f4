#include "Apps/Viewer/Viewer.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Platform/Foundation/Languages.hpp"
#include "Platform/Network/OfflineTransport.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr double noteTime = 6;  // seconds
constexpr double closuresTime = 60;
constexpr double slowSeconds = 5;  // a stored venue is shown if a server needs longer

std::string languagesOf(const ViewerOptions& options) {
  if (!options.languages.empty()) return options.languages;
  return fmt::format("{}", fmt::join(foundation::preferredLanguages(), ", "));
}

ApiSettings settingsOf(const ViewerOptions& options) {
  ApiSettings settings = options.settings;
  if (options.isOffline) settings.transport = network::makeOfflineTransport();
  return settings;
}

void center(view::View& view, graphics::Size size, graphics::Size room) {
  view.setFrame(
      {{std::round((room.width - size.width) / 2), std::round((room.height - size.height) / 2)},
       size});
}

}  // namespace

Viewer::Viewer(ViewerOptions options)
    : slug_(std::move(options.slug)),
      clock_(std::move(options.clock)),
      walksAtOnce_(options.walksAtOnce),
      isOffline_(options.isOffline),
      settings_(settingsOf(options)),
      languages_(languagesOf(options)),
      theme_(std::move(options.theme)),
      reducesMotion_(options.reducesMotion),
      texts_(languagesOf(options)),
      source_(settings_, languages_, texts_),
      root_(std::make_shared<DirectedRoot>(texts_.isRightToLeft())),
      veil_(std::make_shared<LoadingVeil>(texts_)),
      venueList_(std::make_shared<VenueList>(texts_)),
      message_(std::make_shared<MessagePanel>(texts_)),
      note_(std::make_shared<Note>()),
      connectionNote_(std::make_shared<ConnectionNote>(texts_)),
      look_(options.look),
      ring_(std::make_shared<FocusRing>(focus_)),
      fingers_(root_),
      pointer_(*this) {
  applyLook();
  for (const std::shared_ptr<view::View>& part : std::initializer_list<std::shared_ptr<view::View>>{
           veil_, venueList_, message_, connectionNote_, note_, ring_})
    root_->addSubview(part);
  venueList_->setHidden(true);
  message_->setHidden(true);
  note_->setHidden(true);
  connectionNote_->setHidden(true);
  venueList_->chosen = [this](const auto& venue) { open(venue); };
  listVenues();
}

Viewer::~Viewer() {
  life_.cancel();
  pictures_.cancel();
}

void Viewer::resize(graphics::Size size, double scale) {
  size_ = size;
  scale_ = scale;
  arrange();
}

void Viewer::arrange() {
  applyLook();
  root_->setFrame({{0, 0}, size_});
  ring_->setFrame(root_->bounds());
  root_->bringSubviewToFront(*ring_);
  veil_->setFrame(root_->bounds());
  veil_->arrange(size_);
  center(*message_, message_->arrange(size_), size_);
  // The logo stays visible above the panels.
  const double logoEnd = std::max(20.0, size_.height * 0.5 - 170) + 80;
  const graphics::Size below{size_.width, size_.height - logoEnd + theme::margin};
  center(*venueList_, venueList_->arrange(below), size_);
  for (view::View* panel :
       {static_cast<view::View*>(message_.get()), static_cast<view::View*>(venueList_.get())}) {
    graphics::Rect frame = panel->frame();
    const bool veiled = !veil_->isHidden();
    const double lowest = size_.height - frame.size.height - theme::margin;
    const double wanted = veiled ? logoEnd + 40 : frame.minY();
    frame.origin.y = std::max(theme::margin, std::min(wanted, lowest));
    panel->setFrame(frame);
  }
  if (venueView_) venueView_->arrange(size_, scale_);
  if (incoming_) incoming_->arrange(size_, scale_);
  arrangeNote();
}

// Places the notes where no panel stays: at the lower edge, or on a phone below the search field.
void Viewer::arrangeNote() {
  const double belowSearch = SearchPanel::barHeight() + 28;
  constexpr double gap = 8;
  double taken = 0;  // by the note about the connection
  const auto place = [&](view::View& panel, const graphics::Size& size) {
    const double lowest = size_.height - size.height - theme::margin - taken;
    panel.setFrame({{std::round((size_.width - size.width) / 2),
                     hasBottomSheet(size_) ? belowSearch + taken : lowest},
                    size});
  };
  if (!connectionNote_->isHidden()) {
    const graphics::Size size = connectionNote_->arrange(size_);
    place(*connectionNote_, size);
    taken = size.height + gap;
  }
  place(*note_, note_->arrange(size_));
}

bool Viewer::showsMap() const { return venueView_ && veil_->isHidden() && message_->isHidden(); }

void Viewer::advance(double time) {
  if (venueView_) {
    venueView_->advance(time);
    if (closuresEnd_ && time >= *closuresEnd_) fetchClosures();
    if (!closuresEnd_) closuresEnd_ = time + closuresTime;
  }
  advanceIncoming();
  for (Reconnection* const attempts : {reconnection_.get(), awaited_.get()})
    if (attempts != nullptr) attempts->advance(time);
  if (whenSlow_ && !slowTime_) slowTime_ = time + slowSeconds;
  if (whenSlow_ && time >= *slowTime_) std::exchange(whenSlow_, nullptr)();
  if (note_->isHidden() || isLoading()) return;
  if (!noteEnd_) noteEnd_ = time + noteTime;
  if (time >= *noteEnd_) hideNote();
}

double Viewer::nextFrameTime() const {
  double next =
      venueView_ && closuresEnd_ ? *closuresEnd_ : std::numeric_limits<double>::infinity();
  for (const Reconnection* const attempts : {reconnection_.get(), awaited_.get()})
    if (attempts != nullptr) next = std::min(next, attempts->nextTime());
  return next;
}

bool Viewer::isMoving() const {
  if (isLoading() || !note_->isHidden() || isIncomingReady_) return true;
  return venueView_ && veil_->isHidden() && venueView_->isMoving();
}

void Viewer::remark(const std::string& sentence) {
  const std::string before = note();
  note_->setText(before.empty() ? sentence : before + ' ' + sentence);
  note_->setHidden(false);
  noteEnd_.reset();
  arrangeNote();
}

std::string Viewer::note() const { return note_->isHidden() ? "" : note_->text(); }

// Hides the note first, so that the picture does not show the note about the previous one.
void Viewer::takePicture() {
  if (!pictureWanted) return;
  hideNote();
  pictureWanted();
}

void Viewer::hideNote() { note_->setHidden(true); }

std::string Viewer::title() const {
  return venueView_ ? foundation::label(venueView_->venue()->name.value_or("Orivanta"))
                    : "Orivanta";
}

const MessagePanel* Viewer::message() const {
  return message_->isHidden() ? nullptr : message_.get();
}

}  // namespace orivanta::viewer
