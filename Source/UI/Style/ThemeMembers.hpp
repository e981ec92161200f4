// Reads the members of JSON objects, and collects what is wrong with them.
// Private header.
#pragma once

#include <boost/json/object.hpp>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Graphics/Color.hpp"

namespace orivanta {

/// What reading has found.
struct ThemeFindings {
  std::string problem;               ///< the first wrong value; empty if there is none
  std::vector<std::string> unknown;  ///< paths of members that were not read
};

/// The members of one object. The readers leave the target as it is if the member is missing or
/// wrong. The destructor reports the members that were not read.
class ThemeMembers {
 public:
  /// `path` is that of the object, with a dot at its end, or empty. Keeps references.
  ThemeMembers(const boost::json::object& object, std::string path, ThemeFindings& findings);
  ~ThemeMembers();
  ThemeMembers(const ThemeMembers&) = delete;
  ThemeMembers& operator=(const ThemeMembers&) = delete;

  void text(std::string_view key, std::string& target);
  void color(std::string_view key, graphics::Color& target);
  /// The number must be in a range.
  void number(std::string_view key, double& target, double least, double most);
  /// Calls the function with the members of an object.
  void object(std::string_view key, const std::function<void(ThemeMembers&)>& read);
  /// Calls the function with the members of each object of an array. Returns false if the member is
  /// missing or wrong.
  bool objects(std::string_view key, const std::function<void(ThemeMembers&)>& read);
  /// The strings of an array, none of which may be refused by the function.
  void texts(std::string_view key, const std::function<bool(std::string_view)>& accept);
  /// Reports a wrong value unless another one was reported before.
  void refuse(std::string_view key, std::string_view expected);

 private:
  const boost::json::value* find(std::string_view key);

  const boost::json::object& object_;
  const std::string path_;
  ThemeFindings& findings_;
  std::set<std::string, std::less<>> read_;
};

}  // namespace orivanta
