// A page's plan as it is looked over before it is done: its changes in groups, and what the user says of
// them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "convert/page_plan.h"

namespace convert {

// Bytes as somebody sees them who has no old font: UTF-8 as its letters, other bytes as those of
// Windows-1252; with `pairsAreBytes` also those that could be characters of two bytes. UTF-8.
std::string rawLetters(std::string_view bytes, bool pairsAreBytes);

struct ReviewGroup {
  enum class Kind : std::uint8_t {
    Uncertain,  // texts of which nobody knew what they are
    Form,       // texts of one form
    Fonts,
    Needed,  // declarations of the character set and stray bytes: they go with the rest
  };
  Kind kind = Kind::Form;
  Form form = Form::Unknown;           // of Kind::Form
  std::vector<std::uint32_t> changes;  // of the plan, by place
  std::size_t letters = 0;
  std::size_t ticked = 0;  // changes that will be done
  int confidence = 100;    // percent, by letters
};

class PageReview {
 public:
  // `page` stays the owner's and the same; so do the fonts that the options name. Planned at once: linear in
  // the size of the page, like each of the functions that say so.
  PageReview(std::string_view page, PlanOptions options);

  const PlanOptions& options() const { return options_; }
  // Plans anew; what was said of single texts holds.
  void setOptions(PlanOptions options);

  std::string_view page() const { return page_; }
  const PagePlan& plan() const { return plan_; }
  const std::vector<ReviewGroup>& groups() const { return groups_; }  // the uncertain ones first
  Trouble trouble() const { return plan_.detection.page.trouble; }

  // A change that may be ticked: what is needed for a valid page may not.
  bool optional(std::uint32_t change) const;
  bool ticked(std::uint32_t change) const;
  // An uncertain text that is ticked takes the form of the page. Plans anew.
  void tick(const std::vector<std::uint32_t>& changes, bool on);
  // Says what the texts are; none: as they were found. Plans anew.
  void choose(const std::vector<std::uint32_t>& changes, std::optional<Form> form);
  bool chosen(std::uint32_t change) const;  // by hand, what it is

  std::size_t lineOf(std::uint32_t change) const { return lines_[change]; }  // from 1

  // A change whose tick or form is to be shown again after planning; nothing where there is none at the
  // place.
  std::optional<std::uint32_t> changeAt(std::uint32_t begin, ChangeKind kind) const;

  // Letters as they stand in the page, and as they will be read; on one line, at most `most` bytes and a few.
  std::string before(std::uint32_t change, std::size_t most) const;
  std::string after(std::uint32_t change, std::size_t most) const;
  std::string raw(std::string_view bytes) const;
  // What stands in the place of a change when all is done.
  std::string written(std::uint32_t change) const;

  std::size_t texts() const { return texts_; }          // that will be converted
  std::size_t uncertain() const { return uncertain_; }  // that will be left since nobody knows what they are
  bool changesAnything() const;

  // The page when all is done, and where a place of the old one is in it. Linear.
  std::string result() const { return applyPlan(page_, plan_); }
  std::size_t placeInResult(std::size_t old) const;

 private:
  struct Home {
    ReviewGroup::Kind kind;
    Form form;
  };
  static std::uint64_t keyOf(const Change& change) {
    return std::uint64_t{change.begin} << 2U | static_cast<std::uint64_t>(change.kind);
  }
  Home homeOf(const Change& change) const;
  void replan();
  void group();

  std::string_view page_;
  PlanOptions options_;
  PagePlan plan_;
  std::vector<ReviewGroup> groups_;
  Choices choices_;                                // of texts
  std::unordered_map<std::uint32_t, Home> homes_;  // groups of those, from before
  std::unordered_set<std::uint64_t> leftFonts_;    // keys of font changes without a tick
  std::vector<std::uint32_t> lines_;
  std::size_t texts_ = 0;
  std::size_t uncertain_ = 0;
};

}  // namespace convert
