#include "Source/WebApi.hpp"

#include <utility>

#include "Source/Loading/AnswerRecorder.hpp"
#include "Source/Loading/CollectionPage.hpp"

namespace orivanta {

WebApiSession::WebApiSession(std::string_view root, const std::string& username,
                             const std::string& password,
                             const std::optional<std::string>& language,
                             std::shared_ptr<WebApiObserver> observer, std::size_t loadBytes,
                             std::shared_ptr<network::UrlTransport> transport)
    : ApiHttpSession(root, username, password, language, std::move(transport)),
      observer_(std::move(observer)),
      loadBytes_(loadBytes),
      username_(username) {}

template <class Record>
void WebApiSession::collection(const char* path, const Dictionary<std::string>& parameters,
                               Callback<Record> callback) const {
  network::TransferRules rules = rules_;
  if (!rules.budget) rules.budget = std::make_shared<foundation::MemoryBudget>(loadBytes_);
  const auto chain =
      ApiHttpSession.get(path, parameters, {rules, nullptr, cancellation_})
          .template onPage<Collection<Record>>(
              {}, [budget = rules.budget](Collection<Record> records, const RawData& page) {
                return withPage(std::move(records), page, *budget);
              });
  chain.onComplete(
      [callback, path, observer = observer_, recorder = recorder_](Collection<Record> records) {
        if (recorder) recorder->end(path);
        if (observer) observer->collectionEnded(path, {});
        callback(std::move(records));
      });
  chain.onError([callback, path, observer = observer_](const foundation::Error& error) {
    if (observer) observer->collectionEnded(path, foundation::failure(error));
    callback({});
  });
  if (recorder_)
    chain.onBody([path, recorder = recorder_](const network::HttpUrlResponse& response,
                                              std::string_view body) {
      recorder->take(path, response.statusCode, body);
    });
  if (observer_)
    chain.onResponse([path, observer = observer_](const network::HttpUrlResponse& response,
                                                  std::size_t bodyBytes) {
      observer->pageReceived(path, response, bodyBytes);
    });
}

void WebApiSession::venues(Callback<Venue> callback) const {
  collection<Venue>("venue", {}, std::move(callback));
}

void WebApiSession::locations(const std::string& venue, Callback<Location> callback) const {
  collection<Location>("location", {{"venue", venue}}, std::move(callback));
}

void WebApiSession::categories(const std::string& venue, Callback<Category> callback) const {
  collection<Category>("category", {{"venue", venue}}, std::move(callback));
}

void WebApiSession::maps(const std::string& venue, Callback<Map> callback) const {
  collection<Map>("map", {{"venue", venue}}, std::move(callback));
}

void WebApiSession::nodes(const std::string& venue, Callback<Node> callback) const {
  collection<Node>("node", {{"venue", venue}, {"perspective", "well-known:3D"}},
                   std::move(callback));
}

void WebApiSession::vortices(const std::string& venue, Callback<Vortex> callback) const {
  collection<Vortex>("vortex", {{"venue", venue}}, std::move(callback));
}

void WebApiSession::polygons(const std::string& venue, Callback<Polygon> callback) const {
  collection<Polygon>("polygon", {{"venue", venue}}, std::move(callback));
}

}  // namespace orivanta
