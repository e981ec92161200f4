#include "Source/HttpSession.hpp"

#include <vector>

#include "Platform/Foundation/Base64.hpp"
#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Source/HttpLink.hpp"

namespace orivanta {

namespace {
constexpr std::size_t receiveBufferBytes = 204800;
}

CustomUrlSessionDelegate::CustomUrlSessionDelegate(SuccessCallback success, ErrorCallback error)
    : onSuccess(std::move(success)), onError(std::move(error)) {
  buffer.reserve(receiveBufferBytes);
}

void CustomUrlSessionDelegate::didReceiveData(std::string_view bytes) { buffer.append(bytes); }

void CustomUrlSessionDelegate::didComplete(const network::HttpUrlResponse& response,
                                           const std::optional<foundation::Error>& error) {
  if (error)
    onError(*error);
  else
    onSuccess(response, buffer);
}

void CustomUrlSessionDelegate::didBecomeInvalid(const std::optional<foundation::Error>& error) {
  if (error) onError(*error);
}

void CustomUrlSessionDelegate::didFinishBackgroundEvents() {
  foundation::diagnostic("finishedeventsforbackgroundsession");
}

namespace detail {

DeliveryHold::DeliveryHold(std::shared_ptr<network::UrlSession> session)
    : session_(std::move(session)) {
  foundation::unwrap(session_).suspendDelivery();
}

DeliveryHold::~DeliveryHold() { session_->resumeDelivery(); }

ChainHandle::ChainHandle(const ChainLinks& links)
    : hold(links.session), sessionDelegate(links.sessionDelegate) {
  foundation::unwrap(sessionDelegate);
}

ChainLinks chainLinks(const foundation::Url& url, const std::string& authString,
                      const std::string& language, const network::TransferOptions& options) {
  auto delegate = std::make_shared<CustomUrlSessionDelegate>(nullptr, nullptr);
  auto session =
      network::UrlSession::make({url.absoluteString(),
                                 {{"Authorization", authString}, {"Accept-Language", language}},
                                 options.rules,
                                 options.transport,
                                 options.cancellation},
                                delegate);
  return {std::move(session), std::move(delegate)};
}

foundation::Result<void> checkStep(const network::UrlSession& session,
                                   const network::HttpUrlResponse& response,
                                   const foundation::Url& next) {
  const network::UrlSessionConfiguration& configuration = session.configuration();
  if (!configuration.rules.staysSecure) return {};
  // A redirect may lead to a URL that cannot be parsed. A redirect from HTTPS led to HTTPS.
  const auto from = response.url ? response.url : foundation::Url::parse(configuration.identifier);
  if (!from || !network::leavesHttps(*from, next)) return {};
  return foundation::failure(network::insecureStep(*from, next));
}

std::optional<foundation::Url> nextPage(const network::HttpUrlResponse& response) {
  const auto link = findLink(response, "next");
  return link ? foundation::Url::parse(link->uri) : std::nullopt;
}

foundation::Error invalidJson() { return {"", 1, ""}; }

}  // namespace detail

HttpSession::HttpSession(std::string_view rootText, const std::optional<std::string>& username,
                         const std::optional<std::string>& password,
                         const std::optional<std::string>& languages,
                         std::shared_ptr<network::UrlTransport> transportToUse)
    : root(foundation::Url::parse(rootText)),
      authString("Basic " + foundation::base64Encoded(foundation::unwrap(username) + ":" +
                                                      foundation::unwrap(password))),
      language(foundation::unwrap(languages)),
      transport(std::move(transportToUse)) {}

HttpResponse<std::any> HttpSession::get(std::string_view path,
                                        const Dictionary<std::string>& parameters,
                                        network::TransferOptions options) const {
  const std::vector<std::pair<std::string, std::string>> items(parameters.begin(),
                                                               parameters.end());
  if (!options.transport) options.transport = transport;
  return {resolved(path).withQueryItems(items), authString, language, options};
}

HttpResponse<std::any> HttpSession::post(std::string_view path,
                                         const Dictionary<std::string>&) const {
  return {resolved(path), authString, language, {{}, transport}};
}

foundation::Url HttpSession::resolved(std::string_view path) const {
  return foundation::unwrap(root ? foundation::Url::parse(path, *root)
                                 : foundation::Url::parse(path));
}

}  // namespace orivanta
