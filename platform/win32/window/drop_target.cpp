#include "platform/win32/window/drop_target.h"

#include <ole2.h>
#include <shellapi.h>

#include "platform/win32/system/clip_data.h"
#include "platform/win32/system/errors.h"
#include "platform/win32/system/strings.h"

namespace win32 {
namespace {

FORMATETC formatOf(CLIPFORMAT format) {
  return {format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

class DropTarget final : public IDropTarget {
 public:
  explicit DropTarget(DropHandlers handlers) : handlers_(std::move(handlers)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualIID(id, IID_IUnknown) != 0 || IsEqualIID(id, IID_IDropTarget) != 0;
    *object = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) override {
    FORMATETC files = formatOf(CF_HDROP);
    FORMATETC text = formatOf(CF_UNICODETEXT);
    accepts_ = data->QueryGetData(&files) == S_OK ||
               (handlers_.text != nullptr && data->QueryGetData(&text) == S_OK);
    return DragOver(0, {}, effect);
  }
  HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* effect) override {
    *effect = accepts_ ? *effect & DROPEFFECT_COPY : DROPEFFECT_NONE;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE DragLeave() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD, POINTL point, DWORD* effect) override {
    *effect &= DROPEFFECT_COPY;
    return guarded(
        [&] {
          FORMATETC files = formatOf(CF_HDROP);
          STGMEDIUM medium{};
          if (data->GetData(&files, &medium) == S_OK) {
            const auto paths = droppedFiles(reinterpret_cast<WPARAM>(medium.hGlobal), false);
            ReleaseStgMedium(&medium);
            handlers_.files(paths);
          } else if (handlers_.text) {
            const ui::TextClip clip = clipOf(*data);
            if (!clip.letters.empty() || !clip.bytes.empty()) handlers_.text(clip, {point.x, point.y});
          }
          return S_OK;
        },
        S_OK);
  }

 private:
  ~DropTarget() = default;
  ULONG references_ = 1;
  bool accepts_ = false;
  DropHandlers handlers_;
};

}  // namespace

void takeDrops(HWND window, DropHandlers handlers) {
  RevokeDragDrop(window);
  auto* const target = new DropTarget(std::move(handlers));
  RegisterDragDrop(window, target);
  target->Release();  // the registration holds it
  DragAcceptFiles(window, TRUE);
}

void undoDrops(HWND window) {
  RevokeDragDrop(window);
}

std::vector<std::string> droppedFiles(WPARAM drop, bool finish) {
  const auto handle = reinterpret_cast<HDROP>(drop);
  std::vector<std::string> paths;
  const UINT count = DragQueryFileW(handle, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < count; ++i) {
    std::wstring path(DragQueryFileW(handle, i, nullptr, 0) + 1, L'\0');
    path.resize(DragQueryFileW(handle, i, path.data(), static_cast<UINT>(path.size())));
    paths.push_back(utf8FromWide(path));
  }
  if (finish) DragFinish(handle);
  return paths;
}

}  // namespace win32
