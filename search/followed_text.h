// The text of a field while documents of other views come and go.
#pragma once

#include <functional>
#include <string>

#include "convert/typing_mode.h"
#include "ui/controls.h"

namespace search {

class FollowedText {
 public:
  explicit FollowedText(ui::TextBox& box) : box_(box) {}  // which must live as long

  // The field is read in another way from now on: its bytes become those of the same letters, or again those
  // that the user has entered where that cannot be.
  void follow(convert::ReadAs as, const std::function<const convert::LetterTables&()>& tables) {
    if (box_.text() != made_) {
      entered_ = box_.text();
      enteredAs_ = shownAs_;
    }
    made_ = entered_;
    shownAs_ = as;
    if (!(enteredAs_ == as) && !entered_.empty()) {
      made_ = convert::reencoded(entered_, enteredAs_, as, tables()).value_or(entered_);
    }
    box_.setText(made_);
  }

 private:
  ui::TextBox& box_;
  std::string entered_;
  convert::ReadAs enteredAs_;
  std::string made_;  // what stands in the field if the user has not touched it since
  convert::ReadAs shownAs_;
};

}  // namespace search
