#include "Apps/Import/Findings.hpp"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <utility>

#include "Apps/Import/Read/CleanTexts.hpp"

namespace orivanta::importer {

namespace {

constexpr std::size_t keptPerRule = 1000;

auto orderOf(const Finding& finding) {
  return std::tuple(-static_cast<int>(finding.severity), finding.level.value_or(-1e9),
                    std::string_view(finding.rule), std::string_view(finding.source),
                    std::string_view(finding.message));
}

}  // namespace

void Findings::add(Finding finding) {
  // Texts of a damaged source may be anything, and findings become JSON and HTML.
  for (std::string* text : {&finding.source, &finding.file, &finding.field, &finding.message,
                            &finding.effect, &finding.advice, &finding.map})
    cleanText(*text);
  ++severities_[finding.severity];
  if (++counts_[finding.rule] <= keptPerRule) kept_.push_back(std::move(finding));
}

std::vector<Finding> Findings::sorted() const {
  std::vector<Finding> all = kept_;
  std::stable_sort(all.begin(), all.end(), [](const Finding& first, const Finding& second) {
    return orderOf(first) < orderOf(second);
  });
  return all;
}

std::size_t Findings::count() const {
  std::size_t sum = 0;
  for (const auto& [severity, number] : severities_) sum += number;
  return sum;
}

std::size_t Findings::count(Severity severity) const {
  const auto found = severities_.find(severity);
  return found == severities_.end() ? 0 : found->second;
}

std::size_t Findings::countOf(const std::string& rule) const {
  const auto found = counts_.find(rule);
  return found == counts_.end() ? 0 : found->second;
}

}  // namespace orivanta::importer
