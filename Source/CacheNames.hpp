// The names of folders and files in the cache folder.
// Private header.
#pragma once

#include <string>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Url.hpp"

namespace orivanta {

/// Returns the name if it is a valid file name, otherwise a name that is derived only from it.
ORIVANTA_API std::string cacheFileName(const std::string& name);

/// Like `cacheFileName`; the name is not hidden.
ORIVANTA_API std::string visibleCacheName(const std::string& name);

/// Returns the port that a URL without a port uses, or "" if it is neither HTTP nor HTTPS.
ORIVANTA_API std::string defaultPort(const foundation::Url& url);

/// Returns a name made from the URL's scheme, host and port.
ORIVANTA_API std::string cacheServerName(const foundation::Url& url);

/// Returns the folder for the files of a venue that come from the URL's server.
ORIVANTA_API std::string cacheFolder(const foundation::Url& url, std::string_view slug);

}  // namespace orivanta
