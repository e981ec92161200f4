#include "Apps/Server/ResponseBody.hpp"

#include <boost/beast/http/error.hpp>

namespace orivanta::server {

auto ResponseBody::writer::get(boost::beast::error_code& error)
    -> boost::optional<std::pair<const_buffers_type, bool>> {
  error = {};
  if (body_.text) return {{boost::asio::buffer(*body_.text), false}};
  if (!body_.file || position_ == body_.file->size()) return boost::none;
  if (!chunk_) chunk_ = std::make_unique<std::array<char, chunkBytes>>();
  const std::size_t count = body_.file->read(position_, chunk_->data(), chunk_->size());
  if (count == 0) {
    error = boost::beast::http::error::short_read;
    return boost::none;
  }
  position_ += count;
  return {{boost::asio::buffer(chunk_->data(), count), position_ < body_.file->size()}};
}

}  // namespace orivanta::server
