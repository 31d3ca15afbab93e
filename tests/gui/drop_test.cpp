// Files that another program drags onto the window.
#include <ole2.h>
// After ole2.h, which it needs.
#include <shlobj.h>

#include "tests/gui/fixture.h"

namespace gui {
namespace {

// The user's hand: over the target with the button held, then let go.
class Hand final : public IDropSource {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualIID(id, IID_IUnknown) != 0 || IsEqualIID(id, IID_IDropSource) != 0;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL, DWORD) override {
    return ++asked_ < 3 ? S_OK : DRAGDROP_S_DROP;
  }
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }

 private:
  int asked_ = 0;
};

IDataObject* filesOf(const std::vector<std::filesystem::path>& paths) {
  IShellFolder* folder = nullptr;
  std::vector<PIDLIST_ABSOLUTE> whole;
  std::vector<PCUITEMID_CHILD> children;
  for (const auto& path : paths) {
    PIDLIST_ABSOLUTE id = nullptr;
    if (FAILED(SHParseDisplayName(path.c_str(), nullptr, &id, 0, nullptr))) throw Failure("no such file");
    whole.push_back(id);
    PCUITEMID_CHILD child = nullptr;
    if (folder != nullptr) folder->Release();
    if (FAILED(SHBindToParent(id, IID_IShellFolder, reinterpret_cast<void**>(&folder), &child)))
      throw Failure("no folder");
    children.push_back(child);
  }
  IDataObject* data = nullptr;
  folder->GetUIObjectOf(nullptr, static_cast<UINT>(children.size()), children.data(), IID_IDataObject,
                        nullptr, reinterpret_cast<void**>(&data));
  folder->Release();
  for (const PIDLIST_ABSOLUTE id : whole) CoTaskMemFree(id);
  if (data == nullptr) throw Failure("the shell makes no data object");
  return data;
}

DWORD dropOn(HWND target, IDataObject* data) {
  RECT place{};
  GetWindowRect(target, &place);
  SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
  Hand hand;
  DWORD effect = DROPEFFECT_NONE;
  DoDragDrop(data, &hand, DROPEFFECT_COPY | DROPEFFECT_MOVE, &effect);
  return effect;
}

TEST_F(Session, FilesDroppedOnTheTextAndOnTheTreeAreOpened) {
  const auto first = file(L"first.htm", "one");
  const auto second = file(L"second.htm", "two");
  const auto third = file(L"third.htm", "three");
  Zervo zervo = open({first});
  zervo.waitForText("one");
  ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr)));
  IDataObject* both = filesOf({second, third});
  EXPECT_EQ(dropOn(zervo.control(IDC_FrmH_T1), both), DWORD{DROPEFFECT_COPY});
  both->Release();
  waitFor("the dropped files in the tree", [&] { return zervo.tree().size() == 7; });
  EXPECT_EQ(readBytes(second), "two");

  const auto fourth = file(L"fourth.css", "four");
  IDataObject* one = filesOf({fourth});
  dropOn(zervo.control(IDC_FrmH_TV), one);
  one->Release();
  waitFor("the file dropped on the tree", [&] { return zervo.tree().size() == 8; });
  OleUninitialize();
  leave(zervo);
}

}  // namespace
}  // namespace gui
