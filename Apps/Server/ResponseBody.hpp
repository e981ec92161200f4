// Response bodies for Boost.Beast: a shared string, or a file on the disk.
#pragma once

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/beast/core/error.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/optional.hpp>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "Apps/Server/PackageFile.hpp"

namespace orivanta::server {

/// A Boost.Beast body type. A file is read in chunks while it is sent; the number of bytes sent is
/// the file's size when it was opened. If the file has become shorter, sending fails with
/// `error::short_read`.
struct ResponseBody {
  struct value_type {
    std::shared_ptr<const std::string> text;
    std::optional<PackageFile> file;  ///< sent if `text` is null
  };

  class writer {
   public:
    using const_buffers_type = boost::asio::const_buffer;
    static constexpr std::size_t chunkBytes = 32U << 10U;

    template <bool isRequest, class Fields>
    writer(const boost::beast::http::header<isRequest, Fields>& /*header*/, const value_type& body)
        : body_(body) {}

    void init(boost::beast::error_code& error) { error = {}; }
    /// The next bytes, and whether more follow; nothing at the end.
    boost::optional<std::pair<const_buffers_type, bool>> get(boost::beast::error_code& error);

   private:
    const value_type& body_;
    std::uint64_t position_ = 0;
    std::unique_ptr<std::array<char, chunkBytes>> chunk_;  // only for files
  };
};

}  // namespace orivanta::server
