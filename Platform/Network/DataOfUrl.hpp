// A whole resource, read while the caller waits.
#pragma once

#include <string>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// The bytes behind an "http", "https" or "file" URL, of up to 512 MiB. As for a session's request,
/// redirects are followed, and a minute without a byte ends it; every status counts, so that the
/// bytes may be those of an error page. Fails if the resource cannot be read to its end. Blocks the
/// calling thread, which may be any but the one on which the transport reports.
ORIVANTA_API foundation::Result<std::string> dataOfUrl(const foundation::Url& url,
                                                       const TransferOptions& options = {});

}  // namespace orivanta::network
