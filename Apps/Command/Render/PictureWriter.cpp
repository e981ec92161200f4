#include "Apps/Command/Render/PictureWriter.hpp"

#include <fmt/format.h>

#include "Apps/Command/Output.hpp"
#include "Apps/Command/Render/Animation.hpp"
#include "Apps/Command/Render/PictureOptions.hpp"
#include "Apps/Text/Json.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Map.hpp"

namespace orivanta::command {

namespace {

constexpr double framesPerSecond = 12.5;

}  // namespace

void PictureWriter::write(Stage& stage, const std::string& file) {
  if (options_.frames == 0) return writePicture(*stage.picture(), file);
  Animation animation(animationName(file), 1 / framesPerSecond);
  for (int i = 0; i < options_.frames; ++i) {
    const auto picture = stage.picture(i / framesPerSecond);
    writePicture(*picture, pictureName(file, fmt::format("{:04}", i + 1), true));
    animation.add(*picture);
  }
  animation.finish();
  tell(animationName(file));
}

std::string PictureWriter::nameFor(const Map& floor, bool isOneOfMany) {
  const std::string label = floorLabel(floor);
  std::string name = pictureName(options_.output, label, isOneOfMany);
  for (int i = 2; !names_.insert(name).second; ++i)
    name = pictureName(options_.output, fmt::format("{}-{}", label, i), isOneOfMany);
  return name;
}

bool PictureWriter::finish() {
  if (options_.json) writeOutput(text::jsonText(files_) + '\n');
  return !files_.empty();
}

void PictureWriter::writePicture(const graphics::Image& image, const std::string& file) {
  if (const auto written = graphics::writePng(image, file); !written)
    throw CommandError(ExitCode::outputFailed,
                       fmt::format("{}: {}", file, written.error().description));
  tell(file);
}

void PictureWriter::tell(const std::string& file) {
  files_.emplace_back(file);
  if (options_.printsFiles && !options_.json) writeOutput(file + '\n');
}

}  // namespace orivanta::command
