// The functions between this folder and the code on the page, web/src/platform/network.ts. Texts
// are a URL, then the name and the value of each header field, each ended by '\0'.
#pragma once

#include <cstddef>

#ifdef __EMSCRIPTEN__
#include <emscripten/emscripten.h>
#else  // for the tests
#define EMSCRIPTEN_KEEPALIVE
#endif

extern "C" {

// Defined in PageFunctions.js.

/// Starts a request, which ends if less than `bytesPerSecond` arrive within a window of `seconds`.
void orivantaStartFetch(int number, const char* texts, std::size_t count, double bytesPerSecond,
                        double seconds);

/// Ends a request. The page does not report it any more.
void orivantaAbortFetch(int number);

/// Carries out a request and reports it before the call returns.
void orivantaLoadNow(int number, const char* texts, std::size_t count);

// Called by the page. See `Transfers`.

EMSCRIPTEN_KEEPALIVE char* orivantaFetchRoom(int number, int part, std::size_t count);
EMSCRIPTEN_KEEPALIVE void orivantaFetchEnded(int number, int status);
}
