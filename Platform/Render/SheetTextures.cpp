#include "Platform/Render/SheetTextures.hpp"

#include <iterator>

#include "Platform/Render/Texels.hpp"

namespace orivanta::render {

namespace {

// The contents are undefined. Only uploaded images are drawn.
void makeStorage(std::uint32_t side) {
  const auto size = static_cast<GLsizei>(side);
  glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, size, size, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
}

void uploadImage(const graphics::SheetImage& piece, FrameStatistics& statistics) {
  const auto source = piece.image->pixels();
  std::vector<std::uint8_t> bytes(source.begin(), source.end());
  if (!piece.image->isOpaque()) multiplyEncoded(bytes);
  glTexSubImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(piece.place.x),
                  static_cast<GLint>(piece.place.y), static_cast<GLsizei>(piece.place.width),
                  static_cast<GLsizei>(piece.place.height), GL_RGBA, GL_UNSIGNED_BYTE,
                  bytes.data());
  statistics.bytesUploaded += static_cast<std::int64_t>(bytes.size());
}

}  // namespace

std::uint64_t SheetTextures::choose(const std::shared_ptr<graphics::Sheet>& sheet) {
  auto found = entries_.find(sheet.get());
  if (found != entries_.end() && found->second.sheet.expired()) {
    entries_.erase(found);
    found = entries_.end();
  }
  if (found == entries_.end()) {
    found = entries_.try_emplace(sheet.get()).first;
    found->second.sheet = sheet;
  }
  Entry& entry = found->second;
  if (!entry.isChosen) entry.chosen = sheet->since(entry.lastSerial, sheet->uploadBudget());
  entry.isChosen = true;
  if (!entry.chosen.empty()) entry.lastSerial = entry.chosen.back().place.serial;
  return entry.lastSerial;
}

void SheetTextures::upload(FrameStatistics& statistics) {
  for (auto& [sheet, entry] : entries_) {
    entry.isChosen = false;
    if (entry.chosen.empty()) continue;
    glBindTexture(GL_TEXTURE_2D, entry.texture.get());
    if (!entry.hasStorage) makeStorage(sheet->side());
    entry.hasStorage = true;
    for (const graphics::SheetImage& piece : entry.chosen) uploadImage(piece, statistics);
    entry.chosen.clear();
  }
}

void SheetTextures::bind(const graphics::Sheet& sheet) const {
  glBindTexture(GL_TEXTURE_2D, entries_.at(&sheet).texture.get());
}

void SheetTextures::collect() {
  for (auto entry = entries_.begin(); entry != entries_.end();)
    entry = entry->second.sheet.expired() ? entries_.erase(entry) : std::next(entry);
}

}  // namespace orivanta::render
