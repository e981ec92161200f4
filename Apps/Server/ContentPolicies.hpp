// The values of Content-Security-Policy with which files are sent.
#pragma once

#include <string_view>

namespace orivanta::server {

/// Of the web page. Scripts and WebAssembly come only from the page's own files. Pictures and
/// models may be on any host, because the records of a venue may name any URL.
inline constexpr std::string_view pagePolicy =
    "default-src 'self'; script-src 'self' 'wasm-unsafe-eval'; style-src 'self' 'unsafe-inline'; "
    "img-src * data: blob:; connect-src * data: blob:; font-src 'self' data:; "
    "worker-src 'self' blob:; object-src 'none'; base-uri 'none'; form-action 'self'";

/// Of SVG files of packages. Opened by itself, such a picture could run scripts with the rights of
/// the web page.
inline constexpr std::string_view picturePolicy =
    "default-src 'none'; style-src 'unsafe-inline'; img-src data:; sandbox";

}  // namespace orivanta::server
