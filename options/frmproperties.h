// Options: every field of the settings record, on pages under tabs.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "app/workbench.h"
#include "resources/ids.h"
#include "ui/controls.h"
#include "ui/page_tabs.h"
#include "ui/picture.h"

namespace options {

class frmproperties : public ui::Form {
 public:
  // Shows the settings as they are stored; `bench` must outlive the form.
  explicit frmproperties(app::Workbench& bench);

  enum class Page { Start, Editor, Typing, NewPage, FtpAndPreview, CodeView };
  // A setting that is on or off.
  struct Tick {
    int id;
    Page page;
    bool app::PropsRecord::*field;
    const char* caption;
  };
  // All of them; frmproperties_texts.cpp.
  static std::span<const Tick> ticks();
  ui::CheckBox& tick(bool app::PropsRecord::*field);

  ui::PageTabs Tabs{*this, IDC_frmproperties_Tabs};
  ui::Label Frame1{*this, IDC_frmproperties_Frame1};

  std::vector<std::unique_ptr<ui::CheckBox>> boxes = makeTicks();  // as ticks()
  ui::CheckBox& CKmaximized = tick(&app::PropsRecord::StartMaximized);
  ui::CheckBox& CKposition = tick(&app::PropsRecord::RememberPosition);
  ui::CheckBox& CKlast = tick(&app::PropsRecord::ReopenLastFile);
  ui::CheckBox& CKbold = tick(&app::PropsRecord::EditorFontBold);
  ui::CheckBox& CKitalic = tick(&app::PropsRecord::EditorFontItalic);
  ui::CheckBox& CKwrap = tick(&app::PropsRecord::WordWrap);
  ui::CheckBox& CKskeleton = tick(&app::PropsRecord::NewPageSkeleton);
  ui::CheckBox& CKheader = tick(&app::PropsRecord::HeaderTextOn);
  ui::CheckBox& CKbody = tick(&app::PropsRecord::BodyAttributesOn);
  ui::CheckBox& CKlive = tick(&app::PropsRecord::LiveColours);
  ui::CheckBox& CKnumbers = tick(&app::PropsRecord::LineNumbers);

  // Start-up
  ui::CheckBox CKshow{*this, IDC_frmproperties_CKshow};
  ui::Label Lmode{*this, IDC_frmproperties_Lmode};
  ui::ComboBox CBmode{*this, IDC_frmproperties_CBmode};
  // Editor
  ui::Label Lfont{*this, IDC_frmproperties_Lfont};
  ui::ComboBox CBfont{*this, IDC_frmproperties_CBfont};
  ui::Label Lsize{*this, IDC_frmproperties_Lsize};
  ui::TextBox Tsize{*this, IDC_frmproperties_Tsize};
  ui::Button Cback{*this, IDC_frmproperties_Cback};
  ui::PictureBox Pback{*this, IDC_frmproperties_Pback};
  ui::Button Ctext{*this, IDC_frmproperties_Ctext};
  ui::PictureBox Ptext{*this, IDC_frmproperties_Ptext};
  ui::Label Lsample{*this, IDC_frmproperties_Lsample};
  ui::PictureBox Psample{*this, IDC_frmproperties_Psample};
  // Code view
  ui::Label Lutf8font{*this, IDC_frmproperties_Lutf8font};
  ui::ComboBox CButf8font{*this, IDC_frmproperties_CButf8font};
  ui::PictureBox Putf8{*this, IDC_frmproperties_Putf8};
  ui::Label Lcolours{*this, IDC_frmproperties_Lcolours};
  ui::ComboBox CBcolours{*this, IDC_frmproperties_CBcolours};
  // Typing: label, font and sample of each mode
  std::array<std::unique_ptr<ui::Label>, 4> Ltyping;
  std::array<std::unique_ptr<ui::ComboBox>, 4> CBtyping;
  std::array<std::unique_ptr<ui::PictureBox>, 4> Ptyping;
  ui::Label Lnbsp{*this, IDC_frmproperties_Lnbsp};
  ui::OptionButton OPbytes{*this, IDC_frmproperties_OPbytes, 1};
  ui::OptionButton OPreference{*this, IDC_frmproperties_OPreference, 1};
  // New pages
  ui::TextBox Theader{*this, IDC_frmproperties_Theader};
  ui::TextBox Tbody{*this, IDC_frmproperties_Tbody};
  // FTP and preview
  ui::Label Ltimeout{*this, IDC_frmproperties_Ltimeout};
  ui::TextBox Ttimeout{*this, IDC_frmproperties_Ttimeout};

  ui::Button Cdefault{*this, IDC_frmproperties_Cdefault};
  ui::Button COK{*this, IDC_frmproperties_COK};
  ui::Button CEXIT{*this, IDC_frmproperties_CEXIT};
  ui::Button Capply{*this, IDC_frmproperties_Capply};

  bool keyPressed(const ui::Shortcut& key) override { return Tabs.keyPressed(key); }

 private:
  std::vector<std::unique_ptr<ui::CheckBox>> makeTicks();
  void setTexts();
  void addPages();
  void connectEvents();
  // Between the fields and a record. Nothing is read when a field is wrong: the user has been told and led
  // there.
  void fill(const app::PropsRecord& props);
  std::optional<app::PropsRecord> read();
  std::optional<std::int16_t> numberIn(ui::TextBox& box, int least, int most);
  void selectFont(ui::ComboBox& box, const std::string& name);
  bool apply();
  void pick(base::Color& color);
  app::ColourScheme scheme() const;
  ui::CodeLook look() const;  // the colours as they would be
  void enableTexts();
  void repaintSamples();
  void paintSwatch(ui::Canvas& canvas, const ui::PictureBox& box, base::Color color) const;
  enum class SampleOf { Bytes, Letters };
  void paintSample(ui::Canvas& canvas, const ui::PictureBox& box, const std::string& text,
                   const ui::ComboBox& family, SampleOf kind = SampleOf::Bytes) const;

  app::Workbench& bench_;
  std::vector<std::string> fonts_;
  app::PropsRecord filled_;  // what the fields showed first
  base::Color back_ = 0;
  base::Color text_ = 0;
};

}  // namespace options
