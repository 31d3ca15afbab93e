// A printer that answers from a script and keeps what was printed.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "ui/platform/printer.h"

namespace tests {

// Keeps the words and where they stand. Letters are 7 by 15.
class WordsCanvas : public ui::Canvas {
 public:
  struct Word {
    ui::Rect area;
    std::string text;
    ui::TextStyle style;
  };
  std::vector<Word> words;
  std::vector<ui::Rect> fills;

  void fill(const ui::Rect& area, base::Color) override { fills.push_back(area); }
  void frame(const ui::Rect&, base::Color, int) override {}
  void line(ui::Point, ui::Point, base::Color) override {}
  void text(const ui::Rect& area, const ui::Text& text, base::Color color,
            const ui::TextStyle& style) override {
    EXPECT_EQ(color, base::rgb(0, 0, 0));
    words.push_back({area, text.bytes, style});
  }
  ui::Size textSize(const ui::Text& text, const ui::TextStyle&) override {
    return {7 * static_cast<int>(text.bytes.size()), 15};
  }
  void focusMark(const ui::Rect&) override {}
  base::Color systemColor(ui::SystemColor) const override { return 0; }

  // The byte text alone, one row a line.
  std::string rows() const {
    std::string all;
    for (const Word& word : words) {
      if (word.style.bytes) all += word.text + "\n";
    }
    return all;
  }
};

class FakePrinter : public ui::Printer {
 public:
  ui::CodeCell cell{{"Code", 11, false, false, {}}, 8, 16};
  ui::CodeCell codeCell(const ui::Font& font) override {
    cell.font.characterSet = font.characterSet;
    return cell;
  }

  std::function<bool(ui::PageSetup&)> setupAnswer;
  bool pageSetup(ui::PageSetup& setup) override { return setupAnswer && setupAnswer(setup); }

  // What the print dialog answers; the job is made here.
  std::optional<ui::PrintChoice> answer;
  ui::Size sheet{21000, 29700};
  std::vector<ui::PrintRequest> requests;
  std::optional<ui::PrintChoice> choose(const ui::PrintRequest& request) override {
    requests.push_back(request);
    if (answer) answer->job = std::make_unique<Job>(*this);
    return std::exchange(answer, std::nullopt);
  }

  // What the job was told, and the pages it got.
  std::string log;
  std::vector<std::string> pages;
  bool refuse = false;  // the job, at its begin
  int failAt = -1;      // this page, from 0

 private:
  class Job : public ui::PrintJob {
   public:
    explicit Job(FakePrinter& printer) : printer_(printer) {}
    ~Job() override { printer_.log += "gone"; }
    ui::Size sheet() const override { return printer_.sheet; }
    bool begin(const std::string& name) override {
      printer_.log += "begin " + name + ";";
      return !printer_.refuse;
    }
    ui::Canvas& beginPage() override {
      if (static_cast<int>(printer_.pages.size()) == printer_.failAt) {
        throw base::Error(base::ErrorNumber::DeviceError, "no paper");
      }
      canvas_ = WordsCanvas();
      return canvas_;
    }
    void endPage() override { printer_.pages.push_back(canvas_.words.at(1).text + "\n" + canvas_.rows()); }
    void finish() override { printer_.log += "finish;"; }

   private:
    FakePrinter& printer_;
    WordsCanvas canvas_;
  };
};

}  // namespace tests
