#include "ui/icons/menu_icons.h"

#include <algorithm>

namespace ui {
namespace {

// Lines of one unit stand on half units, so that they fill whole pixels; see ui/drawing.h for the words.
// Conversions show what is read above on the left and what is made of it below on the right; a yellow ground
// means the selection only.
constexpr MenuIconDrawing kDrawings[] = {
    {MenuIcon::NewPage,
     "p F 3 1 10 1 13 4 13 15 3 15 t C 3.5 1.5 9.5 1.5 12.5 4.5 12.5 14.5 3.5 14.5 L 9.5 1.5 9.5 4.5 12.5 "
     "4.5 "
     "b L 6.5 8 5 9.75 6.5 11.5 L 9.5 8 11 9.75 9.5 11.5"},
    {MenuIcon::NewText,
     "p F 3 1 10 1 13 4 13 15 3 15 t C 3.5 1.5 9.5 1.5 12.5 4.5 12.5 14.5 3.5 14.5 L 9.5 1.5 9.5 4.5 12.5 "
     "4.5 "
     "b L 5.5 7.5 10.5 7.5 L 5.5 9.5 10.5 9.5 L 5.5 11.5 8.5 11.5"},
    {MenuIcon::Open, "I 89 b A 11 4.5 2.75 190 330 L 13.5 1 13.5 3.5 11 3.5"},
    {MenuIcon::Save,
     "c F 2 2 12.5 2 14 3.5 14 14 2 14 t C 2.5 2.5 12.5 2.5 13.5 3.5 13.5 13.5 2.5 13.5 p Q 5 2 11 6 t R 5.5 "
     "2.5 "
     "10.5 5.5 Q 8 3 10 5 p Q 4 8 12 13 t R 4.5 8.5 11.5 13.5"},
    {MenuIcon::MarkedIsoToAscii, "y Q 0 0 16 16 t T 4.5 4.5 9 1 ა b T 11 11 9 1 A r L 2.5 10 5.5 13"},
    {MenuIcon::Cut, "t L 4.5 1 10.5 11 L 11.5 1 5.5 11 b O 4 12.5 2 O 12 12.5 2"},
    {MenuIcon::Paste,
     "y Q 2 2 12 14 t R 2.5 2.5 11.5 13.5 Q 5 1 9 4 p Q 6 6 14 15 t R 6.5 6.5 13.5 14.5 b L 8.5 9.5 11.5 9.5 "
     "L 8.5 "
     "11.5 11.5 11.5"},
    {MenuIcon::Copy,
     "p Q 2 1 10 11 t R 2.5 1.5 9.5 10.5 b L 4.5 4.5 7.5 4.5 p Q 6 5 14 15 t R 6.5 5.5 13.5 14.5 b L 8.5 8.5 "
     "11.5 "
     "8.5 L 8.5 11.5 11.5 11.5"},
    {MenuIcon::Delete, "r W 2 L 3.5 3.5 12.5 12.5 L 12.5 3.5 3.5 12.5"},
    {MenuIcon::MarkedToUtf8, "y Q 0 0 16 16 t T 4 4.5 9 1 A b T 10 11.5 8 1 U8"},
    {MenuIcon::Utf8Copy, "t T 4 4.5 9 1 A p Q 5 7 16 16 t R 5.5 7.5 15.5 15.5 b T 10.5 11.5 7 1 U8"},
    {MenuIcon::Undo, "b W 2 L 3 6 9.5 6 A 9.5 9.5 3.5 270 450 L 9.5 13 5 13 F 0.5 6 5.5 1.5 5.5 10.5"},
    {MenuIcon::Redo, "b W 2 L 13 6 6.5 6 A 6.5 9.5 3.5 270 90 L 6.5 13 11 13 F 15.5 6 10.5 1.5 10.5 10.5"},
    {MenuIcon::MarkedAsciiToIso, "y Q 0 0 16 16 t T 4.5 4.5 9 1 A b T 11 11 9 1 ა r L 2.5 10 5.5 13"},
    {MenuIcon::AsciiToIso, "t T 4.5 4.5 9 1 A b T 11 11 9 1 ა r L 2.5 10 5.5 13"},
    {MenuIcon::MarkedFromUtf8, "y Q 0 0 16 16 t T 5.5 4.5 8 1 U8 b T 11.5 11.5 9 1 A"},
    {MenuIcon::FromUtf8, "t T 5.5 4.5 8 1 U8 b T 11.5 11.5 9 1 A"},
    {MenuIcon::SelectAll,
     "y Q 2 3 14 13 t L 3.5 4.5 12.5 4.5 L 3.5 7.5 12.5 7.5 L 3.5 10.5 9.5 10.5 b R 1.5 1.5 14.5 14.5"},
    {MenuIcon::ToUtf8, "t T 4 4.5 9 1 A b T 10 11.5 8 1 U8"},
    {MenuIcon::IsoToAscii, "t T 4.5 4.5 9 1 ა b T 11 11 9 1 A r L 2.5 10 5.5 13"},
    {MenuIcon::SaveAs, "I 4 o W 2.5 L 14 6 8 12 t F 6 14.5 7 11 9.5 13.5"},
    {MenuIcon::RussianFromReferences, "t T 4.5 4.5 9 1 # b T 11 11.5 9 1 Я"},
    {MenuIcon::RussianToReferences, "t T 4.5 4.5 9 1 Я b T 11 11.5 9 1 #"},
    {MenuIcon::FromReferences, "t T 4.5 4.5 9 1 # b T 11 11 9 1 ა"},
    {MenuIcon::ToReferences, "t T 4.5 4.5 9 1 ა b T 11 11.5 9 1 #"},
    {MenuIcon::Utf8ToReferences, "t T 5.5 4.5 8 1 U8 b T 11.5 11.5 9 1 #"},
    {MenuIcon::ReferencesToUtf8, "t T 4 4.5 9 1 # b T 10 11.5 8 1 U8"},
    {MenuIcon::Khutsuri, "v T 8 7.5 17 9 ქ L 2.5 14.5 13.5 14.5"},
    {MenuIcon::NewProject,
     "c Q 1 2 15 14 t R 1.5 2.5 14.5 13.5 L 1.5 5.5 14.5 5.5 b O 8 9.5 2.5 L 5.5 9.5 10.5 9.5 L 8 7 8 12"},
    {MenuIcon::SaveProject, "I 29 p Q 7 7 16 16 b R 8.5 8.5 14.5 14.5 Q 10 9 13 11 t R 10.5 12.5 12.5 14.5"},
    {MenuIcon::CloseProject, "I 29 p D 11.5 11.5 4.5 r W 2 L 9 9 14 14 L 14 9 9 14"},
    {MenuIcon::Close,
     "p F 3 1 10 1 13 4 13 15 3 15 t C 3.5 1.5 9.5 1.5 12.5 4.5 12.5 14.5 3.5 14.5 r W 1.5 L 5.5 7 10.5 12 L "
     "10.5 7 "
     "5.5 12"},
    {MenuIcon::NewWindow,
     "p Q 1 1 11 10 t R 1.5 1.5 10.5 9.5 b Q 1 1 11 4 p Q 5 6 15 15 t R 5.5 6.5 14.5 14.5 b Q 5 6 15 9"},
    {MenuIcon::Exit,
     "p Q 2 1 10 15 t L 9.5 4.5 9.5 1.5 2.5 1.5 2.5 14.5 9.5 14.5 9.5 11.5 r W 2 L 6 8 12 8 F 11 4 15.5 8 11 "
     "12"},
    {MenuIcon::AddFiles, "I 2 p D 11.5 11.5 4.5 g W 2 L 8 11.5 15 11.5 L 11.5 8 11.5 15"},
    {MenuIcon::Rename,
     "p Q 1 4 13 12 t R 1.5 4.5 12.5 11.5 b T 5 8 7 1 A r L 9.5 2.5 9.5 13.5 L 8 1.5 11 1.5 L 8 14.5 11 "
     "14.5"},
    {MenuIcon::Remove, "I 2 p D 11.5 11.5 4.5 r W 2 L 8 11.5 15 11.5"},
    {MenuIcon::Upload,
     "c Q 2 10 14 15 t R 2.5 10.5 13.5 14.5 g Q 10 12 12 13 b W 2 L 8 5 8 10 F 4 5.5 8 1 12 5.5"},
    {MenuIcon::RecentFiles, "p D 8 8 7 t O 8 8 6.5 b W 1.5 L 8 3.5 8 8 11.5 10"},
    {MenuIcon::Find, "c D 6.5 6.5 5 t W 1.5 O 6.5 6.5 4.5 o W 2.5 L 10.5 10.5 14 14"},
    {MenuIcon::FindNext, "I 40 p Q 7 8 16 16 b W 1.5 L 8 12 12 12 F 11 8.5 15.5 12 11 15.5"},
    {MenuIcon::FindPrevious, "I 40 p Q 7 8 16 16 b W 1.5 L 15 12 11 12 F 12 8.5 7.5 12 12 15.5"},
    {MenuIcon::FindDelete, "I 40 p Q 8 8 16 16 r W 2 L 9.5 9.5 14.5 14.5 L 14.5 9.5 9.5 14.5"},
    {MenuIcon::UndoReplace,
     "I 8 p Q 0 7 11 16 b W 1.5 L 3 11 8 11 A 8 13 2 270 450 L 8 15 5 15 F 0.5 11 4 7.5 4 14.5"},
    {MenuIcon::WordWrap,
     "t L 1.5 3.5 14.5 3.5 L 1.5 12.5 5.5 12.5 b L 1.5 8 12 8 A 12 10.25 2.25 270 450 L 12 12.5 10 12.5 F "
     "7.5 12.5 "
     "10.5 10 10.5 15"},
    {MenuIcon::Decode,
     "t L 1 8 4.5 4.5 8 3.5 11.5 4.5 15 8 11.5 11.5 8 12.5 4.5 11.5 1 8 b D 8 8 2.75 p D 7 7 0.9"},
    {MenuIcon::NextDocument, "I 2 p D 11.5 11 4.5 b W 2 L 7 11 12 11 F 11 7.5 15.5 11 11 14.5"},
    {MenuIcon::PreviousDocument, "I 2 p D 4.5 11 4.5 b W 2 L 9 11 4 11 F 5 7.5 0.5 11 5 14.5"},
    {MenuIcon::Preview,
     "c D 8 8 7 b O 8 8 6.5 L 1.5 8 14.5 8 L 8 1.5 8 14.5 A 2 8 8 -45 45 A 14 8 8 135 225"},
    {MenuIcon::Print,
     "p Q 4 1 12 6 t R 4.5 1.5 11.5 5.5 c Q 1 5 15 12 t R 1.5 5.5 14.5 11.5 g Q 12 7 13 8 p Q 4 9 12 15 t R "
     "4.5 9.5 "
     "11.5 14.5 b L 6.5 11.5 9.5 11.5"},
    {MenuIcon::PageSetup,
     "p Q 3 1 13 15 t R 3.5 1.5 12.5 14.5 b L 5.5 2 5.5 14 L 10.5 2 10.5 14 L 4 3.5 12 3.5 L 4 12.5 12 12.5"},
    {MenuIcon::PrintPreview, "I 2 p D 10.5 10.5 4 c D 10 10 3.5 b O 10 10 3 o W 2 L 12.5 12.5 15 15"},
    {MenuIcon::Options,
     "t L 1.5 3.5 14.5 3.5 L 1.5 8.5 14.5 8.5 L 1.5 13.5 14.5 13.5 b Q 9 1 12 6 Q 3 6 6 11 Q 8 11 11 16"},
    {MenuIcon::Help, "c D 8 8 7 b O 8 8 6.5 T 8 8 11 1 ?"},
    {MenuIcon::About, "b D 8 8 7 p D 8 4.5 1.25 W 2 L 8 7.5 8 12"},
    {MenuIcon::ColorCode, "r Q 1 1 7 7 g Q 9 1 15 7 b Q 1 9 7 15 t T 12 12 8 1 #"},
    {MenuIcon::Table,
     "p Q 1 2 15 14 c Q 1 2 15 5 t R 1.5 2.5 14.5 13.5 b L 2 5.5 14 5.5 L 2 9.5 14 9.5 L 5.5 3 5.5 13 L 10.5 "
     "3 10.5 13"},
    {MenuIcon::ListTable,
     "I 57 p Q 6 6 16 16 t L 7.5 8.5 14.5 8.5 L 7.5 11.5 14.5 11.5 L 7.5 14.5 14.5 14.5"},
    {MenuIcon::Frameset,
     "p Q 1 2 15 14 y Q 1 2 15 5 c Q 1 6 5 14 t R 1.5 2.5 14.5 13.5 b L 2 5.5 14 5.5 L 5.5 6 5.5 13"},
    {MenuIcon::Frame, "p Q 1 2 15 14 t R 1.5 2.5 14.5 13.5 b L 6.5 3 6.5 13 L 7 7.5 14 7.5"},
    {MenuIcon::Style, "t T 4 8 15 1 { T 12 8 15 1 } r Q 7 4 9 6 b Q 7 10 9 12"},
    {MenuIcon::Image, "p Q 1 2 15 14 t R 1.5 2.5 14.5 13.5 g F 2 13 6 7 9 11 11 9 14 13 o D 11.5 5.5 1.5"},
    {MenuIcon::ImageMap, "I 62 r R 4.5 5.5 8.5 10.5 O 11.5 9.5 2.5"},
    {MenuIcon::Link,
     "b W 1.5 L 7 5 3.5 5 2 6.5 2 9.5 3.5 11 7 11 L 9 5 12.5 5 14 6.5 14 9.5 12.5 11 9 11 t L 5 8 11 8"},
    {MenuIcon::Anchor,
     "b W 1.5 O 8 3 1.5 L 8 4.5 8 14 L 4.5 7 11.5 7 A 8 8.5 5.5 0 180 F 0.5 10 2.5 7 4.5 10 F 11.5 10 13.5 7 "
     "15.5 10"},
    {MenuIcon::List,
     "b D 3 3.5 1.5 D 3 8.5 1.5 D 3 13.5 1.5 t L 6.5 3.5 14.5 3.5 L 6.5 8.5 14.5 8.5 L 6.5 13.5 14.5 13.5"},
    {MenuIcon::NumberedList,
     "b L 2 3 3.5 1.5 3.5 6.5 L 1.5 9.5 3.5 9.5 4.5 10.5 4 11.5 1.5 14.5 4.5 14.5 t L 7.5 3.5 14.5 3.5 L 7.5 "
     "8.5 "
     "14.5 8.5 L 7.5 13.5 14.5 13.5"},
    {MenuIcon::Form,
     "p Q 1 1 15 5 t R 1.5 1.5 14.5 4.5 b L 3.5 2 3.5 4 t O 4 10.5 2.5 b D 4 10.5 1.25 c Q 8 8 15 14 t R 8.5 "
     "8.5 14.5 13.5"},
    {MenuIcon::Applet,
     "t L 2.5 7.5 2.5 11.5 4.5 13.5 8.5 13.5 10.5 11.5 10.5 7.5 2.5 7.5 A 11 9.5 2 -90 90 r L 5 1.5 4.5 3.5 "
     "5.5 5.5 L 8 1.5 7.5 3.5 8.5 5.5"},
    {MenuIcon::Script, "p Q 1 1 15 15 t R 1.5 1.5 14.5 14.5 o T 8 8 10 1 JS"},
    {MenuIcon::TagList,
     "b L 4 1.5 1.5 4.5 4 7.5 L 12 1.5 14.5 4.5 12 7.5 t L 6 3.5 10 3.5 L 6 5.5 10 5.5 L 3 10.5 13 10.5 L 3 "
     "13.5 13 13.5"},
    {MenuIcon::TagAttributes,
     "b W 1.5 L 5.5 3 2 8 5.5 13 L 10.5 3 14 8 10.5 13 r W 1 L 6 6.5 10 6.5 L 6 9.5 10 9.5"},
    {MenuIcon::Paragraph, "b D 6 5 3.5 Q 6 1.5 9 8.5 W 1.5 L 8.25 2 8.25 14.5 L 12 2 12 14.5 L 6 2 13.5 2"},
    {MenuIcon::Justified,
     "t L 3.5 3.5 12.5 3.5 L 3.5 6.5 12.5 6.5 L 3.5 9.5 12.5 9.5 L 3.5 12.5 12.5 12.5 b L 1.5 1.5 1.5 14.5 L "
     "14.5 "
     "1.5 14.5 14.5"},
    {MenuIcon::AlignedRight,
     "t L 3.5 3.5 12.5 3.5 L 7.5 6.5 12.5 6.5 L 3.5 9.5 12.5 9.5 L 7.5 12.5 12.5 12.5 b L 14.5 1.5 14.5 "
     "14.5"},
    {MenuIcon::Font, "b T 8 8 15 9 F"},
    {MenuIcon::FontSize, "b T 4 10 9 1 A t T 11 7.5 14 1 A"},
    {MenuIcon::FontFace, "b T 8 8 12 8 Aa"},
    {MenuIcon::Heading, "b T 8 8 15 1 H"},
    {MenuIcon::Entity, "b T 8 8 16 0 ©"},
    {MenuIcon::LineGroups,
     "t L 2.5 1.5 13.5 1.5 L 2.5 4.5 13.5 4.5 L 2.5 11.5 13.5 11.5 L 2.5 14.5 13.5 14.5 r W 1.5 L 1 8 15 8"},
    {MenuIcon::LineLength,
     "t L 2.5 2.5 13.5 2.5 L 2.5 5.5 9.5 5.5 b L 1.5 8.5 1.5 14.5 L 14.5 8.5 14.5 14.5 L 4 11.5 12 11.5 F 2 "
     "11.5 5 9 5 14 F 14 11.5 11 9 11 14"},
    {MenuIcon::Indent,
     "t L 8.5 2.5 14.5 2.5 L 1.5 6.5 14.5 6.5 L 1.5 10.5 14.5 10.5 L 1.5 14.5 14.5 14.5 b L 1 2.5 4 2.5 F "
     "3.5 0 6.5 2.5 3.5 5"},
    {MenuIcon::ListReplace,
     "t T 3.5 4 8 1 a T 3.5 12 8 1 b b T 12.5 4 8 1 x T 12.5 12 8 1 y r L 6.5 4.5 9 4.5 L 6.5 12.5 9 12.5"},
    {MenuIcon::Template,
     "y Q 1 5 15 11 t L 3.5 8 12.5 8 b L 4 1.5 1.5 1.5 1.5 14.5 4 14.5 L 12 1.5 14.5 1.5 14.5 14.5 12 14.5"},
    {MenuIcon::Keyboard,
     "p Q 0 4 16 13 t R 0.5 4.5 15.5 12.5 b Q 2 6 4 8 Q 5 6 7 8 Q 8 6 10 8 Q 11 6 13 8 L 4.5 10.5 11.5 10.5"},
    {MenuIcon::TagPalette,
     "p Q 1 1 15 15 t R 1.5 1.5 14.5 14.5 L 1.5 8 14.5 8 L 8 1.5 8 14.5 b T 4.75 4.75 6 1 B r T 11.5 4.75 6 "
     "3 I g T 4.75 11.5 6 1 P o T 11.5 11.5 6 1 A"},
    {MenuIcon::TextColor, "t T 8 6 12 1 A r Q 2 13 6 15 g Q 6 13 10 15 b Q 10 13 14 15"},
    {MenuIcon::Folder,
     "y F 1 4 6 4 7 6 14 6 14 14 1 14 t C 1.5 4.5 5.5 4.5 7 6.5 13.5 6.5 13.5 13.5 1.5 13.5"},
    {MenuIcon::Check, "t W 2 L 3 8.5 6.5 12 13 4"},
    {MenuIcon::Bullet, "t D 8 8 3"},
    {MenuIcon::Letters, "t T 3.5 5 9 2 À b T 12 11 10 1 ა r L 7 3.5 11.5 3.5 F 9.5 1 14 3.5 9.5 6"},
};
static_assert(std::ranges::is_sorted(kDrawings, {}, &MenuIconDrawing::icon));

}  // namespace

std::span<const MenuIconDrawing> menuIconDrawings() {
  return kDrawings;
}

std::string_view menuIconDrawing(int number) {
  const auto at =
      std::ranges::lower_bound(kDrawings, static_cast<MenuIcon>(number), {}, &MenuIconDrawing::icon);
  return at != std::end(kDrawings) && at->icon == static_cast<MenuIcon>(number) ? at->drawing
                                                                                : std::string_view();
}

}  // namespace ui
