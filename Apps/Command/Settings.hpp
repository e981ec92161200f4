// Finds the endpoint and the credentials on the command line, in the environment and in the
// property lists.
#pragma once

#include <optional>
#include <string>

#include "Source/Orivanta.hpp"

namespace orivanta::command {

/// The connection options of the command line. All are optional.
struct ConnectionOptions {
  std::optional<std::string> settingsFolder;  ///< replaces the main bundle
  std::optional<std::string> endpoint;
  std::optional<std::string> username;
  std::optional<std::string> password;
  std::optional<std::string> passwordFile;  ///< "-" for standard input
  bool quiet = false;                       ///< suppresses diagnostics
  bool offline = false;                     ///< uses only stored venues and cached files
  bool noStore = false;                     ///< neither reads nor writes the store
};

/// Uses the first source that sets a value: command line, environment (ORIVANTA_ENDPOINT,
/// ORIVANTA_USERNAME, ORIVANTA_PASSWORD), property lists, default. The result always has an
/// endpoint, a user name and a password. A user name and a password in the endpoint's URL are used
/// if no others are set. Unless `noStore` is set, the result has the store in the cache folder.
/// Throws `CommandError`. Call it once, before the first use of the library.
ApiSettings resolveSettings(const ConnectionOptions& options);

/// Returns whether the command line, the environment or the property lists set an endpoint. Call it
/// after `resolveSettings`.
bool isEndpointGiven(const ConnectionOptions& options);

/// Returns the password of `options`, given directly or in a file. A line break at the end of the
/// file is removed. Throws `CommandError` if both are given or if the file cannot be read.
std::optional<std::string> givenPassword(const ConnectionOptions& options);

/// Returns the API root in the form that the library requires, with a slash at the end. Throws
/// `CommandError` with `origin` in its message if the text is not an absolute HTTP or HTTPS URL, or
/// has a query or a fragment. The message contains no credentials.
std::string usableEndpoint(const std::string& text, const std::string& origin);

}  // namespace orivanta::command
