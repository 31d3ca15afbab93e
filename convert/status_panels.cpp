#include "convert/status_panels.h"

#include <algorithm>
#include <utility>

#include "app/menus.h"
#include "base/utf8.h"
#include "convert/encoding_counts.h"
#include "resources/ids.h"

namespace convert {
namespace {

constexpr std::size_t kPreviewBytes = 200;
constexpr std::size_t kCountedAtOnce = 256 * std::size_t{1024};  // bytes; longer texts in the next pause

}  // namespace

ui::Text selectionPreview(std::string_view text, int start, int length, ui::TextView view,
                          const Conversions& conversions) {
  const std::string_view selected =
      text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
  std::size_t size = std::min(selected.size(), kPreviewBytes);
  // A letter of up to four bytes is not cut.
  for (int i = 0; i < 3 && size < selected.size() && (selected[size] & 0xC0) == 0x80; ++i) --size;
  const std::string_view part = selected.substr(0, size);
  const bool utf8 = view == ui::TextView::Utf8 || base::readsAsUtf8(part);
  ui::Text shown = utf8 ? ui::Text(std::string(part))
                        : ui::Text(conversions.Utf8Convert(part, 1, true), ui::TextKind::Legacy);
  std::ranges::replace_if(
      shown.bytes, [](char c) { return c == '\r' || c == '\n' || c == '\t' || c == '\0'; }, ' ');
  return shown;
}

StatusPanels::StatusPanels(app::Workbench& bench, const Conversions& conversions)
    : bench_(bench), conversions_(conversions) {
  bench.addCommands({{.id = mnuPreviewPane,
                      .icon = ui::MenuIcon::Decode,
                      .caption = "მონიშნულის გაში&ფვრა",
                      .place = {&app::kViewMenu, 3},
                      .run =
                          [this] {
                            bench_.props().SelectionPreview = !bench_.props().SelectionPreview;
                            showPreview();
                            bench_.saveProps();
                          },
                      .checked = [this] { return bench_.props().SelectionPreview; },
                      .help = "მონიშნული UTF-8 ტექსტი ქართულად ჩანს მდგომარეობის ზოლში"}});

  bench.propsInForce.connect([this] { showPreview(); });
  bench.selectionChanged.connect([this] { showPreview(); });
  bench.textChanged.connect([this] { countsStale_ = true; });
  bench.viewChanged.connect([this] {
    showPreview();
    // A command must not wait for the letters of a long text.
    if (bench_.codeView().document()->size() <= kCountedAtOnce) showCounts();
  });
  bench.pause.connect([this] { showCounts(); });
}

void StatusPanels::showPreview() {
  const ui::CodeView& view = bench_.codeView();
  const int length = bench_.props().SelectionPreview ? view.selLength() : 0;
  if (length == 0) {
    if (std::exchange(previewShown_, false)) bench_.setPanel("kPreview", {});
    return;
  }
  previewShown_ = true;
  // No more than is shown, and where it is cut: reading the whole text on every key would move it.
  const int read = std::min(length, static_cast<int>(kPreviewBytes) + 1);
  const std::string part =
      view.document()->piece(static_cast<std::size_t>(view.selStart()), static_cast<std::size_t>(read));
  bench_.setPanel("kPreview", selectionPreview(part, 0, read, view.view(), conversions_));
}

void StatusPanels::showCounts() {
  if (!std::exchange(countsStale_, false)) return;
  const EncodingCounts counts = countEncodings(bench_.codeView().text());
  bench_.setPanel("kCounts", "ISO " + std::to_string(counts.legacy) + "  UTF8 " +
                                 std::to_string(counts.utf8) + "  HEX " + std::to_string(counts.references) +
                                 "  ASCII " + std::to_string(counts.latin));
}

}  // namespace convert
