// The transport of the requests that name no other.
// Public header.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// libcurl, unless it is replaced. Any thread.
ORIVANTA_API std::shared_ptr<UrlTransport> defaultTransport();

/// Replaces it for requests that start later. Null restores libcurl. Any thread.
ORIVANTA_API void setDefaultTransport(std::shared_ptr<UrlTransport> transport);

/// The transport itself, or the default one in place of null. Any thread.
ORIVANTA_API std::shared_ptr<UrlTransport> orDefault(std::shared_ptr<UrlTransport> transport);

}  // namespace orivanta::network
