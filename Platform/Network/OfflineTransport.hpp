// A transport without a network.
// Public header.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Returns a transport whose requests fail immediately with an error of the domain "offline". A
/// downloader with this transport uses only cached files.
ORIVANTA_API std::shared_ptr<UrlTransport> makeOfflineTransport();

}  // namespace orivanta::network
