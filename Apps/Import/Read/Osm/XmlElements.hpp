// Splits an XML document into the elements below its root, so that each can be parsed by itself and
// a large or damaged document costs no more memory than its largest element.
#pragma once

#include <cstddef>
#include <string_view>

namespace orivanta::importer {

/// Reads a document from front to back. It keeps views of the text.
class XmlElements {
 public:
  explicit XmlElements(std::string_view text) : text_(text) {}

  /// Moves behind the start tag of the root element, and returns its name. Returns an empty name if
  /// the text has no element.
  std::string_view enterRoot();

  /// Returns the text of the next element below the root, from its start tag to its end tag.
  /// Nodes, ways and relations do not nest: the start tag of another ends an element whose end tag
  /// is missing. Returns an empty text at the end.
  std::string_view next();

  /// Whether the document ended before the end tag of its root.
  bool isCut() const { return isCut_; }

  /// The number of the line, from 1, in which an element begins, or the last line for an empty
  /// text. Pass elements in the order of the document.
  std::size_t lineOf(std::string_view element);

 private:
  enum class Markup { none, startTag, emptyTag, endTag };

  // Skips to the next tag and past it. `tagStart_` is then its first character.
  Markup nextTag();
  bool skipPast(std::string_view end);
  bool skipTag();

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t tagStart_ = 0;
  bool isInside_ = false;  // the root has been entered and not left
  bool isCut_ = false;
  std::size_t counted_ = 0;  // the part of the text with `line_` - 1 line ends
  std::size_t line_ = 1;
};

}  // namespace orivanta::importer
