#include "Apps/Import/Read/Osm/XmlElements.hpp"

#include <algorithm>

namespace orivanta::importer {

namespace {

bool isObject(std::string_view tag) {
  const std::string_view name = tag.substr(1, tag.find_first_of(" \t\r\n/>") - 1);
  return name == "node" || name == "way" || name == "relation";
}

}  // namespace

bool XmlElements::skipPast(std::string_view end) {
  const std::size_t found = text_.find(end, at_);
  at_ = found == std::string_view::npos ? text_.size() : found + end.size();
  return found != std::string_view::npos;
}

// A ">" within quotes does not end the tag.
bool XmlElements::skipTag() {
  while (at_ < text_.size()) {
    at_ = text_.find_first_of("\"'>", at_);
    if (at_ == std::string_view::npos) break;
    const char found = text_[at_++];
    if (found == '>') return true;
    if (!skipPast(std::string_view(&found, 1))) break;
  }
  at_ = text_.size();
  return false;
}

XmlElements::Markup XmlElements::nextTag() {
  while ((at_ = std::min(text_.find('<', at_), text_.size())) < text_.size()) {
    const std::string_view rest = text_.substr(at_);
    tagStart_ = at_;
    if (rest.starts_with("<!--")) {
      at_ += 4;
      skipPast("-->");
    } else if (rest.starts_with("<![CDATA[")) {
      skipPast("]]>");
    } else if (rest.starts_with("<?")) {
      skipPast("?>");
    } else if (rest.starts_with("<!")) {
      skipTag();
    } else {
      const bool isEnd = rest.starts_with("</");
      if (!skipTag()) return Markup::none;
      if (isEnd) return Markup::endTag;
      return text_[at_ - 2] == '/' ? Markup::emptyTag : Markup::startTag;
    }
  }
  return Markup::none;
}

std::string_view XmlElements::enterRoot() {
  const Markup root = nextTag();
  if (root != Markup::startTag && root != Markup::emptyTag) return {};
  isInside_ = root == Markup::startTag;
  const std::string_view name = text_.substr(tagStart_ + 1);
  return name.substr(0, name.find_first_of(" \t\r\n/>"));
}

std::string_view XmlElements::next() {
  if (!isInside_) return {};
  std::size_t depth = 0;
  std::size_t start = 0;
  do {
    const Markup tag = nextTag();
    if (tag == Markup::none || (tag == Markup::endTag && depth == 0)) {
      isInside_ = false;
      isCut_ = tag == Markup::none;
      return {};
    }
    if (depth == 0) {
      start = tagStart_;
    } else if (tag != Markup::endTag && isObject(text_.substr(tagStart_))) {
      at_ = tagStart_;
      break;
    }
    if (tag == Markup::startTag) ++depth;
    if (tag == Markup::endTag) --depth;
  } while (depth > 0);
  return text_.substr(start, at_ - start);
}

std::size_t XmlElements::lineOf(std::string_view element) {
  const auto offset =
      element.empty() ? text_.size() : static_cast<std::size_t>(element.data() - text_.data());
  for (; counted_ < offset; ++counted_) line_ += text_[counted_] == '\n' ? 1 : 0;
  return line_;
}

}  // namespace orivanta::importer
