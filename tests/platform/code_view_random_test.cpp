// The real code view beside a plain model of bytes: edits at random, over texts of every byte value.
#include <algorithm>
#include <random>

#include "base/line_ends.h"
#include "base/utf8.h"
#include "tests/platform/code_view_fixture.h"

namespace {

using ui::TextView;

// How long the letter at `at` is in the UTF-8 view: read off the table of well-formed sequences.
std::size_t letterLength(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) {
    return at + i < text.size() ? static_cast<unsigned char>(text[at + i]) : 0U;
  };
  const auto within = [&](std::size_t i, unsigned low, unsigned high) {
    return byte(i) >= low && byte(i) <= high;
  };
  const unsigned first = byte(0);
  const std::size_t length = first >= 0xC2 && first <= 0xDF   ? 2
                             : first >= 0xE0 && first <= 0xEF ? 3
                             : first >= 0xF0 && first <= 0xF4 ? 4
                                                              : 1;
  if (length > 1 && !within(1,
                            first == 0xE0   ? 0xA0
                            : first == 0xF0 ? 0x90
                                            : 0x80,
                            first == 0xED   ? 0x9F
                            : first == 0xF4 ? 0x8F
                                            : 0xBF)) {
    return 1;
  }
  for (std::size_t i = 2; i < length; ++i) {
    if (!within(i, 0x80, 0xBF)) return 1;
  }
  return length;
}

// The document as it ought to be: its texts from first to now and on, each an edit away from the one before.
struct Model {
  enum class Kind { Step, Reforming, Typed, Erased };
  struct State {
    std::string text;
    Kind kind;  // of the edit that led here
    int run;    // edits of one run may be undone together
  };
  std::vector<State> states;
  std::size_t now = 0;
  int runs = 0;
  TextView view = TextView::EightBit;
  base::LineEnd lineEnd = base::LineEnd::CrLf;
  int start = 0, length = 0;
  bool placeKnown = true;  // not when it was changed while another was shown
  std::shared_ptr<ui::CodeDocument> document;

  const std::string& text() const { return states[now].text; }
  void edit(std::string text, Kind kind, bool alone = false) {
    states.resize(now + 1);
    const bool joins = !alone && kind == states[now].kind && (kind == Kind::Typed || kind == Kind::Erased);
    states.push_back({std::move(text), kind, joins ? states[now].run : ++runs});
    ++now;
  }
};

class RandomEdits : public tests::CodeViewTest {
 protected:
  static constexpr std::size_t kDocuments = 5;
  static constexpr std::size_t kLongestHistory = 250;
  static constexpr std::size_t kLongestText = 3000;
  using Kind = Model::Kind;

  RandomEdits() {
    ShowWindow(view_.hwnd(), SW_HIDE);  // painting is most of the time, and not what is looked at here
    view_.typed = [this](char32_t character) { return bytesOf(character); };
    for (Model& model : models_) renew(model);
  }

  std::size_t below(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
  }
  Model& shown() { return models_[shown_]; }

  std::string piece() {
    static const std::vector<std::string> pieces = {
        "\r\n", "\r",   "\n",           "ა",   "ჰ", "é",    "\U0001F600", "\xE1\x83",
        "\xE1", "\x83", "\xED\xA0\x80", "<B>", " ", "word", "\t"};
    if (below(4) == 0) return std::string(1, static_cast<char>(below(256)));
    return pieces[below(pieces.size())];
  }
  std::string pieces(std::size_t count) {
    std::string text;
    while (count-- > 0) text += piece();
    return text;
  }
  std::string bytesOf(char32_t character) const {
    std::string bytes;
    if (shown_view_ == TextView::Utf8 || character < 0x80) {
      base::appendUtf8(bytes, character);
    } else {
      bytes = static_cast<char>(character & 0xFFU);
    }
    return bytes;
  }

  void renew(Model& model) {
    std::string text = pieces(below(200));
    if (below(4) == 0) text += tests::everyByte();
    model = {};
    model.states = {{text, Kind::Step, 0}};
    model.lineEnd = base::lineEndOf(text);
    model.document = view_.makeDocument(text);
  }

