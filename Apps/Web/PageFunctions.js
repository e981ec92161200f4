// The functions of PageFunctions.hpp that the page defines. Linked with --js-library. The code is in
// web/src/platform.ts: the linker's tools do not understand newer JavaScript.
mergeInto(LibraryManager.library, {
  orivantaRequestTurn: function() {
    Module["platform"]["requestTurn"]();
  },
  orivantaLoadProgressed: function(load, done, count, pages, bytes) {
    Module["platform"]["loadProgressed"](load, done, count, pages, bytes);
  },
  orivantaLoadEnded: function(load, text, length) {
    Module["platform"]["loadEnded"](load, text, length);
  },
});
