// The main window and the files of its documents: what other programs did to them, and what saving left
// behind.
#include "app/FrmH.h"
#include "app/document_tree.h"
#include "app/frmchanged.h"
#include "app/mdlsaerto.h"
#include "base/error.h"
#include "base/files.h"
#include "base/path.h"

namespace app {

// Those that have been shown: the others are looked at when they come into the code view.
void FrmH::lookAtDisk() {
  for (const std::int16_t index : documentSession.texts()) {
    if (index >= WebProject.Count()) return;  // the user has gone on meanwhile
    if (documentSession.document(index)) settleWithFile(index, Purpose::Look);
  }
}

bool FrmH::settleWithFile(std::int16_t index, Purpose purpose) {
  const std::string path = documentSession.path(index);
  base::FileTrace& known = documentSession.file(index);
  const bool looking = purpose == Purpose::Look;
  if (path.empty() || (looking && (!known.known || !base::looksChanged(path, known)))) return true;
  if (!base::fileExists(path)) {
    if (looking && !known.missing) fileVanished(index);
    return true;
  }
  const std::string bytes = base::readFile(path);
  base::FileTrace trace = base::traceOf(path, bytes);
  if (known.known && trace.sum == known.sum) {
    trace.oldEnd = known.oldEnd;
    known = trace;
    return true;
  }
  if (documentText(index) == bytes) {
    documentSession.saved(index, path, trace);
    return true;
  }
  frmchanged form(path, documentText(index), bytes, T1);
  platform_.showModal(form);
  switch (form.answer()) {
    case frmchanged::Answer::Reload:
      reload(index, bytes, trace);
      return looking;
    case frmchanged::Answer::Keep:
      documentSession.markChanged(index);
      known = trace;
      return true;
    case frmchanged::Answer::Both: {
      documentSession.markChanged(index);
      known = trace;
      const std::string extension = "." + base::extensionOf(path);
      mnunewF_Click(extension.c_str(), bytes);
      FileChanged = true;
      showCaption();
      return looking;
    }
    case frmchanged::Answer::None:
      // Asked again before it is saved: the sum is still the old one.
      documentSession.markChanged(index);
      known.size = trace.size;
      known.changed = trace.changed;
      return looking;
  }
  return false;
}

void FrmH::fileVanished(std::int16_t index) {
  documentSession.file(index).missing = true;
  documentSession.markChanged(index);
  messageBox(platform_,
             "ეს ფაილი დისკზე აღარ არის:\r\n" + documentSession.path(index) +
                 "\r\n\r\nმისი ტექსტი ფანჯარაში დარჩა. თუ შეინახავთ, ფაილი თავიდან შეიქმნება.",
             "Zervo", frmBOXa::Kind::Message, ui::IconBox::Sign::Warning);
}

// A step of the history: what the user had comes back by undoing it.
void FrmH::reload(std::int16_t index, std::string_view bytes, const base::FileTrace& trace) {
  documentSession.setText(index, bytes);
  documentSession.saved(index, documentSession.path(index), trace);
  showCaption();
}

// Without it nothing is written: the user relies on it.
void FrmH::keepBackup(const std::string& path, std::string_view text) {
  if (!Props.KeepBackup || !base::fileExists(path)) return;
  try {
    const std::string before = base::readFile(path);
    if (before != text) base::writeFile(path + ".bak", before);
  } catch (const base::Error& error) {
    throw base::Error(error.number(), std::string("წინა ვერსია ვერ შეინახა, ამიტომ ფაილი არ ჩაწერილა. ") +
                                          "ამის გამორთვა პარამეტრებში შეიძლება.\r\n\r\n" + error.what());
  }
}

void FrmH::writeText(const std::string& path, std::int16_t index) {
  const std::string_view text = documentText(index);
  keepBackup(path, text);
  std::string tail;
  if (Props.CutOldEnd) {
    base::writeFile(path, text);
  } else {
    tail = base::overwriteFile(path, text);
  }
  base::FileTrace trace =
      tail.empty() ? base::traceOf(path, text) : base::traceOf(path, std::string(text) + tail);
  trace.oldEnd = tail.size();
  documentSession.saved(index, path, trace);
}

// The bar above the text ------------------------------------------------------------------------------------

void FrmH::addNotice() {
  notice = &Lnotice;
  noticeButtons = {&Cnotice, &CnoticeClose};
  Cnotice.setCaption("ბოლოს &მოჭრა");
  CnoticeClose.setCaption("&დარჩეს");
  Lnotice.setVisible(false);
  Cnotice.setVisible(false);
  CnoticeClose.setVisible(false);
  Cnotice.clicked.connect([this] {
    perform([this] { cutOldEnd(); });
    showNotice();
    T1.setFocus();
  });
  CnoticeClose.clicked.connect([this] {
    documentSession.file(-1).oldEnd = 0;
    showNotice();
    T1.setFocus();
  });
}

void FrmH::showNotice() {
  const std::uintmax_t bytes = documentSession.file(-1).oldEnd;
  if (bytes > 0) {
    const std::string text = "ფაილის ბოლოში დარჩა ძველის " + std::to_string(bytes) + " ბაიტი.";
    if (Lnotice.caption() != ui::Text(text)) Lnotice.setCaption(text);
  }
  if (Lnotice.visible() == (bytes > 0)) return;
  Cnotice.setVisible(bytes > 0);
  CnoticeClose.setVisible(bytes > 0);
  Lnotice.setVisible(bytes > 0);
}

void FrmH::cutOldEnd() {
  base::FileTrace& trace = documentSession.file(-1);
  std::string bytes = base::readFile(CurrentFilePath);
  if (base::sumOf(bytes) != trace.sum || bytes.size() < trace.oldEnd) {
    throw base::Error(base::ErrorNumber::PermissionDenied,
                      "ფაილი ამასობაში სხვა პროგრამამ შეცვალა, ამიტომ არ მოიჭრა:\r\n" + CurrentFilePath);
  }
  bytes.resize(bytes.size() - static_cast<std::size_t>(trace.oldEnd));
  base::writeFile(CurrentFilePath, bytes);
  trace = base::traceOf(CurrentFilePath, bytes);
}

}  // namespace app
