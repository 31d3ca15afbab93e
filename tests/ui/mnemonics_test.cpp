#include "ui/mnemonics.h"

#include <gtest/gtest.h>

namespace {

TEST(Mnemonics, EachCaptionThatWantsOneGetsALetterOfItsOwn) {
  const std::u32string letters = ui::freeMnemonics({{"&Open", true},
                                                    {"Only", true},
                                                    {"შენახვა", true},
                                                    {"ახალი შრიფტი", true},
                                                    {"label", false},
                                                    {"label", true},
                                                    {"La", true},
                                                    {"a l", true},
                                                    {"...", true}});
  EXPECT_EQ(letters, std::u32string({0, U'N', U'შ', U'ა', 0, U'L', U'A', 0, 0}));
}

TEST(Mnemonics, AreMarkedAtTheirFirstPlace) {
  EXPECT_EQ(ui::withMnemonic("ყველას შეცვლა", U'შ'), "ყველას &შეცვლა");
  EXPECT_EQ(ui::withMnemonic("Only", U'N'), "O&nly");
  EXPECT_EQ(ui::withMnemonic("O&nly", U'O'), "O&nly");
  EXPECT_EQ(ui::withMnemonic("&& Co", U'C'), "&& &Co");
  EXPECT_EQ(ui::withMnemonic("gone", U'Z'), "gone");
}

}  // namespace
