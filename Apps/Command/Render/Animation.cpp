#include "Apps/Command/Render/Animation.hpp"

#include <fmt/format.h>
#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "Apps/Command/CommandError.hpp"

namespace orivanta::command {

namespace {

constexpr int mostColors = 256;
constexpr int keepForever = 0;  // 0 repetitions mean that the animation never stops

}  // namespace

// Throws if a call of giflib fails.
class Animation::GifFile {
 public:
  explicit GifFile(const std::string& name) : name_(name) {
    int error = 0;
    file_ = EGifOpenFileName(name.c_str(), false, &error);
    if (file_ == nullptr) fail(error);
  }
  ~GifFile() {
    if (file_ != nullptr) EGifCloseFile(file_, nullptr);
  }
  GifFile(const GifFile&) = delete;
  GifFile& operator=(const GifFile&) = delete;

  void begin(int width, int height) {
    EGifSetGifVersion(file_, true);
    check(EGifPutScreenDesc(file_, width, height, 8, 0, nullptr));
    // The extension with the number of repetitions: a name, then a block with the number.
    constexpr std::array<GifByteType, 3> repeat{1, keepForever, keepForever};
    check(EGifPutExtensionLeader(file_, APPLICATION_EXT_FUNC_CODE));
    check(EGifPutExtensionBlock(file_, 11, "NETSCAPE2.0"));
    check(EGifPutExtensionBlock(file_, static_cast<int>(repeat.size()), repeat.data()));
    check(EGifPutExtensionTrailer(file_));
  }

  void add(const graphics::Image& picture, double seconds) {
    const auto width = static_cast<int>(picture.width());
    const auto height = static_cast<int>(picture.height());
    std::array<std::vector<GifByteType>, 3> channels;
    for (std::size_t i = 0; i < picture.pixels().size(); ++i)
      if (i % 4 < 3) channels[i % 4].push_back(picture.pixels()[i]);
    std::vector<GifByteType> indices(channels[0].size());
    int colorCount = mostColors;
    ColorMapObject* colors = GifMakeMapObject(mostColors, nullptr);
    const int quantized = GifQuantizeBuffer(
        picture.width(), picture.height(), &colorCount, channels[0].data(), channels[1].data(),
        channels[2].data(), indices.data(), colors == nullptr ? nullptr : colors->Colors);
    GraphicsControlBlock control{
        DISPOSE_DO_NOT, false, static_cast<int>(std::lround(seconds * 100)), NO_TRANSPARENT_COLOR};
    std::array<GifByteType, 4> extension;
    EGifGCBToExtension(&control, extension.data());
    int result = quantized;
    if (result == GIF_OK)
      result = EGifPutExtension(file_, GRAPHICS_EXT_FUNC_CODE, extension.size(), extension.data());
    if (result == GIF_OK) result = EGifPutImageDesc(file_, 0, 0, width, height, false, colors);
    GifFreeMapObject(colors);
    check(result);
    for (int row = 0; row < height; ++row)
      check(EGifPutLine(file_, indices.data() + static_cast<std::ptrdiff_t>(row) * width, width));
  }

  void finish() {
    int error = 0;
    GifFileType* const file = file_;
    file_ = nullptr;
    if (EGifCloseFile(file, &error) != GIF_OK) fail(error);
  }

 private:
  void check(int result) {
    if (result != GIF_OK) fail(file_->Error);
  }
  [[noreturn]] void fail(int error) {
    const char* const reason = GifErrorString(error);
    throw CommandError(ExitCode::outputFailed,
                       fmt::format("{}: {}", name_, reason == nullptr ? "cannot write" : reason));
  }

  std::string name_;
  GifFileType* file_ = nullptr;
};

Animation::Animation(const std::string& file, double secondsPerPicture)
    : gif_(std::make_unique<GifFile>(file)), secondsPerPicture_(secondsPerPicture) {}

Animation::~Animation() = default;

void Animation::add(const graphics::Image& picture) {
  if (!begun_) gif_->begin(static_cast<int>(picture.width()), static_cast<int>(picture.height()));
  begun_ = true;
  gif_->add(picture, secondsPerPicture_);
}

void Animation::finish() { gif_->finish(); }

}  // namespace orivanta::command
