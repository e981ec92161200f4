// Numbers that need the browser's parser, see DecimalNumbers.cpp. Linked with --js-library.
mergeInto(LibraryManager.library, {
  orivantaNumberOf: function(text, length) {
    return Number(UTF8ToString(text, length));
  },
});
