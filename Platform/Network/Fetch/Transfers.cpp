#include "Platform/Network/Fetch/Transfers.hpp"

#include <algorithm>
#include <array>
#include <exception>
#include <string_view>
#include <utility>

#include "Platform/Network/Fetch/PageFunctions.hpp"

namespace orivanta::network {

namespace {

constexpr const char* domain = "browser";
constexpr int noAnswer = 1;
constexpr int tooLarge = 2;

// Returns the text up to the next '\0', and removes both.
std::string takeText(std::string_view& texts) {
  std::string text(texts.substr(0, texts.find('\0')));
  texts.remove_prefix(std::min(texts.size(), text.size() + 1));
  return text;
}

HttpUrlResponse responseOf(std::string_view head, int status) {
  HttpUrlResponse response;
  if (const auto url = foundation::Url::parse(takeText(head))) response.url = *url;
  response.statusCode = status;
  while (!head.empty()) {
    std::string name = takeText(head);
    response.headerFields.emplace_back(std::move(name), takeText(head));
  }
  return response;
}

// Returns the URL, then the name and the value of each field, each ended by '\0'.
std::string textsOf(const UrlRequest& request) {
  std::string texts = request.url.absoluteString() + '\0';
  for (const auto& [name, value] : request.headerFields) texts += name + '\0' + value + '\0';
  return texts;
}

}  // namespace

struct Transfers::Transfer {
  UrlRequest request;
  UrlTransport::Completion completed;
  std::array<std::string, 3> parts = {};
  std::optional<foundation::Error> error = {};
  std::shared_ptr<foundation::BudgetShare> share = {};
  foundation::CancellationRegistration registration = {};

  std::string& part(Part which) { return parts.at(static_cast<std::size_t>(which)); }
  char* room(Part which, std::size_t count);
  UrlResult result(int status);
};

char* Transfers::Transfer::room(Part which, std::size_t count) try {
  std::string& text = part(which);
  if (count > largestBodyBytes - text.size()) {
    error = {domain, tooLarge, "the response is larger than 512 MiB"};
    return nullptr;
  }
  // Counted twice, because both copies exist while the text is moved to a larger buffer.
  if (share) share->take(2 * count);
  text.resize(text.size() + count);
  return text.data() + text.size() - count;
} catch (const std::exception& failure) {
  error = foundation::memoryError(failure);
  return nullptr;
}

UrlResult Transfers::Transfer::result(int status) {
  if (const std::string& problem = part(Part::problem); !error && !problem.empty())
    error = status == 0 ? foundation::Error{domain, noAnswer, problem} : incompleteAnswer(problem);
  if (error) return foundation::failure(*error);
  UrlAnswer answer{responseOf(part(Part::head), status), std::move(part(Part::body)), share};
  if (const auto& url = answer.response.url;
      request.rules.staysSecure && url && leavesHttps(request.url, *url))
    return foundation::failure(insecureStep(request.url, *url));
  return answer;
}

Transfers& Transfers::shared() {
  static auto& instance = *new Transfers;
  return instance;
}

int Transfers::add(UrlRequest request, UrlTransport::Completion completed) {
  const auto transfer =
      std::make_shared<Transfer>(Transfer{std::move(request), std::move(completed)});
  if (const auto& budget = transfer->request.rules.budget)
    transfer->share = std::make_shared<foundation::BudgetShare>(budget);
  transfers_.emplace(nextNumber_, transfer);
  return nextNumber_++;
}

void Transfers::start(UrlRequest request, UrlTransport::Completion completed) {
  if (request.cancellation.isCanceled()) return;
  const int number = add(std::move(request), std::move(completed));
  Transfer& transfer = *transfers_.at(number);
  transfer.registration =
      transfer.request.cancellation.onCancel([this, number] { cancel(number); });
  const std::string texts = textsOf(transfer.request);
  const LowestRate& rate = transfer.request.rules.lowestRate;
  orivantaStartFetch(number, texts.data(), texts.size(), static_cast<double>(rate.bytesPerSecond),
                     static_cast<double>(rate.window.count()));
}

UrlResult Transfers::load(UrlRequest request) {
  std::optional<UrlResult> given;
  const std::string texts = textsOf(request);
  const int number =
      add(std::move(request), [&given](UrlResult result) { given = std::move(result); });
  orivantaLoadNow(number, texts.data(), texts.size());
  transfers_.erase(number);
  if (given) return *std::move(given);
  return foundation::failure(domain, noAnswer, "the page has not answered");
}

char* Transfers::room(int number, Part part, std::size_t count) {
  const auto entry = transfers_.find(number);
  return entry == transfers_.end() ? nullptr : entry->second->room(part, count);
}

void Transfers::end(int number, int status) {
  const auto entry = transfers_.extract(number);
  if (entry.empty()) return;
  Transfer& transfer = *entry.mapped();
  transfer.completed(transfer.result(status));
}

void Transfers::cancel(int number) {
  const auto entry = transfers_.extract(number);
  if (!entry.empty()) orivantaAbortFetch(number);
}

}  // namespace orivanta::network

char* orivantaFetchRoom(int number, int part, std::size_t count) {
  using orivanta::network::Transfers;
  return Transfers::shared().room(number, static_cast<Transfers::Part>(part), count);
}

void orivantaFetchEnded(int number, int status) {
  orivanta::network::Transfers::shared().end(number, status);
}
