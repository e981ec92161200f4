#include "Platform/Graphics/PngJpeg/PngReader.hpp"

#include <png.h>

#include <csetjmp>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

#include "Platform/Graphics/BoxFilter.hpp"

namespace orivanta::graphics {

namespace {

constexpr png_alloc_size_t largestChunkBytes = 8U << 20U;

// The maximum compression ratio of deflate (RFC 1951).
constexpr std::uint64_t greatestInflation = 1032;

// libpng reports errors with longjmp, which does not run destructors. Everything that the reading
// functions use is therefore stored here.
struct Reader {
  explicit Reader(std::span<const std::uint8_t> file) : bytes(file), left(file) {
    png = png_create_read_struct_2(PNG_LIBPNG_VER_STRING, nullptr, &fail, &ignore, nullptr,
                                   &allocate, &release);
    if (png != nullptr) info = png_create_info_struct(png);
  }
  ~Reader() { png_destroy_read_struct(&png, &info, nullptr); }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  [[noreturn]] static void fail(png_structp png, png_const_charp) { png_longjmp(png, 1); }
  static void ignore(png_structp, png_const_charp) {}

  // libpng would allocate whatever length a chunk claims.
  static png_voidp allocate(png_structp, png_alloc_size_t size) {
    return size <= largestChunkBytes ? std::malloc(size) : nullptr;
  }
  static void release(png_structp, png_voidp memory) { std::free(memory); }

  static void read(png_structp png, png_bytep target, std::size_t count) {
    auto& left = static_cast<Reader*>(png_get_io_ptr(png))->left;
    if (count > left.size()) png_error(png, "unexpected end of file");
    std::memcpy(target, left.data(), count);
    left = left.subspan(count);
  }

  std::span<const std::uint8_t> bytes;
  std::span<const std::uint8_t> left;
  png_structp png = nullptr;
  png_infop info = nullptr;
  std::vector<std::uint8_t> pixels;
  std::vector<png_bytep> rows;      // pointers into `pixels`
  std::vector<std::uint8_t> row;    // the current row, if `filter` is used
  std::optional<BoxFilter> filter;  // if the image is reduced
};

// Whether the size is allowed, and the file is large enough for that many pixels.
bool readHead(Reader& reader) {
  if (setjmp(png_jmpbuf(reader.png)) != 0) return false;
  png_set_user_limits(reader.png, Image::maximumSide, Image::maximumSide);
  png_set_chunk_malloc_max(reader.png, largestChunkBytes);
  png_set_read_fn(reader.png, &reader, &Reader::read);
  png_read_info(reader.png, reader.info);
  const std::uint64_t height = png_get_image_height(reader.png, reader.info);
  return Image::allows(png_get_image_width(reader.png, reader.info), height) &&
         png_get_rowbytes(reader.png, reader.info) * height / greatestInflation <=
             reader.bytes.size();
}

// Converts all formats to 8-bit RGBA.
bool prepareRows(Reader& reader) {
  if (setjmp(png_jmpbuf(reader.png)) != 0) return false;
  png_set_expand(reader.png);
  png_set_scale_16(reader.png);
  png_set_gray_to_rgb(reader.png);
  png_set_add_alpha(reader.png, 0xFF, PNG_FILLER_AFTER);
  png_set_interlace_handling(reader.png);
  png_read_update_info(reader.png, reader.info);
  return png_get_rowbytes(reader.png, reader.info) ==
         std::size_t{png_get_image_width(reader.png, reader.info)} * 4;
}

// The rows of an interlaced image are complete only after the last pass.
bool isReadAtOnce(const Reader& reader) {
  return !reader.filter || png_get_interlace_type(reader.png, reader.info) != PNG_INTERLACE_NONE;
}

void allocateRows(Reader& reader) {
  const std::size_t rowBytes = png_get_rowbytes(reader.png, reader.info);
  if (!isReadAtOnce(reader)) return reader.row.resize(rowBytes);
  const std::size_t height = png_get_image_height(reader.png, reader.info);
  reader.pixels.resize(rowBytes * height);
  reader.rows.reserve(height);
  for (std::size_t row = 0; row < height; ++row)
    reader.rows.push_back(reader.pixels.data() + row * rowBytes);
}

bool readRows(Reader& reader) {
  if (setjmp(png_jmpbuf(reader.png)) != 0) return false;
  if (isReadAtOnce(reader)) {
    png_read_image(reader.png, reader.rows.data());
    if (reader.filter)
      for (const png_bytep row : reader.rows) reader.filter->addRow(row);
  } else {
    const png_uint_32 height = png_get_image_height(reader.png, reader.info);
    for (png_uint_32 y = 0; y < height; ++y) {
      png_read_row(reader.png, reader.row.data(), nullptr);
      reader.filter->addRow(reader.row.data());
    }
  }
  png_read_end(reader.png, nullptr);
  return true;
}

}  // namespace

bool isPng(std::span<const std::uint8_t> bytes) {
  constexpr std::size_t signatureBytes = 8;
  return bytes.size() >= signatureBytes && png_sig_cmp(bytes.data(), 0, signatureBytes) == 0;
}

std::optional<PixelSize> pngSize(std::span<const std::uint8_t> bytes) {
  constexpr std::size_t sizesAt = 16;
  if (bytes.size() < sizesAt + 8) return std::nullopt;
  return PixelSize{png_get_uint_32(&bytes[sizesAt]), png_get_uint_32(&bytes[sizesAt + 4])};
}

std::shared_ptr<const Image> decodePng(std::span<const std::uint8_t> bytes, double scale,
                                       std::uint64_t mostPixels) {
  Reader reader(bytes);
  if (reader.info == nullptr || !readHead(reader) || !prepareRows(reader)) return nullptr;
  const png_uint_32 width = png_get_image_width(reader.png, reader.info);
  const png_uint_32 height = png_get_image_height(reader.png, reader.info);
  if (const std::uint32_t factor = reductionFor(width, height, mostPixels); factor > 1)
    reader.filter.emplace(width, height, factor);
  allocateRows(reader);
  if (!readRows(reader)) return nullptr;
  if (!reader.filter) return Image::make(width, height, std::move(reader.pixels), scale);
  return Image::make(reader.filter->width(), reader.filter->height(), reader.filter->takePixels(),
                     scale);
}

}  // namespace orivanta::graphics