  void show(std::size_t which) {
    Model& left = shown();
    left.start = view_.selStart();
    left.length = view_.selLength();
    left.placeKnown = view_.document() == left.document;
    shown_ = which;
    if (shown().states.size() > kLongestHistory || shown().text().size() > kLongestText) renew(shown());
    view_.show(shown().document);
    shown_view_ = shown().view;
    ASSERT_EQ(view_.view(), shown().view);
    if (shown().placeKnown) {
      ASSERT_EQ(view_.selStart(), shown().start);
      ASSERT_EQ(view_.selLength(), shown().length);
    }
  }

  // Somewhere in the text; between letters and outside of CR LF where keys are to follow.
  std::size_t place(bool betweenLetters) {
    const std::string& text = shown().text();
    const std::size_t wanted = below(text.size() + 1);
    if (!betweenLetters) return wanted;
    std::size_t at = 0;
    while (at < wanted) at += unit(at);
    return at;
  }
  std::size_t unit(std::size_t at) {
    const std::string& text = shown().text();
    if (text.compare(at, 2, "\r\n") == 0) return 2;
    return shown_view_ == TextView::Utf8 ? letterLength(text, at) : 1;
  }

  void type() {
    static const std::u32string letters = U"აბჰaZ9 é№\U0001F600\x99";
    const bool selects = below(5) == 0;
    if (below(3) == 0) {
      view_.select(static_cast<int>(below(shown().text().size() + 1)),
                   selects ? static_cast<int>(below(20)) : 0);
    }
    for (std::size_t count = below(6) + 1; count > 0; --count) {
      const char32_t letter = letters[below(letters.size())];
      std::string text = shown().text();
      const auto at = static_cast<std::size_t>(view_.selStart());
      const auto length = static_cast<std::size_t>(view_.selLength());
      const std::string bytes = bytesOf(letter);
      if (text.compare(at, length, bytes) == 0) continue;  // told apart from no edit by nothing
      text.replace(at, length, bytes);
      shown().edit(std::move(text), Kind::Typed, length > 0);
      if (letter > 0xFFFF) {
        send(WM_CHAR, 0xD800 + ((letter - 0x10000) >> 10U), 1);
        send(WM_CHAR, 0xDC00 + ((letter - 0x10000) & 0x3FFU), 1);
      } else {
        send(WM_CHAR, letter, 1);
      }
      ASSERT_EQ(static_cast<std::size_t>(view_.selStart()), at + bytes.size());
    }
  }

  void press() {
    const std::size_t at = place(true);
    view_.select(static_cast<int>(at), 0);
    for (std::size_t count = below(4) + 1; count > 0; --count) {
      std::string text = shown().text();
      const auto caret = static_cast<std::size_t>(view_.selStart());
      std::size_t before = 0;  // where the letter before the caret begins
      for (std::size_t i = 0; i < caret; i += unit(i)) before = i;
      const std::size_t kind = below(5);
      if (kind == 0) {
        const std::string_view end = base::bytesOf(shown().lineEnd);
        text.insert(caret, end);
        shown().edit(std::move(text), Kind::Typed);
        key(VK_RETURN);
        return;  // the new end may join a letter's halves around it: another place comes next
      }
      if (kind < 3 ? caret == 0 : caret == text.size()) return;
      if (kind < 3) {
        text.erase(before, caret - before);
        key(VK_BACK);
      } else {
        text.erase(caret, unit(caret));
        key(VK_DELETE);
      }
      shown().edit(std::move(text), Kind::Erased);
      ASSERT_EQ(view_.text(), shown().text()) << (kind < 3 ? "backspace at " : "delete at ") << caret;
      return;
    }
  }

  void replace() {
    std::string text = shown().text();
    const std::size_t at = place(false);
    const std::size_t length = std::min(below(30), text.size() - at);
    const std::string with = below(3) == 0 ? "" : pieces(below(8));
    view_.select(static_cast<int>(at), static_cast<int>(length));
    view_.replaceSelection(with);
    ASSERT_EQ(static_cast<std::size_t>(view_.selStart()), at + with.size());
    if (length == 0 && with.empty()) return;
    text.replace(at, length, with);
    shown().edit(std::move(text), Kind::Step);
  }

