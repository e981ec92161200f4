// Reads compiled message files of gettext (MO).
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Result.hpp"

namespace orivanta::guidance {

/// The messages of one file by their contexts, which serve as keys: the English texts of the file
/// may change without effect. Immutable.
class MessageCatalog {
 public:
  /// The forms of each message: one, or one per plural form.
  using Messages = std::map<std::string, std::vector<std::string>, std::less<>>;

  /// Reads a file in either byte order. Messages without context are skipped, except for the
  /// header; the hash table is not used. Fails if the file is damaged, contains invalid UTF-8 or
  /// control characters, or has more than 1 MiB.
  static foundation::Result<MessageCatalog> read(std::string_view file);

  /// Returns all messages.
  const Messages& messages() const { return messages_; }

  /// Returns the forms of a message, never an empty list, or null if there is no such message.
  const std::vector<std::string>* find(std::string_view key) const;

  /// Returns a field of the header, such as "Language". Returns an empty text if it is missing.
  std::string_view headerField(std::string_view name) const;

 private:
  Messages messages_;
  std::string header_;
};

}  // namespace orivanta::guidance
