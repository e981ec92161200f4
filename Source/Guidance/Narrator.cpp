#include "Source/Guidance/Narrator.hpp"

#include <utility>

#include "Source/Guidance/KindWords.hpp"
#include "Source/Guidance/Words/LanguageTags.hpp"
#include "Source/Guidance/Words/Messages.hpp"
#include "Source/Guidance/Words/StepWriter.hpp"

namespace orivanta::guidance {

std::vector<std::string> Narrator::languages() { return Messages::libraryLanguages(); }

std::string Narrator::bestLanguage(std::string_view preferred) {
  return guidance::bestLanguage(preferred, languages());
}

Narrator::Narrator(std::string_view language)
    : messages_(Messages::ofLibrary(bestLanguage(language))) {}

Narrator::Narrator(std::shared_ptr<const Messages> messages) : messages_(std::move(messages)) {}

foundation::Result<Narrator> Narrator::fromMessages(std::string_view file, std::string language) {
  auto messages = Messages::read(file, std::move(language), Messages::ofLibrary("en"));
  if (!messages) return foundation::failure(std::move(messages.error()));
  return Narrator(std::move(*messages));
}

foundation::Result<void> Narrator::addLanguage(std::string_view file, std::string language) {
  return Messages::addToLibrary(file, std::move(language));
}

const std::string& Narrator::language() const { return messages_->language; }

bool Narrator::isRightToLeft() const { return messages_->rightToLeft; }

std::string Narrator::text(const Itinerary& itinerary, const std::vector<Step>& steps,
                           std::size_t index) const {
  if (index >= steps.size()) return {};
  return StepWriter(*messages_, itinerary, steps, index).text();
}

std::vector<std::string> Narrator::texts(const Itinerary& itinerary,
                                         const std::vector<Step>& steps) const {
  std::vector<std::string> all;
  all.reserve(steps.size());
  for (std::size_t i = 0; i < steps.size(); ++i) all.push_back(text(itinerary, steps, i));
  return all;
}

std::string Narrator::summary(const Itinerary& itinerary) const {
  if (!itinerary.hasScale) return {};
  double meters = 0.0;
  double seconds = 0.0;
  for (const Leg& leg : itinerary.legs) {
    meters += leg.meters;
    seconds += leg.seconds;
  }
  const std::string length = messages_->lengthWithin(meters);
  const std::string time = messages_->time(seconds);
  if (length.empty() || time.empty()) return length + time;
  return messages_->format("summary", {{"length", length}, {"time", time}});
}

std::string Narrator::text(const Problem& problem, std::string_view place) const {
  const std::string name = messages_->name(place);
  const std::string key = "problem." + wordOf(problem.kind);
  const bool concernsAll =
      problem.kind == Problem::Kind::tooFewStops || problem.kind == Problem::Kind::tooManyStops;
  if (name.empty() || concernsAll) return messages_->format(key);
  return messages_->format(key + ".place", {{"place", name}});
}

std::string Narrator::length(double meters) const { return messages_->length(meters); }

std::string Narrator::time(double seconds) const { return messages_->time(seconds); }

}  // namespace orivanta::guidance
