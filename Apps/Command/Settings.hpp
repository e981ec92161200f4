// Where the venues are and who asks for them: from the command line, the environment and the
// property lists.
#pragma once

#include <optional>
#include <string>

#include "Source/Orivanta.hpp"

namespace orivanta::command {

/// What the command line says; everything may be left out.
struct ConnectionOptions {
  std::optional<std::string> settingsFolder;  ///< takes the place of the main bundle
  std::optional<std::string> endpoint;
  std::optional<std::string> username;
  std::optional<std::string> password;
  std::optional<std::string> passwordFile;  ///< "-" for standard input
  bool quiet = false;                       ///< no diagnostic lines
};

/// The first that is given of: command line, environment (ORIVANTA_ENDPOINT, ORIVANTA_USERNAME,
/// ORIVANTA_PASSWORD), property lists, default. Endpoint, user name and password are set in the
/// result; a user name and a password inside the endpoint's URL count if no others are set. Throws
/// `CommandError`. Call it once, before the first use of the library.
ApiSettings resolveSettings(const ConnectionOptions& options);

/// Whether command line, environment or property lists name an API root. Call it after
/// `resolveSettings`.
bool isEndpointGiven(const ConnectionOptions& options);

/// The password of `options`, given directly or in a file, whose last line break does not count.
/// Throws `CommandError` when it is given both ways or the file cannot be read.
std::optional<std::string> givenPassword(const ConnectionOptions& options);

/// The API root in the form that the library takes, ending in a slash. Throws `CommandError`, with
/// `origin` in its text, when it is no absolute HTTP or HTTPS URL or has a query or a fragment. The
/// text has no credentials.
std::string usableEndpoint(const std::string& text, const std::string& origin);

}  // namespace orivanta::command
