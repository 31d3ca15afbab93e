#include "platform/win32/code_view/scintilla.h"

#include <algorithm>
#include <functional>
#include <string>

#include "base/error.h"
#include "base/line_ends.h"
#include "platform/win32/code_view/memory_room.h"
#include "platform/win32/system/errors.h"

namespace win32 {

void throwTooLong() {
  throw base::Error(base::ErrorNumber::OutOfMemory, "ტექსტი ზედმეტად გრძელია: რედაქტორში არ ეტევა.");
}

Scintilla::Scintilla(DWORD style, DWORD exStyle, HWND parent, int id) {
  static const int registered = Scintilla_RegisterClasses(GetModuleHandleW(nullptr));
  window_ = registered == 0
                ? nullptr
                : CreateWindowExW(exStyle, L"Scintilla", L"", style, 0, 0, 0, 0, parent,
                                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  if (window_ == nullptr) throw base::Error(base::ErrorNumber::OutOfMemory, systemMessage(GetLastError()));
  function_ = reinterpret_cast<SciFnDirect>(SendMessageW(window_, SCI_GETDIRECTFUNCTION, 0, 0));
  object_ = SendMessageW(window_, SCI_GETDIRECTPOINTER, 0, 0);
}

std::string_view Scintilla::text() const {
  return {reinterpret_cast<const char*>(call(SCI_GETCHARACTERPOINTER)), static_cast<std::size_t>(length())};
}

void Scintilla::replace(sptr_t from, sptr_t to, std::string_view text) const {
  call(SCI_SETTARGETRANGE, static_cast<uptr_t>(from), to);
  call(SCI_REPLACETARGET, text.size(), text.data());
}

bool Scintilla::holds(std::string_view part) const {
  const sptr_t size = length();
  if (size == 0) return false;
  // The two ends, with the gap between them: text() would close it, which moves all that lies behind it.
  const auto at = [this](sptr_t position) {
    return reinterpret_cast<const char*>(call(SCI_GETRANGEPOINTER, static_cast<uptr_t>(position), 1));
  };
  const std::less<> before;
  return !before(part.data(), at(0)) && !before(at(size - 1), part.data());
}

Scintilla::Replaced Scintilla::exchange(sptr_t from, sptr_t to, std::string_view text) const {
  if (holds(text)) return exchange(from, to, std::string(text));
  const auto removed = static_cast<std::size_t>(to - from);
  const auto size = static_cast<std::size_t>(length());
  if (removed == 0 && text.empty()) return Replaced::Nothing;
  if (!roomForChange(size, removed, text.size())) throwTooLong();
  call(SCI_SETSTATUS, SC_STATUS_OK);
  replace(from, to, text);
  const bool broken = length() != static_cast<sptr_t>(size - removed + text.size());
  call(SCI_SETSTATUS, SC_STATUS_OK);
  return broken ? Replaced::Broken : Replaced::Done;
}

Scintilla::Replaced Scintilla::replaceAll(std::string_view to) const {
  if (holds(to)) return replaceAll(std::string(to));
  const std::string_view now = text();
  auto head = static_cast<std::size_t>(std::mismatch(now.begin(), now.end(), to.begin(), to.end()).first -
                                       now.begin());
  if (head == now.size() && head == to.size()) return Replaced::Nothing;
  const std::size_t most = std::min(now.size(), to.size()) - head;
  std::size_t tail = 0;
  while (tail < most && now[now.size() - 1 - tail] == to[to.size() - 1 - tail]) ++tail;

  // A whole text goes at once, a part of it line by line.
  if (head + tail < now.size() / 8) head = tail = 0;
  return exchange(static_cast<sptr_t>(head), static_cast<sptr_t>(now.size() - tail),
                  to.substr(head, to.size() - head - tail));
}

void Scintilla::followLineEnds() const {
  const base::LineEnd end = base::lineEndOf(text());
  call(SCI_SETEOLMODE, end == base::LineEnd::CrLf ? SC_EOL_CRLF
                       : end == base::LineEnd::Lf ? SC_EOL_LF
                                                  : SC_EOL_CR);
}

}  // namespace win32
