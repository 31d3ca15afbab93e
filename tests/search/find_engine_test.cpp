// The engine against a reference that does the same in the plainest way.
#include "search/find_engine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>

#include "base/error.h"
#include "base/utf8.h"
#include "search/letter_case.h"
#include "tests/support/plain_find.h"

namespace {

using namespace search;

using tests::libraryLowerCase;
using tests::plainAll;

TEST(LetterCase, IsThatOfTheWesternCodePage) {
  for (int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(lowerCase(static_cast<char>(byte)), libraryLowerCase(static_cast<std::uint8_t>(byte)))
        << "byte " << byte;
  }
}

struct Case {
  std::string text;
  std::vector<std::string> terms;
  bool wholeWord;
  Comparison comparison;
  Range range;

  std::string padded(const std::string& term) const { return wholeWord ? " " + term + " " : term; }
};

class RandomCases {
 public:
  Case next() {
    static const std::vector<std::string> alphabets = {"ab", "ab ", "aAbB \r\n", "\xC0\xE0\xE1\x83\x90 ",
                                                       "\x8A\x9A\x9F\xFF\xBF\xDF\xD7\xF7 "};
    Case made;
    letters_ = pick(6) == 0 ? "" : alphabets[pick(alphabets.size())];
    // Texts that nearly hold a long term everywhere, too.
    const bool repeats = pick(5) == 0;
    const std::string piece = word(1 + pick(12));
    const std::size_t size = pick(8) == 0 ? pick(40) : pick(repeats ? 20000 : 2000);
    while (made.text.size() < size) made.text += repeats ? piece + (pick(60) == 0 ? word(1) : "") : word(1);
    for (std::size_t n = 1 + pick(4); n > 0; --n) {
      std::string term = word(1 + pick(repeats ? 300 : 6));
      if (pick(3) > 0 && !made.text.empty()) term = made.text.substr(pick(made.text.size()), term.size());
      made.terms.push_back(term);
    }
    made.wholeWord = pick(4) == 0;
    made.comparison = pick(2) == 0 ? Comparison::Exact : Comparison::IgnoreCase;
    made.range = rangeOf(static_cast<Scope>(pick(4)), pick(size + 20), pick(size + 20), made.text.size());
    return made;
  }
  std::size_t pick(std::size_t below) { return random_() % below; }