  // What a whole-text command may make of a text.
  std::string converted(std::string text) {
    static const std::vector<std::pair<std::string, std::string>> rules = {
        {"ა", "\xC0"}, {"\xC0", "ა"}, {"word", "&#4304;"}, {"&#4304;", "ა"}, {"\r\n", "\n"}, {"\n", "\r\n"}};
    const auto& [from, to] = rules[below(rules.size())];
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
      text.replace(at, from.size(), to);
    }
    return text;
  }
  void reform(Model& model, const std::function<void(const std::string&)>& how, std::string text) {
    if (text == model.text()) return;
    how(text);
    model.lineEnd = base::lineEndOf(text);
    model.edit(std::move(text), Kind::Reforming);
  }

  void step() {
    std::string text = shown().text();
    view_.step([&] {
      for (int i = 0; i < 2; ++i) {
        const std::size_t at = below(text.size() + 1);
        const std::string with = piece();
        text.insert(at, with);
        view_.select(static_cast<int>(at), 0);
        view_.replaceSelection(with);
      }
    });
    shown().lineEnd = base::lineEndOf(text);
    shown().edit(std::move(text), Kind::Reforming);
  }

  void travel(bool back) {
    Model& model = shown();
    ASSERT_EQ(view_.canUndo(), model.now > 0);
    ASSERT_EQ(view_.canRedo(), model.now + 1 < model.states.size());
    if (back ? model.now == 0 : model.now + 1 == model.states.size()) return;
    reforms_ = 0;
    back ? view_.undo() : view_.redo();
    // What was typed or erased in one run may come back in pieces or at once.
    const Model::State& crossed = model.states[back ? model.now : model.now + 1];
    const int run = crossed.run;
    const bool reforms = crossed.kind == Kind::Reforming;
    do {
      back ? --model.now : ++model.now;
    } while (view_.text() != model.text() &&
             (back ? model.now > 0 && model.states[model.now].run == run
                   : model.now + 1 < model.states.size() && model.states[model.now + 1].run == run));
    ASSERT_EQ(reforms_, reforms ? 1 : 0);
    if (reforms) model.lineEnd = base::lineEndOf(model.text());
  }

  std::size_t firstDifference() {
    const std::string_view is = view_.text();
    const std::string& wanted = shown().text();
    return static_cast<std::size_t>(std::mismatch(is.begin(), is.end(), wanted.begin(), wanted.end()).first -
                                    is.begin());
  }

  void anything() {
    action_ = below(16);
    switch (action_) {
      case 0:
        return show(below(kDocuments));
      case 1:
        shown().view = shown_view_ = shown_view_ == TextView::Utf8 ? TextView::EightBit : TextView::Utf8;
        return view_.setView(shown_view_);
      case 2: {
        Model& other = models_[below(kDocuments)];
        if (&other == &shown()) return;
        other.placeKnown = false;
        return reform(
            other, [&](const std::string& text) { other.document->setText(text); }, converted(other.text()));
      }
      case 3:
        return reform(
            shown(), [&](const std::string& text) { view_.setText(text); }, converted(shown().text()));
      case 4:
        return step();
      case 5:
      case 6:
        return replace();
      case 7:
      case 8:
      case 9:
        return press();
      case 10:
      case 11:
      case 12:
        return travel(true);
      case 13:
        return travel(false);
      default:
        return type();
    }
  }

  std::mt19937 random_{20240229};
  std::vector<Model> models_{kDocuments};
  std::size_t shown_ = 0;
  std::size_t action_ = 0;
  TextView shown_view_ = TextView::EightBit;
};

TEST_F(RandomEdits, LeaveTheBytesThatAPlainModelLeaves) {
  constexpr int kSteps = 100'000;
  constexpr int kCheckAll = 500;
  view_.show(shown().document);
  for (int step = 0; step < kSteps && !HasFatalFailure(); ++step) {
    SCOPED_TRACE(step);
    if (shown().states.size() > kLongestHistory || shown().text().size() > kLongestText) {
      show((shown_ + 1) % kDocuments);
    }
    anything();
    ASSERT_TRUE(view_.text() == shown().text())
        << "at byte " << firstDifference() << " after action " << action_;
    if (step % kCheckAll != 0) continue;
    for (const Model& model : models_) ASSERT_TRUE(model.document->text() == model.text());
  }
  // All the way back, and on again.
  for (std::size_t i = 0; i < kDocuments && !HasFatalFailure(); ++i) {
    show(i);
    while (shown().now > 0 && !HasFatalFailure()) travel(true);
    EXPECT_EQ(view_.text(), shown().states.front().text);
    while (shown().now + 1 < shown().states.size() && !HasFatalFailure()) travel(false);
    EXPECT_EQ(view_.text(), shown().states.back().text);
  }
}

}  // namespace
