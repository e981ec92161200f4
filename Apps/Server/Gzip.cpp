#include "Apps/Server/Gzip.hpp"

#include <zlib.h>

#include <new>

namespace orivanta::server {

std::string gzipped(std::string_view bytes) {
  constexpr int gzipWindow = MAX_WBITS + 16;  // the 16 asks for gzip instead of zlib's own format
  z_stream stream{};
  if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, gzipWindow, MAX_MEM_LEVEL,
                   Z_DEFAULT_STRATEGY) != Z_OK)
    throw std::bad_alloc();
  std::string output(deflateBound(&stream, bytes.size()), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  stream.avail_in = static_cast<uInt>(bytes.size());
  stream.next_out = reinterpret_cast<Bytef*>(output.data());
  stream.avail_out = static_cast<uInt>(output.size());
  deflate(&stream, Z_FINISH);  // all at once: the output has the room that was said to suffice
  output.resize(stream.total_out);
  deflateEnd(&stream);
  return output;
}

}  // namespace orivanta::server
