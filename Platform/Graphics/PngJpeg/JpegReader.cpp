#include "Platform/Graphics/PngJpeg/JpegReader.hpp"

// jpeglib.h requires <cstdio> before it.
#include <cstdio>
//
#include <jerror.h>
#include <jpeglib.h>

#include <csetjmp>
#include <optional>
#include <utility>
#include <vector>

#include "Platform/Graphics/BoxFilter.hpp"

namespace orivanta::graphics {

namespace {

constexpr long largestWorkBytes = 512L << 20U;

// A progressive file may contain any number of scans, each as expensive as decoding the whole
// image.
constexpr int mostScans = 200;

// libjpeg reports errors with longjmp, which does not run destructors. Everything that the reading
// functions use is therefore stored here.
struct Reader {
  explicit Reader(std::span<const std::uint8_t> file) : bytes(file) {
    jpeg.err = jpeg_std_error(&errors);
    errors.error_exit = &fail;
    errors.emit_message = &weigh;
    jpeg.client_data = this;
    progress.progress_monitor = &countScans;
  }
  ~Reader() { jpeg_destroy_decompress(&jpeg); }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  [[noreturn]] static void fail(j_common_ptr jpeg) {
    std::longjmp(static_cast<Reader*>(jpeg->client_data)->jump, 1);
  }

  // Every warning except for extra bytes between segments means lost pixels.
  static void weigh(j_common_ptr jpeg, int level) {
    if (level < 0 && jpeg->err->msg_code != JWRN_EXTRANEOUS_DATA) fail(jpeg);
  }

  static void countScans(j_common_ptr jpeg) {
    if (reinterpret_cast<j_decompress_ptr>(jpeg)->input_scan_number > mostScans) fail(jpeg);
  }

  std::span<const std::uint8_t> bytes;
  std::jmp_buf jump{};
  jpeg_error_mgr errors{};
  jpeg_progress_mgr progress{};
  jpeg_decompress_struct jpeg{};
  std::vector<std::uint8_t> pixels;  // all pixels, or one row for `filter`
  std::optional<BoxFilter> filter;   // if scaling in the decoder is not enough
};

bool readHead(Reader& reader) {
  if (setjmp(reader.jump) != 0) return false;
  jpeg_decompress_struct& jpeg = reader.jpeg;
  jpeg_create_decompress(&jpeg);
  jpeg.progress = &reader.progress;
  jpeg.mem->max_memory_to_use = largestWorkBytes;
  jpeg_mem_src(&jpeg, reader.bytes.data(), static_cast<unsigned long>(reader.bytes.size()));
  jpeg_read_header(&jpeg, TRUE);
  if (!Image::allows(jpeg.image_width, jpeg.image_height)) return false;
  jpeg.out_color_space = JCS_EXT_RGBA;  // fails for CMYK, which cannot be converted to it
  return true;
}

// The decoder itself divides the sides by 8, 4 or 2 where that is a step toward the factor.
bool chooseSize(Reader& reader, std::uint64_t mostPixels) {
  jpeg_decompress_struct& jpeg = reader.jpeg;
  const std::uint32_t factor = reductionFor(jpeg.image_width, jpeg.image_height, mostPixels);
  std::uint32_t byDecoder = 8;
  while (factor % byDecoder != 0) byDecoder /= 2;
  jpeg.scale_num = 1;
  jpeg.scale_denom = byDecoder;
  if (setjmp(reader.jump) != 0) return false;
  jpeg_calc_output_dimensions(&jpeg);
  if (byDecoder != factor)
    reader.filter.emplace(jpeg.output_width, jpeg.output_height, factor / byDecoder);
  return true;
}

void allocateRows(Reader& reader) {
  reader.pixels.resize(std::size_t{4} * reader.jpeg.output_width *
                       (reader.filter ? 1 : reader.jpeg.output_height));
}

bool readRows(Reader& reader) {
  if (setjmp(reader.jump) != 0) return false;
  jpeg_decompress_struct& jpeg = reader.jpeg;
  jpeg_start_decompress(&jpeg);
  while (jpeg.output_scanline < jpeg.output_height) {
    const std::size_t place = reader.filter ? 0 : jpeg.output_scanline;
    JSAMPROW row = reader.pixels.data() + place * jpeg.output_width * 4;
    jpeg_read_scanlines(&jpeg, &row, 1);
    if (reader.filter) reader.filter->addRow(row);
  }
  jpeg_finish_decompress(&jpeg);
  return true;
}

}  // namespace

bool isJpeg(std::span<const std::uint8_t> bytes) {
  return bytes.size() >= 3 && bytes[0] == 0xFF && bytes[1] == 0xD8 && bytes[2] == 0xFF;
}

std::optional<PixelSize> jpegSize(std::span<const std::uint8_t> bytes) {
  Reader reader(bytes);
  if (!readHead(reader)) return std::nullopt;
  return PixelSize{reader.jpeg.image_width, reader.jpeg.image_height};
}

std::shared_ptr<const Image> decodeJpeg(std::span<const std::uint8_t> bytes, double scale,
                                        std::uint64_t mostPixels) {
  Reader reader(bytes);
  if (!readHead(reader) || !chooseSize(reader, mostPixels)) return nullptr;
  allocateRows(reader);
  if (!readRows(reader)) return nullptr;
  if (reader.filter)
    return Image::make(reader.filter->width(), reader.filter->height(), reader.filter->takePixels(),
                       scale);
  return Image::make(reader.jpeg.output_width, reader.jpeg.output_height, std::move(reader.pixels),
                     scale);
}

}  // namespace orivanta::graphics
