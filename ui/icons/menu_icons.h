// The numbers that captions of menus carry ("|3|...") and the drawing that belongs to each.
#pragma once

#include <span>
#include <string_view>

namespace ui {

// Captions are stored with the plain number; the names are for who looks one up.
enum class MenuIcon {
  None = 0,
  NewPage = 1,
  NewText = 2,
  Open = 3,
  Save = 4,
  MarkedIsoToAscii = 5,
  Cut = 6,
  Paste = 7,
  Copy = 8,
  Delete = 9,
  MarkedToUtf8 = 10,
  Utf8Copy = 11,
  Undo = 12,
  Redo = 13,
  MarkedAsciiToIso = 14,
  AsciiToIso = 15,
  MarkedFromUtf8 = 16,
  FromUtf8 = 17,
  SelectAll = 18,
  ToUtf8 = 19,
  IsoToAscii = 20,
  SaveAs = 21,
  RussianFromReferences = 22,
  RussianToReferences = 23,
  FromReferences = 24,
  ToReferences = 25,
  Utf8ToReferences = 26,
  ReferencesToUtf8 = 27,
  Khutsuri = 28,
  NewProject = 29,
  SaveProject = 30,
  CloseProject = 31,
  Close = 32,
  NewWindow = 33,
  Exit = 34,
  AddFiles = 35,
  Rename = 36,
  Remove = 37,
  Upload = 38,
  RecentFiles = 39,
  Find = 40,
  FindNext = 41,
  FindPrevious = 42,
  FindDelete = 43,
  UndoReplace = 44,
  WordWrap = 45,
  Decode = 46,
  NextDocument = 47,
  PreviousDocument = 48,
  Preview = 49,
  Print = 50,
  PageSetup = 51,
  PrintPreview = 52,
  Options = 53,
  Help = 54,
  About = 55,
  ColorCode = 56,
  Table = 57,
  ListTable = 58,
  Frameset = 59,
  Frame = 60,
  Style = 61,
  Image = 62,
  ImageMap = 63,
  Link = 64,
  Anchor = 65,
  List = 66,
  NumberedList = 67,
  Form = 68,
  Applet = 69,
  Script = 70,
  TagList = 71,
  TagAttributes = 72,
  Paragraph = 73,
  Justified = 74,
  AlignedRight = 75,
  Font = 76,
  FontSize = 77,
  FontFace = 78,
  Heading = 79,
  Entity = 80,
  LineGroups = 81,
  LineLength = 82,
  Indent = 83,
  ListReplace = 84,
  Template = 85,
  Keyboard = 86,
  TagPalette = 87,
  TextColor = 88,
  Folder = 89,
  Check = 90,  // the marks of checked items
  Bullet = 91,
  Letters = 92,
};

struct MenuIconDrawing {
  MenuIcon icon;
  std::string_view drawing;  // see ui/drawing.h
};
std::span<const MenuIconDrawing> menuIconDrawings();  // sorted by number

// Empty when the number has no picture.
std::string_view menuIconDrawing(int number);

}  // namespace ui
