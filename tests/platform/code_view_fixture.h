// The real code view in a window of its own, and texts that are hard to hold.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/code_view/code_view.h"
#include "tests/platform/test_window.h"

namespace tests {

inline std::string everyByte() {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  return bytes;
}

inline const std::vector<std::string>& nastyTexts() {
  using namespace std::string_literals;
  static const std::vector<std::string> texts = {
      "",
      "\r\n",
      "\n",
      "\r",
      "\0"s,
      "a\r\r\nb\r\n\n\rc",
      "one\rtwo\r",
      "no end",
      "\xEF\xBB\xBF<html>\r\n",
      "\xFF\xFE"
      "a\0b\0"s,
      "ქართული\r\n\xE1\x83",                                               // cut
      "\xE1\x83\xE1\x83\x90\x83\xC0\x80\xED\xA0\x80\xF4\x90\x80\x80\xC3",  // of no letter
      everyByte() + "\r\n" + everyByte() + "\n",
      std::string(4095, 'x') + "\r\n" + std::string(4095, 'y') + "\r\n",
  };
  return texts;
}

class CodeViewTest : public testing::Test {
 protected:
  CodeViewTest() {
    view_.place(window_.hwnd(), 7);
    view_.setBounds({0, 0, 300, 200});
    view_.changed.connect([this] { ++changes_; });
    view_.reformed.connect([this] { ++reforms_; });
  }

  LRESULT send(UINT message, WPARAM first = 0, LPARAM second = 0) {
    return SendMessageW(view_.hwnd(), message, first, second);
  }
  void type(std::wstring_view text) {
    for (const wchar_t c : text) send(WM_CHAR, c, 1);
  }
  void key(int code) { send(WM_KEYDOWN, static_cast<WPARAM>(code), 1); }
  void paintNow() { RedrawWindow(view_.hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }
  void undo() { view_.undo(); }

  TestWindow window_;
  win32::CodeView view_;
  int changes_ = 0;
  int reforms_ = 0;
};

}  // namespace tests
