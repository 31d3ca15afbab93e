// What has to change in a page so that its letters are right, as a list that can be shown before it is done.
//
// A plan and its doing are apart: window, command line and reports show the same plan. The plan keeps the
// page's ranges, not its text: `page` is the same in all calls.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "convert/detector.h"

namespace convert {

enum class Target : std::uint8_t { Utf8, References };

// What becomes of a FACE or font-family that only made the old letters readable, when its whole text is
// converted.
enum class OldFonts : std::uint8_t { TakeAway, Keep, Exchange };

// What the user says of a text.
struct Choice {
  std::optional<Form> form;  // none: as it was found
  bool leave = false;        // it is not converted
};
using Choices = std::unordered_map<std::uint32_t, Choice>;  // by Change::begin

struct PlanOptions {
  Target to = Target::Utf8;
  DetectorOptions detector;
  OldFonts fonts = OldFonts::TakeAway;
  std::string newFonts;                    // names between commas, for Exchange
  bool declareAnyway = false;              // UTF-8, even where nothing else changes: it comes from UTF-16
  const Choices* choices = nullptr;        // needed for this call alone
  std::optional<markup::Range> selection;  // only what stands in it; the declaration stays as it is then
};

enum class ChangeKind : std::uint8_t {
  Letters,  // of a text
  Bytes,    // bytes outside texts that would be no UTF-8: the same characters as before, in UTF-8
  Charset,  // the declaration
  Font,     // a FACE or font-family
};

struct Change {
  std::uint32_t begin = 0;  // the old bytes: page[begin, end); empty where something is added
  std::uint32_t end = 0;
  ChangeKind kind = ChangeKind::Letters;
  Place place = Place::Text;
  Verdict verdict;  // form, reason, confidence; of Letters also how they are read
  bool references = true;
  bool wholeFont = false;  // of Font: the attribute or declaration goes, not some names
  bool apply = true;       // set by the user; an uncertain change only keeps the text valid
};

class PagePlan {
 public:
  Target target = Target::Utf8;
  Detection detection;
  std::vector<Change> changes;  // by place; none overlaps another

  std::string_view oldBytes(std::string_view page, const Change& change) const {
    return page.substr(change.begin, change.end - change.begin);
  }
  // What `change` puts in the place of its old bytes: valid UTF-8.
  std::string newBytes(std::string_view page, const Change& change) const;
  // The letters of a range as they can be read when its form is `form`, for showing; UTF-8.
  static std::string readable(std::string_view bytes, Form form);

  // The user says what the letters of a change are; Ascii and Utf8: right as they stand.
  static void choose(Verdict& verdict, Form form);

  bool uncertain() const;  // there is a text that was left because nobody knows what it is
  // Some letters change, not the declaration alone.
  bool changesLetters() const;

  // Both behind what `out` holds; the latter is for a change that is not to be.
  void appendNewBytes(std::string_view page, const Change& change, std::string& out) const;
  void appendLeft(std::string_view page, const Change& change, std::string& out) const;

  // Nobody knows what it is, and nothing forces its bytes to change.
  bool stays(const Change& change) const {
    return selection_ && change.verdict.uncertain && change.verdict.reason != Reason::NoKey;
  }

  const FontTable* fonts() const { return fonts_; }
  Form base() const { return base_; }  // what bytes outside texts are

 private:
  friend PagePlan makePlan(std::string_view page, const PlanOptions& options);
  // What texts are found to be, where that is not what the page as it is says; by the number of the piece.
  using Verdicts = std::unordered_map<std::size_t, Verdict>;
  static PagePlan make(std::string_view page, const PlanOptions& options, const Verdicts& settled);
  bool lookAgain(std::string_view page, const PlanOptions& options, Verdicts& settled) const;
  PageKind kind_ = PageKind::Html;
  bool selection_ = false;
  Form base_ = Form::Western;
  std::string newFonts_;  // in the place of old ones
  std::string addition_;  // the declaration that is added
  const FontTable* fonts_ = nullptr;
};

// Linear in the size of the page. A page with a Trouble has no changes. What the plan makes of the page it
// leaves alone: a text that would be found to be something once those around it have become UTF-8 is found to
// be that at once.
PagePlan makePlan(std::string_view page, const PlanOptions& options);

// The page with all changes whose `apply` is set; of those not set nothing, but bytes that are no UTF-8
// become their characters. Valid UTF-8; every other byte is the page's.
std::string applyPlan(std::string_view page, const PagePlan& plan);
// The same in pieces, without the whole in memory.
void applyPlan(std::string_view page, const PagePlan& plan,
               const std::function<void(std::string_view)>& write);

// The numbers of lines, for offsets asked for in ascending order; from 1 on.
class LineCounter {
 public:
  explicit LineCounter(std::string_view page) : page_(page) {}
  std::size_t lineOf(std::size_t offset);

 private:
  std::string_view page_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
};

}  // namespace convert
