#include "Apps/Server/FileResponse.hpp"

#include <fmt/format.h>

#include <memory>
#include <stdexcept>
#include <utility>

#include "Apps/Server/ContentNegotiation.hpp"
#include "Apps/Server/Gzip.hpp"

namespace orivanta::server {

namespace {

// Larger files are not compressed, because the result is kept in memory.
constexpr std::size_t largestCompressed = 32U << 20U;

std::string tagOf(const PackageFile& file) { return fmt::format("\"{}\"", file.version()); }

std::string gzippedFile(const PackageFile& file) {
  std::uint64_t position = 0;
  std::string bytes = gzipped([&](char* chunk, std::size_t count) {
    const std::size_t read = file.read(position, chunk, count);
    position += read;
    return read;
  });
  if (position < file.size()) throw std::runtime_error("the file was truncated while it was read");
  return bytes;
}

// Returns null if the file should be sent uncompressed. This includes a file that is being
// compressed for another client, because waiting would block a thread that other clients need.
std::shared_ptr<const Representation> compressedFile(const PackageFile& file,
                                                     RepresentationCache& cache) {
  if (file.size() < smallestCompressed || file.size() > largestCompressed) return nullptr;
  const std::string entityTag = gzipTag(tagOf(file));
  return cache.getWithoutWaiting("file " + entityTag, [&] {
    return Representation{gzippedFile(file), entityTag, true};
  });
}

Response unchangedFile(const Request& request, PackageFile file, const MediaType& type,
                       bool isCompressed) {
  const auto unread =
      std::make_shared<const Representation>(Representation{{}, tagOf(file), isCompressed});
  Response response =
      representationResponse(request, unread, type.name, type.isText ? "Accept-Encoding" : "");
  response.text = nullptr;
  if (response.status == 200) response.file = std::move(file);
  return response;
}

}  // namespace

Response fileResponse(const Request& request, PackageFile file, const MediaType& type,
                      RepresentationCache& cache) {
  if (type.isText && acceptsGzip(request.acceptEncoding))
    if (const auto compressed = compressedFile(file, cache))
      return representationResponse(request, compressed, type.name, "Accept-Encoding");
  return unchangedFile(request, std::move(file), type, false);
}

Response compressedFileResponse(const Request& request, PackageFile file, const MediaType& type) {
  return unchangedFile(request, std::move(file), type, true);
}

}  // namespace orivanta::server
