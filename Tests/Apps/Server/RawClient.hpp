// A client that sends arbitrary bytes and reads the responses.
#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/read.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/string_body.hpp>
#include <cstdint>
#include <string>
#include <string_view>

namespace orivanta::test {

/// All operations block.
class RawClient {
 public:
  using Response = boost::beast::http::response<boost::beast::http::string_body>;

  /// Connects to the host of an API root URL such as "http://127.0.0.1:43210/1/".
  explicit RawClient(const std::string& root) {
    const auto port = static_cast<std::uint16_t>(std::stoul(root.substr(root.rfind(':') + 1)));
    const bool isV6 = root.find('[') != std::string::npos;
    socket_.connect({boost::asio::ip::make_address(isV6 ? "::1" : "127.0.0.1"), port});
  }

  /// Ignores errors: the server may have closed the connection; reading reports that.
  void send(std::string_view bytes) {
    boost::system::error_code ignored;
    boost::asio::write(socket_, boost::asio::buffer(bytes), ignored);
  }

  void endSending() { socket_.shutdown(boost::asio::socket_base::shutdown_send); }

  /// Reads the next response; `toHead` means that it has no body. Throws if none arrives.
  Response read(bool toHead = false) {
    boost::beast::http::response_parser<boost::beast::http::string_body> parser;
    parser.skip(toHead);
    boost::beast::http::read(socket_, buffer_, parser);
    return parser.release();
  }

  /// Reads one byte. Returns false if the connection has ended.
  bool readByte() {
    char byte = 0;
    boost::system::error_code error;
    return socket_.read_some(boost::asio::buffer(&byte, 1), error) == 1;
  }

  /// Reads until the server closes the connection.
  std::string readToEnd() {
    std::string rest;
    boost::system::error_code ended;
    boost::asio::read(socket_, boost::asio::dynamic_buffer(rest), ended);
    return rest;
  }

 private:
  boost::asio::io_context context_;
  boost::asio::ip::tcp::socket socket_{context_};
  boost::beast::flat_buffer buffer_;
};

}  // namespace orivanta::test
