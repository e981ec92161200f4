// Reads a whole resource synchronously.
#pragma once

#include <string>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Returns the contents of an "http", "https" or "file" URL, up to 512 MiB. As in a session's
/// request, redirects are followed, and a minute without data ends the request. The status is
/// ignored, so the result may be an error page. Fails if the resource cannot be read completely.
/// Blocks the calling thread, which must not be the thread on which the transport reports. In a
/// browser the page stands still meanwhile, without a time limit, and a transport of the host must
/// respond before its `start` returns.
ORIVANTA_API foundation::Result<std::string> dataOfUrl(const foundation::Url& url,
                                                       const TransferOptions& options = {});

}  // namespace orivanta::network