 private:
  std::string word(std::size_t size) {
    std::string made;
    for (; size > 0; --size) {
      made += letters_.empty() ? static_cast<char>(random_()) : letters_[pick(letters_.size())];
    }
    return made;
  }
  std::mt19937 random_{7};  // NOLINT: the same cases in every run
  std::string letters_;
};

class EngineAgainstReference : public testing::Test {
 protected:
  template <class Check>
  void forCases(int count, Check check) {
    for (int i = 0; i < count && !HasFailure(); ++i) {
      const Case made = random.next();
      SCOPED_TRACE("case " + std::to_string(i) + ", " + std::to_string(made.text.size()) + " bytes");
      check(made, makeTerms(made.terms, made.wholeWord, made.comparison));
    }
  }
  RandomCases random;
};

TEST_F(EngineAgainstReference, FindsAllHits) {
  std::size_t total = 0;
  forCases(3000, [&](const Case& made, const std::vector<Term>& terms) {
    HitList hits;
    hits.findAll(0, "before", terms, {0, 6});
    hits.clear();
    hits.findAll(3, made.text, terms, made.range);
    std::size_t hit = 0;
    for (const std::string& term : made.terms) {
      const std::string sought = made.padded(term);
      for (const std::size_t at : plainAll(made.text, sought, made.comparison, made.range)) {
        ASSERT_LT(hit, hits.size());
        EXPECT_EQ(hits[hit].document, 3);
        EXPECT_EQ(hits[hit].position, static_cast<std::int32_t>(at + 1));
        EXPECT_EQ(hits[hit].length, static_cast<std::int32_t>(sought.size()));
        EXPECT_EQ(hits[hit].padded, made.wholeWord);
        const auto selection = hits.locate(hit, made.text);
        ASSERT_TRUE(selection);
        EXPECT_EQ(static_cast<std::size_t>(selection->start), at + (made.wholeWord ? 1 : 0));
        EXPECT_EQ(static_cast<std::size_t>(selection->length), term.size());
        ++hit;
      }
    }
    EXPECT_EQ(hit, hits.size());
    total += hit;
  });
  EXPECT_GT(total, 100000u);
}

TEST_F(EngineAgainstReference, StepsFromHitToHit) {
  forCases(3000, [&](const Case& made, const std::vector<Term>& terms) {
    const std::size_t from = random.pick(made.text.size() + 5);
    std::optional<Occurrence> next, previous;
    for (const std::string& term : made.terms) {
      const std::string sought = made.padded(term);
      const auto behind = plainAll(made.text, sought, made.comparison, {from, made.range.end});
      if (!behind.empty() && (!next || behind.front() < next->position)) {
        next = Occurrence{behind.front(), sought.size(), made.wholeWord};
      }
      for (const std::size_t at : plainAll(made.text, sought, made.comparison, made.range)) {
        if (at < from && (!previous || at > previous->position)) {
          previous = Occurrence{at, sought.size(), made.wholeWord};
        }
      }
    }
    const auto same = [](const std::optional<Occurrence>& a, const std::optional<Occurrence>& b) {
      return a.has_value() == b.has_value() &&
             (!a || (a->position == b->position && a->length == b->length && a->padded == b->padded));
    };
    EXPECT_TRUE(same(findNext(made.text, terms, from, made.range), next));
    EXPECT_TRUE(same(findPrevious(made.text, terms, from, made.range), previous));
  });
}

TEST_F(EngineAgainstReference, ReplacesAll) {
  forCases(3000, [&](const Case& made, const std::vector<Term>&) {
    const std::string& term = made.terms[0];
    const std::string to = std::vector<std::string>{"", "x", term + term, "longer than most"}[random.pick(4)];
    const std::string part = made.text.substr(made.range.begin, made.range.end - made.range.begin);
    const auto places = plainAll(part, term, made.comparison, {0, part.size()});
    std::string wanted;
    std::size_t done = 0;
    for (const std::size_t at : places) {
      wanted += part.substr(done, at - done) + to;
      done = at + term.size();
    }
    wanted += part.substr(done);

    const auto result = replaceAll(made.text, Pattern(term, made.comparison), to, made.range);
    ASSERT_EQ(result.has_value(), !places.empty());
    if (!result) return;
    EXPECT_EQ(result->count, places.size());
    EXPECT_EQ(result->partSize, wanted.size());
    EXPECT_EQ(result->text,
              made.text.substr(0, made.range.begin) + wanted + made.text.substr(made.range.end));
  });
}

// Every place begins like the term and fails late: comparing anew at each place would take a minute.
TEST(Engine, StaysLinearForTextsFullOfNearHits) {
  const std::string nearly(20000, 'a');
  std::string text;
  while (text.size() < (std::size_t{2} << 20)) text += nearly + 'b';
  text += nearly + "aa";
  const auto start = std::chrono::steady_clock::now();
  for (const Comparison comparison : {Comparison::Exact, Comparison::IgnoreCase}) {
    HitList hits;
    hits.findAll(0, text, makeTerms({"aab" + nearly.substr(4) + "ca", nearly + "a"}, false, comparison),
                 {0, text.size()});
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_EQ(hits[0].position, static_cast<std::int32_t>(text.size() - nearly.size() - 1));
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(Engine, SkipsEmptyTermsBetweenSeparators) {
  EXPECT_EQ(splitTerms("|>a|>|>b |>"), (std::vector<std::string>{"a", "b "}));
  EXPECT_TRUE(splitTerms("").empty());
  EXPECT_TRUE(splitTerms("|>|>").empty());
  EXPECT_THROW(Pattern("", Comparison::Exact), base::Error);
}

TEST(Engine, FindsNothingForATermLongerThanTheText) {
  const auto terms = makeTerms({std::string(5000, 'a')}, false, Comparison::Exact);
  EXPECT_FALSE(findNext("aaa", terms, 0, {0, 3}));
  EXPECT_FALSE(findNext("", terms, 0, {0, 0}));
  EXPECT_FALSE(findPrevious("aaa", terms, 3, {0, 3}));
}

TEST(Engine, ClampsAScopeThatNoLongerExists) {
  EXPECT_EQ(rangeOf(Scope::Selection, 50, 60, 10).begin, 10u);
  EXPECT_EQ(rangeOf(Scope::Selection, 50, 60, 10).end, 10u);
  EXPECT_EQ(rangeOf(Scope::Selection, 5, 60, 10).end, 10u);
  EXPECT_EQ(rangeOf(Scope::BeforeCaret, 50, 50, 10).end, 10u);
  EXPECT_EQ(rangeOf(Scope::FromCaret, 50, 50, 10).begin, 10u);
}

TEST(Engine, RefusesAResultThatCanBeNoDocument) {
  const std::string text(1 << 16, 'a'), to(1 << 16, 'b');
  EXPECT_THROW(replaceAll(text, Pattern("a", Comparison::Exact), to, {0, text.size()}), base::Error);
}

class HitListTest : public testing::Test {
 protected:
  HitListTest() { hits.findAll(2, text, makeTerms({"cat"}, false, Comparison::Exact), {0, text.size()}); }
  std::string text = "the first cat, then a second cat, and at last a third cat here.";
  HitList hits;
};

TEST_F(HitListTest, FollowsAnEditAndKnowsWhatIsGone) {
  ASSERT_EQ(hits.size(), 3u);
  text.replace(text.find("second"), 6, "very small");
  EXPECT_EQ(hits.locate(0, text)->start, 10);
  EXPECT_EQ(hits.locate(1, text)->start, static_cast<int>(text.find("small") + 6))
      << "what stands before it changed";
  EXPECT_EQ(hits.locate(2, text)->start, static_cast<int>(text.find("third") + 6));
  text.replace(text.find("third cat"), 9, "third dog");
  EXPECT_FALSE(hits.locate(2, text));
  EXPECT_FALSE(hits.locate(0, ""));
  EXPECT_FALSE(hits.locate(0, "the first dog"));
}

// Edits before, between and behind the hits, and close around them: a hit is gone only when its word is.
TEST_F(HitListTest, AHitThatOnlyMovedIsFound) {
  const auto expectAt = [this](std::initializer_list<const char*> before) {
    std::size_t hit = 0;
    for (const char* part : before) {
      const auto found = hits.locate(hit++, text);
      ASSERT_TRUE(found) << part;
      EXPECT_EQ(static_cast<std::size_t>(found->start), text.find(part) + std::string_view(part).size())
          << part;
    }
  };
  const std::string old = text;
  text = "In front: " + text + " And more behind.";
  expectAt({"first ", "second ", "third "});
  text = "the 1st <b>cat</b>, then a 2nd <b>cat</b>, and at last a 3rd <b>cat</b> here.";
  expectAt({"1st <b>", "2nd <b>", "3rd <b>"});
  text = "Now " + old + " A fourth cat, too. Or not.";
  expectAt({"first ", "second ", "third "});
  text.replace(text.find("second cat"), 10, "dog");
  EXPECT_TRUE(hits.locate(0, text));
  EXPECT_FALSE(hits.locate(1, text));
  EXPECT_TRUE(hits.locate(2, text));
}

TEST_F(HitListTest, KeepsItsDocumentsWhenOthersClose) {
  hits.findAll(5, text, makeTerms({"dog|cat", "first"}, false, Comparison::Exact), {0, text.size()});
  hits.documentRemoved(1);
  EXPECT_EQ(hits[0].document, 1);
  EXPECT_EQ(hits[3].document, 4);
  hits.documentRemoved(1);
  EXPECT_EQ(hits[0].document, kGone);
  EXPECT_EQ(hits[3].document, 3);
}

}  // namespace
