#include "Source/UI/Display/Styled/LabelPictures.hpp"

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <utility>

#include "Platform/Foundation/Background.hpp"
#include "Platform/Foundation/Waiting.hpp"
#include "Platform/View/View.hpp"

namespace orivanta {

using graphics::Image;
using graphics::Sheet;
using graphics::SheetPlace;

namespace {

constexpr int mostTasks = 8;

}  // namespace

// Its functions are called with the mutex locked, unless stated otherwise.
struct LabelPictures::State : std::enable_shared_from_this<State> {
  struct Entry {
    std::optional<SheetPlace> place;
    std::shared_ptr<const Image> image;  // only while the sheet has no space for it
    std::uint64_t lastFrame = 0;         // that asked for it
    bool isMade = false;
  };

  State(std::shared_ptr<const MapTheme> usedTheme, double usedScale, std::uint32_t side)
      : theme(std::move(usedTheme)), scale(usedScale), sheet(Sheet::make(side)) {}

  bool isOld(const Entry& entry) const { return entry.lastFrame + 1 < frame; }
  bool isIdle() const { return drawing == 0 && waiting.empty(); }

  void startTask();
  void run();  // unlocked
  bool drawNext(std::unique_lock<std::mutex>& lock);
  std::optional<LabelPicture> next();
  void store(const LabelPicture& picture, std::shared_ptr<const Image> image);
  void place(Entry& entry);
  bool dropOldest();

  const std::shared_ptr<const MapTheme> theme;
  const double scale;
  const std::shared_ptr<Sheet> sheet;
  std::mutex mutex;  // for the following members
  std::condition_variable becameIdle;
  std::map<LabelPicture, Entry> entries;
  std::deque<LabelPicture> waiting;  // each has an entry
  int tasks = 0;                     // that were started and have not ended
  int drawing = 0;                   // threads that draw an image
  std::uint64_t frame = 1;
  bool isClosed = false;
};

void LabelPictures::State::startTask() {
  if (waiting.empty() || tasks >= mostTasks) return;
  ++tasks;
  foundation::runInBackground([state = shared_from_this()] { state->run(); });
}

void LabelPictures::State::run() {
  std::unique_lock lock(mutex);
  drawNext(lock);
  --tasks;
  startTask();
}

// Draws an image without the lock. Returns false if none is waiting.
bool LabelPictures::State::drawNext(std::unique_lock<std::mutex>& lock) {
  const auto picture = next();
  if (picture) {
    ++drawing;
    lock.unlock();
    auto image = makeLabelImage(*picture, *theme, scale);
    lock.lock();
    --drawing;
    if (!isClosed) {
      store(*picture, std::move(image));
      view::View::setNeedsFrame();
    }
  }
  if (isIdle()) becameIdle.notify_all();
  return picture.has_value();
}

std::optional<LabelPicture> LabelPictures::State::next() {
  while (!waiting.empty()) {
    LabelPicture picture = std::move(waiting.front());
    waiting.pop_front();
    const auto entry = entries.find(picture);
    if (!isOld(entry->second)) return picture;
    entries.erase(entry);
  }
  return std::nullopt;
}

void LabelPictures::State::store(const LabelPicture& picture, std::shared_ptr<const Image> image) {
  const auto found = entries.find(picture);
  if (found == entries.end() || found->second.isMade) return;  // another thread was faster
  Entry& entry = found->second;
  entry.isMade = true;
  const bool fits = image && image->width() < sheet->side() && image->height() < sheet->side();
  if (!fits) return;
  entry.image = std::move(image);
  place(entry);
}

void LabelPictures::State::place(Entry& entry) {
  do {
    entry.place = sheet->add(entry.image);
  } while (!entry.place && dropOldest());
  if (entry.place) entry.image = nullptr;
}

bool LabelPictures::State::dropOldest() {
  auto oldest = entries.end();
  for (auto entry = entries.begin(); entry != entries.end(); ++entry)
    if (entry->second.isMade && isOld(entry->second) &&
        (oldest == entries.end() || entry->second.lastFrame < oldest->second.lastFrame))
      oldest = entry;
  if (oldest == entries.end()) return false;
  if (oldest->second.place) sheet->remove(*oldest->second.place);
  entries.erase(oldest);
  return true;
}

LabelPictures::LabelPictures(std::shared_ptr<const MapTheme> theme, double scale)
    : LabelPictures(std::move(theme), scale, scale > 1 ? 2048 : 1024) {}

LabelPictures::LabelPictures(std::shared_ptr<const MapTheme> theme, double scale,
                             std::uint32_t sheetSide)
    : state_(std::make_shared<State>(std::move(theme), scale, sheetSide)) {}

LabelPictures::~LabelPictures() {
  const std::lock_guard lock(state_->mutex);
  state_->isClosed = true;
  state_->waiting.clear();
}

const std::shared_ptr<Sheet>& LabelPictures::sheet() const { return state_->sheet; }

void LabelPictures::beginFrame() {
  const std::lock_guard lock(state_->mutex);
  ++state_->frame;
}

std::optional<SheetPlace> LabelPictures::find(const LabelPicture& picture) {
  State& state = *state_;
  const std::lock_guard lock(state.mutex);
  const auto [found, isNew] = state.entries.try_emplace(picture);
  State::Entry& entry = found->second;
  entry.lastFrame = state.frame;
  if (isNew) {
    state.waiting.push_back(picture);
    state.startTask();
  }
  if (entry.image) state.place(entry);
  return entry.place;
}

std::optional<SheetPlace> LabelPictures::findNow(const LabelPicture& picture) {
  State& state = *state_;
  std::unique_lock lock(state.mutex);
  State::Entry& entry = state.entries[picture];
  entry.lastFrame = state.frame;
  if (!entry.isMade) {
    std::erase_if(state.waiting,
                  [&](const LabelPicture& each) { return !(each < picture) && !(picture < each); });
    lock.unlock();
    auto image = makeLabelImage(picture, *state.theme, state.scale);
    lock.lock();
    state.store(picture, std::move(image));
  } else if (entry.image) {
    state.place(entry);
  }
  return entry.place;
}

bool LabelPictures::isExpecting() const {
  const std::lock_guard lock(state_->mutex);
  return !state_->isIdle();
}

void LabelPictures::finish() {
  std::unique_lock lock(state_->mutex);
  while (state_->drawNext(lock)) {
  }
  foundation::waitUntil(state_->becameIdle, lock, [&] { return state_->isIdle(); });
}

}  // namespace orivanta
