#include "site/page_work.h"

#include <algorithm>
#include <array>

#include "base/hash.h"
#include "site/links.h"

namespace site {
namespace {

using convert::Change;
using convert::ChangeKind;
using convert::Form;
using convert::PagePlan;

// Of a text, as it is shown.
constexpr std::size_t kShownBytes = 200;
// Fewer letters do not tell of themselves what they are, where the pages around say something else.
constexpr std::size_t kFewLetters = 20;

convert::PlanOptions optionsFor(const Options& options, FileKind kind, std::optional<Form> from) {
  convert::PlanOptions made = options.letters;
  convert::PageKind& page = made.detector.parts.kind;
  page = kind == FileKind::StyleSheet  ? convert::PageKind::StyleSheet
         : kind == FileKind::Script    ? convert::PageKind::Script
         : kind == FileKind::PlainText ? convert::PageKind::PlainText
                                       : convert::PageKind::Html;
  if (!made.detector.from) made.detector.from = from;
  return made;
}

// On one line, without a letter cut in its middle.
std::string shown(std::string_view utf8) {
  std::string out;
  bool space = false;
  for (const char c : utf8) {
    if (c == ' ' || static_cast<std::uint8_t>(c) < 0x20 || c == 0x7F) {
      space = !out.empty();
      continue;
    }
    if (space) out += ' ';
    space = false;
    out += c;
  }
  if (out.size() > kShownBytes) {
    std::size_t end = kShownBytes;
    while (end > 0 && (static_cast<std::uint8_t>(out[end]) & 0xC0U) == 0x80) --end;
    out.resize(end);
    out += "…";
  }
  return out;
}

Difference differenceOf(std::string_view page, const PagePlan& plan, const Change& change, std::size_t line) {
  Difference made;
  made.line = line;
  made.kind = change.kind;
  made.place = change.place;
  made.form = change.verdict.form;
  made.reason = change.verdict.reason;
  made.confidence = change.verdict.confidence;
  made.uncertain = change.verdict.uncertain;
  // More than is shown, since references are long and letters of UTF-8 must be whole.
  Change part = change;
  if (change.kind == ChangeKind::Letters || change.kind == ChangeKind::Bytes)
    part.end = std::min<std::uint32_t>(part.end, part.begin + 2 * kShownBytes);
  const bool utf8 = plan.detection.census.isUtf8();
  made.before = shown(PagePlan::readable(plan.oldBytes(page, part), utf8 ? Form::Utf8 : Form::Western));
  made.after = shown(PagePlan::readable(plan.newBytes(page, part), Form::Utf8));
  return made;
}

void collect(std::string_view page, const PagePlan& plan, std::size_t most, FileResult& result) {
  std::vector<std::uint32_t> chosen;
  const auto choose = [&](bool uncertain) {
    for (std::uint32_t i = 0; i < plan.changes.size() && chosen.size() < most; ++i) {
      if (plan.changes[i].verdict.uncertain == uncertain) chosen.push_back(i);
    }
  };
  choose(true);
  choose(false);
  std::ranges::sort(chosen);
  convert::LineCounter lines(page);
  for (const std::uint32_t i : chosen) {
    const Change& change = plan.changes[i];
    result.differences.push_back(differenceOf(page, plan, change, lines.lineOf(change.begin)));
  }
  std::stable_partition(result.differences.begin(), result.differences.end(),
                        [](const Difference& difference) { return difference.uncertain; });
}

std::optional<Form> eightOf(const convert::Detection& found) {
  constexpr std::array<Form, 3> kForms = {Form::Legacy, Form::Academy, Form::Russian};
  std::array<std::size_t, kForms.size()> letters{};
  for (const convert::Verdict& verdict : found.verdicts) {
    for (std::size_t i = 0; i < kForms.size(); ++i) {
      if (verdict.form == kForms[i] && !verdict.uncertain) letters[i] += verdict.letters;
    }
  }
  const auto most = std::ranges::max_element(letters);
  if (*most == 0) return std::nullopt;
  return kForms[static_cast<std::size_t>(most - letters.begin())];
}

bool changesBytes(std::string_view page, const PagePlan& plan) {
  std::string bytes;
  return std::ranges::any_of(plan.changes, [&](const Change& change) {
    bytes.clear();
    plan.appendNewBytes(page, change, bytes);
    return bytes != plan.oldBytes(page, change);
  });
}

}  // namespace

std::optional<Form> formToTake(std::string_view page, const Options& options, FileKind kind,
                               std::optional<Form> ofPages) {
  if (!ofPages || options.letters.detector.from) return std::nullopt;
  const convert::Detection found = convert::detect(page, optionsFor(options, kind, std::nullopt).detector);
  using convert::Trouble;
  const Trouble trouble = found.page.trouble;
  // What is UTF-8 as it stands stays so.
  if ((trouble != Trouble::None && trouble != Trouble::ForeignCharset) || found.census.isUtf8())
    return std::nullopt;
  const bool tells = found.page.letters >= kFewLetters && found.page.form != Form::Western &&
                     found.page.form != Form::Unknown &&
                     std::ranges::none_of(found.verdicts, &convert::Verdict::uncertain);
  return tells || found.page.form == *ofPages ? std::nullopt : ofPages;
}

std::string work(std::string_view page, const Options& options, std::optional<Form> from, bool wanted,
                 FileResult& result) {
  PagePlan plan = convert::makePlan(page, optionsFor(options, result.kind, from));
  result.from = from;
  result.form = plan.detection.page.form;
  result.confidence = plan.detection.page.confidence;
  result.letters = plan.detection.page.letters;
  result.note = noteOf(plan.detection.page.trouble);
  if (result.kind == FileKind::Html && result.note != Note::Binary) result.links = linksOf(page, result.file);
  result.eight = eightOf(plan.detection);
  // Those who do it need them no more, and they take much room.
  plan.detection.parts = {};
  plan.detection.verdicts = {};
  for (const Change& change : plan.changes) {
    ++(change.verdict.uncertain ? result.uncertainCount : result.changeCount);
  }
  if (options.differences > 0) collect(page, plan, options.differences, result);
  std::string bytes;
  if (wanted && !plan.changes.empty()) {
    bytes = applyPlan(page, plan);
    result.changes = bytes != page;
    if (!result.changes) bytes.clear();
  } else {
    result.changes = changesBytes(page, plan);
  }
  return bytes;
}

}  // namespace site
