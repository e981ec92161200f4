// The settings of the process-wide API session, and that session.
//
//   setApiSettings({.endpoint = "https://maps.example.org/1/"});
//
// What an application does not set comes from the main bundle's property lists, first file first,
// under the keys "OrivantaEndpoint" (the API root, ending in a slash), "OrivantaUsername" and
// "OrivantaPassword"; see Platform/Foundation/Bundle.hpp for where the main bundle is.
// Public header.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "Platform/Foundation/Export.hpp"
#include "Source/WebApi.hpp"

namespace orivanta {

/// The API root used if no setting names another.
extern ORIVANTA_API const std::string DEFAULT_ORIVANTA_ENDPOINT;

/// Settings that an application gives itself. What is present takes precedence over the property
/// lists.
///
/// If no user name is set, neither here nor in a property list, the one inside the endpoint's URL
/// is used, and with it the password there if none is set. The session's root is without them.
struct ApiSettings {
  std::optional<std::string> endpoint = std::nullopt;  ///< the API root, ending in a slash
  std::optional<std::string> username = std::nullopt;  ///< for HTTP Basic authentication
  std::optional<std::string> password = std::nullopt;  ///< for HTTP Basic authentication
  std::shared_ptr<WebApiObserver> observer = nullptr;  ///< told of every request; may be null
  std::size_t loadBytes = defaultLoadBytes;            ///< what one load may take; see WebApi.hpp
  /// The rate below which the loads that report fail; see `WebApiSession::withLowestRate`.
  std::optional<network::LowestRate> lowestRate = std::nullopt;
  /// Carries out the requests of the session in place of libcurl; may be null. Floors and pictures
  /// do not belong to the session: see `HttpDownloader` and `network::setDefaultTransport`.
  std::shared_ptr<network::UrlTransport> transport = nullptr;
};

/// Takes effect if it is called before the first use of `APISession`, `getVenues` or `getVenue`.
/// Must not be called at the same time as one of them.
ORIVANTA_API void setApiSettings(ApiSettings settings);

/// The session of `getVenues` and `getVenue`, whose loads fill the active venue. The first call
/// makes it of the settings, which are read once: later changes have no effect. Lives as long as
/// the process. Any thread.
ORIVANTA_API const WebApiSession& APISession();

}  // namespace orivanta
