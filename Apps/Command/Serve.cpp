#include "Apps/Command/Serve.hpp"

#include <boost/asio/io_context.hpp>
#include <boost/asio/signal_set.hpp>
#include <csignal>
#include <exception>
#include <iostream>

#include "Apps/Server/VenueServer.hpp"

namespace orivanta::command {

namespace {

server::ServerOptions serverOptions(const ServeOptions& options) {
  server::ServerOptions result;
  result.folders = options.folders;
  if (result.folders.empty()) result.folders.push_back(options.demoVenue);
  result.address = options.address;
  result.port = options.port;
  result.username = options.username;
  result.password = options.password;
  result.pageSize = options.pageSize;
  return result;
}

}  // namespace

int serve(const ServeOptions& options) {
  try {
    boost::asio::io_context context;
    boost::asio::signal_set signals(context, SIGINT, SIGTERM);  // from here on, none is missed
    const server::VenueServer server(serverOptions(options));
    std::cout << server.root() << std::endl;
    signals.async_wait([](const boost::system::error_code&, int) {});
    context.run();
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "orivanta serve: " << error.what() << '\n';
    return 2;
  }
}

}  // namespace orivanta::command
