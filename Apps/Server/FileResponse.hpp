// Responses whose bodies are files.
#pragma once

#include "Apps/Server/Message.hpp"
#include "Apps/Server/PackageFile.hpp"
#include "Apps/Server/RepresentationCache.hpp"

namespace orivanta::server {

/// 200 with the file, or 304. Texts of up to 32 MiB are compressed for clients that accept that,
/// and kept in `cache`.
Response fileResponse(const Request& request, PackageFile file, const MediaType& type,
                      RepresentationCache& cache);

/// The same for a file that is compressed already. The client must accept that.
Response compressedFileResponse(const Request& request, PackageFile file, const MediaType& type);

}  // namespace orivanta::server
