// A heading in a list.
#pragma once

#include <memory>
#include <string>

#include "Apps/Viewer/Widgets/List.hpp"

namespace orivanta::viewer {

/// How a heading looks.
enum class HeadingLook {
  group,  ///< small, above a group of rows
  back    ///< large, with an arrow that leads back
};

/// A bold title with a text at the end of the line, such as the name of an action.
class HeadingRow : public Row {
 public:
  HeadingRow(HeadingLook look, const std::string& title, const std::string& trailing = "");

  static constexpr double headingHeight = 34;  ///< points; of `HeadingLook::group`
  static constexpr double backHeight = 48;     ///< points; of `HeadingLook::back`

  void draw(view::Canvas& canvas) override;

 private:
  const HeadingLook look_;
  std::shared_ptr<Label> arrow_;
  std::shared_ptr<Label> title_;
  std::shared_ptr<Label> trailing_;
};

}  // namespace orivanta::viewer
