#include "Apps/Import/Report/Report.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "Apps/Import/Fixes/Fixes.hpp"
#include "Apps/Import/Write/FloorPlan.hpp"
#include "Apps/Package/SvgPlan.hpp"
#include "Apps/Package/TextFile.hpp"

namespace orivanta::importer {

using package::markup;

namespace {

constexpr std::string_view head = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{0}</title>
<style>
body {{ font: 15px/1.5 system-ui, sans-serif; color: #1f2933; background: #fff;
  max-width: 76rem; margin: 2rem auto; padding: 0 1rem; }}
h1 {{ font-size: 1.6rem; margin: 0; }}
h2 {{ font-size: 1.2rem; margin: 2.5rem 0 .5rem; }}
.source {{ color: #52606d; margin: .2rem 0 1.5rem; overflow-wrap: anywhere; }}
table {{ border-collapse: collapse; width: 100%; }}
th, td {{ text-align: left; vertical-align: top; padding: .5rem .6rem;
  border-bottom: 1px solid #d9e2ec; }}
th {{ border-bottom: 2px solid #9aa5b1; }}
td p {{ margin: 0 0 .2rem; }}
td.where {{ overflow-wrap: anywhere; min-width: 9rem; max-width: 18rem; }}
.number {{ display: inline-block; min-width: 1.7rem; padding: 0 .3rem; border-radius: 1rem;
  box-sizing: border-box; text-align: center; color: #fff; font-size: .85rem; }}
.violation {{ background: {3}; }}
.warning {{ background: {4}; }}
.info {{ background: {5}; }}
.effect, .rule {{ color: #52606d; }}
.rule {{ font-size: .85rem; }}
svg {{ display: block; width: 100%; height: auto; max-height: 90vh; border: 1px solid #d9e2ec; }}
pre {{ background: #f5f7fa; padding: 1rem; overflow: auto; max-height: 24rem; }}
@media print {{ h2 {{ break-before: page; }} }}
</style>
</head>
<body>
<h1>{0}</h1>
<p class="source">{1}<br>{2}</p>
)";

std::string markupLines(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    result += markup(text.substr(0, end)) + '\n';
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return result;
}

std::string storeyTitle(const Storey& storey) {
  if (!storey.names.name.empty()) return storey.names.name;
  if (!storey.shortName.empty()) return storey.shortName;
  return fmt::format("Level {}", storey.ordinal);
}

// Where the finding is: the file and the line, the storey, the record and the member.
std::string placeOf(const Finding& finding) {
  std::string place;
  const auto add = [&](std::string_view text) {
    if (!text.empty()) place += fmt::format("<p>{}</p>", markup(text));
  };
  add(finding.line ? fmt::format("{}, line {}", finding.file, *finding.line) : finding.file);
  if (!finding.source.empty()) place += fmt::format("<p><b>{}</b></p>", markup(finding.source));
  add(finding.field);
  if (!finding.map.empty()) add("floor " + finding.map);
  if (finding.level) add(fmt::format("level {}", *finding.level));
  if (finding.position)
    add(fmt::format("x {:.1f}, y {:.1f}", finding.position->x, finding.position->y));
  return place;
}

std::string rowOf(std::size_t number, const Finding& finding) {
  static constexpr std::array<std::string_view, 3> words = {"info", "warning", "violation"};
  const std::string_view word = words[static_cast<std::size_t>(finding.severity)];
  std::string text = fmt::format("<p>{}</p>", markup(finding.message));
  if (!finding.effect.empty())
    text += fmt::format("<p class=\"effect\">{}</p>", markup(finding.effect));
  if (!finding.advice.empty()) text += fmt::format("<p>&rarr; {}</p>", markup(finding.advice));
  return fmt::format(
      "<tr id=\"finding-{0}\"><td><span class=\"number {1}\" title=\"{1}\">{0}</span></td>"
      "<td class=\"where\">{2}</td><td>{3}<p class=\"rule\">{1}: {4}</p></td></tr>\n",
      number, word, placeOf(finding), text, markup(finding.rule));
}

std::vector<PlanMark> marksOn(double level, const std::vector<Finding>& findings) {
  std::vector<PlanMark> marks;
  for (std::size_t index = 0; index < findings.size(); ++index)
    if (findings[index].level == level && findings[index].position)
      marks.push_back({index + 1, *findings[index].position, findings[index].severity});
  return marks;
}

void addCount(std::string& text, std::size_t count, std::string_view singular) {
  if (count == 0) return;
  text +=
      fmt::format("{}{} {}{}", text.empty() ? "" : ", ", count, singular, count == 1 ? "" : "s");
}

}  // namespace

std::string summaryOf(const Findings& findings) {
  std::string text;
  addCount(text, findings.count(Severity::violation), "violation");
  addCount(text, findings.count(Severity::warning), "warning");
  addCount(text, findings.count(Severity::info), "remark");
  return text.empty() ? "nothing to look at" : text;
}

Report buildingReport(const Building& building, const Findings& findings, std::string source) {
  Report report;
  report.title = building.names.name.empty() ? source : building.names.name;
  report.source = std::move(source);
  report.summary = summaryOf(findings);
  report.findings = findings.sorted();
  if (!report.findings.empty()) report.corrections = fixesSkeleton(report.findings);
  std::vector<const Storey*> storeys;
  storeys.reserve(building.storeys.size());
  for (const Storey& storey : building.storeys) storeys.push_back(&storey);
  std::stable_sort(storeys.begin(), storeys.end(), [](const Storey* first, const Storey* second) {
    return first->ordinal > second->ordinal;
  });
  for (const Storey* storey : storeys) {
    PlanOptions options;
    options.network = true;
    options.marks = marksOn(storey->ordinal, report.findings);
    report.plans.push_back(
        {storeyTitle(*storey), floorPlanSvg(building, storey->ordinal, options)});
  }
  return report;
}

std::string reportHtml(const Report& report) {
  std::string html = fmt::format(head, markup(report.title), markup(report.source),
                                 markup(report.summary), colorOf(Severity::violation),
                                 colorOf(Severity::warning), colorOf(Severity::info));
  if (!report.findings.empty()) {
    html += "<table>\n<tr><th>No.</th><th>Where</th><th>What, why, what to do</th></tr>\n";
    for (std::size_t index = 0; index < report.findings.size(); ++index)
      html += rowOf(index + 1, report.findings[index]);
    html += "</table>\n";
  }
  for (const ReportPlan& plan : report.plans)
    html += fmt::format("<h2>{}</h2>\n{}\n", markup(plan.title), plan.svg);
  if (!report.corrections.empty())
    html += fmt::format(
        "<h2>Corrections</h2>\n<p>Complete what applies, save it as a file, and "
        "import again with --fixes FILE.</p>\n<pre>{}</pre>\n",
        markupLines(report.corrections));
  return html + "</body>\n</html>\n";
}

void writeReport(const Report& report, const std::filesystem::path& file) {
  package::writeFile(file, reportHtml(report));
}

}  // namespace orivanta::importer
