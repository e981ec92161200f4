// Runs a request chain to its end and records everything that it reports.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Source/HttpSession.hpp"
#include "Tests/Support/Awaited.hpp"

namespace orivanta::test {

using Texts = std::vector<std::string>;

inline HttpSession sessionFor(std::string_view root) { return {root, "user", "secret", "de, en"}; }

/// A page callback: appends the strings of a page that is an array, or "object" for another page.
inline Texts withPage(Texts texts, const RawData& page) {
  if (page.arrayValue().empty() && page["error"].string()) texts.emplace_back("object");
  for (const RawData& element : page.arrayValue()) texts.push_back(element.stringValue());
  return texts;
}

struct Course {
  std::optional<Texts> completed;
  std::optional<foundation::Error> error;
  int folds = 0;
};

/// Blocks until the chain has released its callbacks. The test fails if it never does or if it
/// reports its end twice.
inline Course courseOf(const HttpSession& session, std::string_view path = "a",
                       const Dictionary<std::string>& parameters = {}) {
  const auto course = std::make_shared<Course>();
  const auto released = std::make_shared<Latch>();
  auto token = opensWhenGone(released);
  session.get(path, parameters)
      .onPage(Texts(),
              [course, token](Texts texts, const RawData& page) {
                ++course->folds;
                return withPage(std::move(texts), page);
              })
      .onComplete([course, token](Texts texts) {
        EXPECT_FALSE(course->completed);
        course->completed = std::move(texts);
      })
      .onError([course, token](const foundation::Error& error) {
        EXPECT_FALSE(course->error);
        course->error = error;
      });
  token.reset();
  EXPECT_TRUE(released->wait()) << "the chain keeps its callbacks";
  return *course;
}

}  // namespace orivanta::test
