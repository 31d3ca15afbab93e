// Preview: the shown page, unsaved text included, in the embedded browser or in the default one.
#pragma once

#include "app/workbench.h"
#include "preview/frmpreview.h"
#include "preview/preview_copy.h"

namespace preview {

class Preview {
 public:
  // Adds its command; `bench` must outlive it. The temporary copy goes with it at the latest.
  explicit Preview(app::Workbench& bench);
  Preview(const Preview&) = delete;
  Preview& operator=(const Preview&) = delete;

 private:
  struct Writing;  // of the copies
  void mnuPreview_Click();
  bool showsPage();
  void writeCopy();
  std::string textOf(Writing& writing, std::int16_t index, const std::string& folderUrl);
  std::string addressOf(Writing& writing, std::int16_t from, std::string_view address);
  void openBrowser();
  void sayNoEngine();
  void left();

  app::Workbench& bench_;
  frmpreview window_;
  PreviewCopy copy_;
  bool inBrowser_ = false;  // the copy is shown there: it may be read again at any time
  bool noEngine_ = false;   // found out at the first preview
  bool told_ = false;       // and the user was told
};

}  // namespace preview
