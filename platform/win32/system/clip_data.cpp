#include "platform/win32/system/clip_data.h"

#include <ole2.h>
#include <shlobj.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/system/clipboard.h"

namespace win32 {
namespace {

FORMATETC formatOf(UINT format) {
  return {static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

// The counting that all objects have.
template <typename Interface>
class Counted : public Interface {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualIID(id, IID_IUnknown) != 0 || IsEqualIID(id, __uuidof(Interface)) != 0;
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

 protected:
  virtual ~Counted() = default;

 private:
  ULONG references_ = 1;
};

class ClipData final : public Counted<IDataObject> {
 public:
  explicit ClipData(const ui::TextClip& clip) : blocks_(blocksOf(clip)) {}

  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override {
    const HRESULT known = QueryGetData(format);
    if (known != S_OK) return known;
    *medium = {};
    medium->tymed = TYMED_HGLOBAL;
    medium->hGlobal = globalOf(find(format->cfFormat)->second);
    return medium->hGlobal == nullptr ? STG_E_MEDIUMFULL : S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override {
    if (find(format->cfFormat) == blocks_.end()) return DV_E_FORMATETC;
    return (format->tymed & TYMED_HGLOBAL) != 0 ? S_OK : DV_E_TYMED;
  }
  HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC* result) override {
    result->ptd = nullptr;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override {
    if (direction != DATADIR_GET) return E_NOTIMPL;
    std::vector<FORMATETC> all;
    for (const auto& [format, bytes] : blocks_) all.push_back(formatOf(format));
    return SHCreateStdEnumFmtEtc(static_cast<UINT>(all.size()), all.data(), formats);
  }
  HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override {
    return OLE_E_ADVISENOTSUPPORTED;
  }
  HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
  HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return OLE_E_ADVISENOTSUPPORTED; }

 private:
  using Blocks = std::vector<std::pair<UINT, std::string>>;
  Blocks::const_iterator find(UINT format) const {
    return std::find_if(blocks_.begin(), blocks_.end(),
                        [format](const auto& block) { return block.first == format; });
  }
  const Blocks blocks_;
};

class DragSource final : public Counted<IDropSource> {
 public:
  HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape, DWORD keys) override {
    if (escape != FALSE || (keys & MK_RBUTTON) != 0) return DRAGDROP_S_CANCEL;
    return (keys & MK_LBUTTON) == 0 ? DRAGDROP_S_DROP : S_OK;
  }
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }
};

struct Releases {
  void operator()(IUnknown* object) const { object->Release(); }
};

}  // namespace

IDataObject* makeClipData(const ui::TextClip& clip) {
  return new ClipData(clip);
}

ui::TextClip clipOf(IDataObject& data) {
  std::vector<STGMEDIUM> read;
  const ui::TextClip clip = clipFrom([&](UINT format) -> HGLOBAL {
    FORMATETC wanted = formatOf(format);
    STGMEDIUM medium{};
    if (data.GetData(&wanted, &medium) != S_OK) return nullptr;
    read.push_back(medium);
    return medium.tymed == TYMED_HGLOBAL ? medium.hGlobal : nullptr;
  });
  for (STGMEDIUM& medium : read) ReleaseStgMedium(&medium);
  return clip;
}

DWORD dragClip(const ui::TextClip& clip) {
  const std::unique_ptr<IDataObject, Releases> data(makeClipData(clip));
  const std::unique_ptr<IDropSource, Releases> source(new DragSource);
  DWORD effect = DROPEFFECT_NONE;
  const HRESULT result = DoDragDrop(data.get(), source.get(), DROPEFFECT_COPY | DROPEFFECT_MOVE, &effect);
  return result == DRAGDROP_S_DROP ? effect : DROPEFFECT_NONE;
}

}  // namespace win32
