// The opening hours of a place: those of today, or those of a week.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Apps/Viewer/Content/HoursText.hpp"
#include "Apps/Viewer/Widgets/Button.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

/// Shows the hours of today, and those of the week if it is open. The first line can be tapped if
/// there is a week.
class WeekLines : public Pressable {
 public:
  explicit WeekLines(const guidance::InterfaceTexts& texts);

  /// Replaces the hours. If there is no week, `text` is shown instead; both may be empty.
  void show(const std::vector<DayHours>& week, const std::string& text);

  void setOpen(bool isOpen) { isOpen_ = isOpen; }
  bool isOpen() const { return isOpen_; }

  /// Places the lines for a width, with at most `most` days of the week. Returns the height, which
  /// is 0 if there is nothing to show.
  double arrange(double width, std::size_t most);
  void draw(view::Canvas& canvas) override;

 private:
  // A day and its hours.
  struct Line {
    std::shared_ptr<Label> day;
    std::shared_ptr<Label> hours;
  };

  const guidance::InterfaceTexts texts_;
  std::shared_ptr<Label> today_;
  std::shared_ptr<Label> arrow_;
  std::vector<Line> lines_;
  bool isOpen_ = false;
};

}  // namespace orivanta::viewer
