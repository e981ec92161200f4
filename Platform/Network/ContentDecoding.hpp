// Undoing the compression of a received body.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Undoes the "Content-Encoding" of the body in place. Fails if the encoding is neither "gzip" nor
/// "identity", or if the body is damaged or decodes to more than 512 MiB. Throws `BudgetExceeded`
/// if the decoded body exceeds the request's budget. Takes a while for a large body, so do not call
/// it on the transport's thread.
ORIVANTA_API foundation::Result<void> decodeBody(UrlAnswer& answer);

}  // namespace orivanta::network
