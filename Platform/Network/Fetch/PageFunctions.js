// The functions of PageFunctions.hpp that the page defines. Linked with --js-library. The code is in
// web/src/platform/network.ts.
mergeInto(LibraryManager.library, {
  orivantaStartFetch: function(number, texts, count, bytesPerSecond, seconds) {
    Module["platform"]["network"].start(number, texts, count, bytesPerSecond, seconds);
  },
  orivantaAbortFetch: function(number) {
    Module["platform"]["network"].abort(number);
  },
  orivantaLoadNow: function(number, texts, count) {
    Module["platform"]["network"].loadNow(number, texts, count);
  },
});
