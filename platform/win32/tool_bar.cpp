#include "platform/win32/tool_bar.h"

#include <algorithm>

#include "platform/win32/dpi.h"
#include "platform/win32/strings.h"

namespace win32 {
namespace {

// A picture is a letter or sign in the button's own style; short, and sharp at any density.
struct Drawing {
  ui::ToolIcon icon;
  const wchar_t* sign;
};

constexpr Drawing kDrawings[] = {
    {ui::ToolIcon::Bold, L"B"},           {ui::ToolIcon::Italic, L"I"},
    {ui::ToolIcon::Underline, L"U"},      {ui::ToolIcon::FontFace, L"Aa"},
    {ui::ToolIcon::FontColor, L"A\u25A0"}, {ui::ToolIcon::NoBreakSpace, L"&&nbsp"},
    {ui::ToolIcon::LineBreak, L"BR"},     {ui::ToolIcon::Paragraph, L"P"},
    {ui::ToolIcon::ParagraphAligned, L"P="}, {ui::ToolIcon::BulletList, L"UL"},
    {ui::ToolIcon::NumberedList, L"OL"},  {ui::ToolIcon::Rule, L"HR"},
    {ui::ToolIcon::Comment, L"<!"},       {ui::ToolIcon::EditTag, L"<>"},
    {ui::ToolIcon::Center, L"\u2261"},    {ui::ToolIcon::Quote, L"\u201D"},
    {ui::ToolIcon::Preformatted, L"PRE"}, {ui::ToolIcon::Heading1, L"H1"},
    {ui::ToolIcon::Heading2, L"H2"},      {ui::ToolIcon::FirstColor, L"#1"},
    {ui::ToolIcon::SecondColor, L"#2"},   {ui::ToolIcon::Image, L"IMG"},
    {ui::ToolIcon::Link, L"A"},           {ui::ToolIcon::Anchor, L"#A"},
    {ui::ToolIcon::Frame, L"FR"},         {ui::ToolIcon::Entity, L"&&;"},
    {ui::ToolIcon::TagList, L"<\u2026>"},
};

const wchar_t* signOf(ui::ToolIcon icon) {
  const auto* const at =
      std::find_if(std::begin(kDrawings), std::end(kDrawings), [icon](const Drawing& d) { return d.icon == icon; });
  return at == std::end(kDrawings) ? L"?" : at->sign;
}

}  // namespace

HWND makeToolBar(HWND parent, const std::vector<ui::ToolBarButton>& buttons) {
  const HWND bar = CreateWindowExW(0, TOOLBARCLASSNAMEW, L"",
                                   WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS | CCS_TOP,
                                   0, 0, 0, 0, parent, nullptr, nullptr, nullptr);
  SendMessageW(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  SendMessageW(bar, TB_SETBITMAPSIZE, 0, 0);
  for (const ui::ToolBarButton& wanted : buttons) {
    TBBUTTON button{};
    button.iBitmap = I_IMAGENONE;
    button.idCommand = wanted.command;
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_BUTTON | BTNS_AUTOSIZE | BTNS_SHOWTEXT;
    button.iString = reinterpret_cast<INT_PTR>(signOf(wanted.icon));
    SendMessageW(bar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
  }
  return bar;
}

bool giveToolBarHint(HWND bar, const std::vector<ui::ToolBarButton>& buttons, LPARAM notification) {
  auto& header = *reinterpret_cast<NMHDR*>(notification);
  if (bar == nullptr || header.code != TTN_GETDISPINFOW) return false;
  auto& info = *reinterpret_cast<NMTTDISPINFOW*>(notification);
  for (const ui::ToolBarButton& button : buttons) {
    if (static_cast<UINT_PTR>(button.command) != header.idFrom) continue;
    // The tool tip copies at most its own field's length.
    const std::wstring hint = wideFromText(button.hint).substr(0, std::size(info.szText) - 1);
    std::copy(hint.begin(), hint.end(), info.szText);
    info.szText[hint.size()] = L'\0';
    info.lpszText = info.szText;
    return true;
  }
  return false;
}

}  // namespace win32
