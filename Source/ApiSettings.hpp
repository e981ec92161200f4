// The settings of the process-wide API session, and the session.
//
//   setApiSettings({.endpoint = "https://maps.example.org/1/"});
//
// Settings that an application does not set are read from the main bundle's property lists, in
// order, under the keys "OrivantaEndpoint" (the API root, ending in a slash), "OrivantaUsername"
// and "OrivantaPassword". Platform/Foundation/Bundle.hpp describes where the main bundle is.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "Platform/Foundation/Export.hpp"
#include "Source/WebApi.hpp"

namespace orivanta {

/// The API root that is used if no setting specifies another.
extern ORIVANTA_API const std::string DEFAULT_ORIVANTA_ENDPOINT;

/// Settings of an application. They take precedence over the property lists.
///
/// If no user name is set here or in a property list, the user name in the endpoint's URL is used,
/// and the password in that URL if no password is set. Both are removed from the session's root.
struct ApiSettings {
  std::optional<std::string> endpoint = std::nullopt;  ///< the API root, ending in a slash
  std::optional<std::string> username = std::nullopt;  ///< for HTTP Basic authentication
  std::optional<std::string> password = std::nullopt;  ///< for HTTP Basic authentication
  std::shared_ptr<WebApiObserver> observer = nullptr;  ///< called for every request; may be null
  std::size_t loadBytes = defaultLoadBytes;            ///< memory limit of one load; see WebApi.hpp
  /// The rate below which the reporting loads fail; see `WebApiSession::withLowestRate`.
  std::optional<network::LowestRate> lowestRate = std::nullopt;
  /// Sends the requests of the session instead of libcurl; may be null. Floors and pictures are not
  /// requested by the session: see `HttpDownloader` and `network::setDefaultTransport`.
  std::shared_ptr<network::UrlTransport> transport = nullptr;
  /// Keeps complete venues for the time without a server; may be null. See VenueStore.hpp.
  std::shared_ptr<VenueStore> store = nullptr;
};

/// Has an effect only if it is called before the first use of `APISession`, `getVenues` or
/// `getVenue`. Must not be called concurrently with one of them.
ORIVANTA_API void setApiSettings(ApiSettings settings);

/// Returns the session of `getVenues` and `getVenue`, whose loads fill the active venue. The first
/// call creates it from the settings, which are read once: later changes have no effect. The
/// session exists until the process ends. Thread-safe.
ORIVANTA_API const WebApiSession& APISession();

}  // namespace orivanta
