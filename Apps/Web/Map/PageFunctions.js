// The functions of PageFunctions.hpp. Linked with --js-library. The code is in web/src/engine.ts.
mergeInto(LibraryManager.library, {
  orivantaMapWantsFrame: function(map) {
    Module["platform"]["maps"]["wantsFrame"](map);
  },
  orivantaMapEvent: function(map, text, length) {
    Module["platform"]["maps"]["event"](map, text, length);
  },
});
