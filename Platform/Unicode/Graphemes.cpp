#include "Platform/Unicode/Graphemes.hpp"

#include "Platform/Unicode/Forms.hpp"

namespace orivanta::unicode {

namespace {

// The numbers of `utf8proc_boundclass_t`.
enum Class : std::uint8_t {
  start,
  other,
  carriageReturn,
  lineFeed,
  control,
  extend,
  leading,
  vowel,
  trailing,
  leadingVowel,
  leadingVowelTrailing,
  regionalIndicator,
  spacingMark,
  prepend,
  joiner,
  pictographic = 19
};

// What the state says about the code points so far.
enum State : std::uint8_t {
  none,
  endsWithPictograph,        // a pictograph, and code points that extend it
  endsWithJoinedPictograph,  // and a joiner
  endsWithHalfFlag,          // an odd number of regional indicators
  endsWithWholeFlags,        // an even number of regional indicators
};

Class classOf(std::int32_t point) { return static_cast<Class>(propertiesOf(point).graphemeClass); }

bool isControl(Class each) { return each >= carriageReturn && each <= control; }

State stateAfter(State before, Class added) {
  switch (added) {
    case pictographic:
      return endsWithPictograph;
    case extend:
      return before == endsWithPictograph ? before : none;
    case joiner:
      return before == endsWithPictograph ? endsWithJoinedPictograph : none;
    case regionalIndicator:
      return before == endsWithHalfFlag ? endsWithWholeFlags : endsWithHalfFlag;
    default:
      return none;
  }
}

// The rules GB6 to GB8.
bool isSyllable(Class first, Class second) {
  switch (first) {
    case leading:
      return second == leading || second == vowel || second == leadingVowel ||
             second == leadingVowelTrailing;
    case leadingVowel:
    case vowel:
      return second == vowel || second == trailing;
    case leadingVowelTrailing:
    case trailing:
      return second == trailing;
    default:
      return false;
  }
}

// The rules GB3 to GB13.
bool isJoined(State before, Class first, Class second) {
  if (first == carriageReturn && second == lineFeed) return true;
  if (isControl(first) || isControl(second)) return false;
  if (isSyllable(first, second)) return true;
  if (second == extend || second == joiner || second == spacingMark || first == prepend)
    return true;
  if (second == pictographic) return before == endsWithJoinedPictograph;
  return second == regionalIndicator && before == endsWithHalfFlag;
}

}  // namespace

bool isGraphemeBreak(std::int32_t first, std::int32_t second, std::int32_t& state) {
  const Class left = classOf(first);
  const Class right = classOf(second);
  const State before = state == none ? stateAfter(none, left) : static_cast<State>(state);
  state = stateAfter(before, right);
  return !isJoined(before, left, right);
}

}  // namespace orivanta::unicode
