// The functions of PageFunctions.hpp, which the page defines. The code is in web/src/platform/graphics.ts.
mergeInto(LibraryManager.library, {
  orivantaMeasureText: function(text, bytes, family, familyBytes, numbers, size) {
    return Module["platform"]["graphics"]["measureText"](
        HEAPU8.subarray(text, text + bytes), HEAPU8.subarray(family, family + familyBytes),
        HEAPF64.subarray(numbers >> 3), HEAPF64.subarray(size >> 3)) ? 1 : 0;
  },
  orivantaDrawText: function(text, bytes, family, familyBytes, numbers, size) {
    return Module["platform"]["graphics"]["drawText"](
        HEAPU8.subarray(text, text + bytes), HEAPU8.subarray(family, family + familyBytes),
        HEAPF64.subarray(numbers >> 3), HEAPU32.subarray(size >> 2)) ? 1 : 0;
  },
  orivantaDrawPaths: function(numbers, count, side, scale) {
    return Module["platform"]["graphics"]["drawPaths"](
        HEAPF64.subarray(numbers >> 3, (numbers >> 3) + count), side, scale) ? 1 : 0;
  },
  orivantaTakePixels: function(pixels, bytes) {
    Module["platform"]["graphics"]["takePixels"](HEAPU8.subarray(pixels, pixels + bytes));
  },
});
