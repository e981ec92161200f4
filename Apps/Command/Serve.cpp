#include "Apps/Command/Serve.hpp"

#include <sys/resource.h>

#include <algorithm>
#include <boost/asio/io_context.hpp>
#include <boost/asio/signal_set.hpp>
#include <csignal>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>

#include "Apps/Command/CheckSource.hpp"
#include "Apps/Command/Output.hpp"
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
  result.origin = options.origin;
  result.trustedProxies = options.trustedProxies;
  result.allowedOrigins = options.allowedOrigins;
  result.web = options.web;
  result.report = [](const std::string& line) { complain(line); };
  return result;
}

// Raises the limit: each connection may need a descriptor for a file besides that of its socket.
void allowDescriptors(std::size_t connections) {
  rlimit limit{};
  if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
  constexpr rlim_t others = 64;
  limit.rlim_cur =
      std::min(limit.rlim_max, std::max<rlim_t>(limit.rlim_cur, 2 * connections + others));
  setrlimit(RLIMIT_NOFILE, &limit);  // if it fails, clients are asked to retry
}

}  // namespace

int serve(const ServeOptions& options) {
  try {
    boost::asio::io_context context;
    boost::asio::signal_set signals(context, SIGINT, SIGTERM);  // catches signals from here on
    const server::ServerOptions serverOptions = command::serverOptions(options);
    allowDescriptors(serverOptions.limits.connections);
    const server::VenueServer server(serverOptions);
    const std::string root = server.root();
    std::cout << root << std::endl;
    if (options.web)
      complain("the web page is at " + root.substr(0, root.size() - std::string_view("1/").size()));
    summarizePackages(serverOptions.folders);  // while the server already responds
    signals.async_wait([](const boost::system::error_code&, int) {});
    context.run();
    return 0;
  } catch (const server::PackageError& error) {
    std::cerr << "orivanta serve: " << error.what() << checkAdvice(options.folders) << '\n';
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "orivanta serve: " << error.what() << '\n';
    return 2;
  }
}

}  // namespace orivanta::command
