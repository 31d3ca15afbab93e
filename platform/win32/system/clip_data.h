// Text that is dragged from window to window, in the formats of the clipboard.
#pragma once

#include "platform/win32/system/windows_api.h"
#include "ui/code_view.h"

struct IDataObject;

namespace win32 {

// What a drag of the clip carries; the caller owns one reference.
IDataObject* makeClipData(const ui::TextClip& clip);
ui::TextClip clipOf(IDataObject& data);  // nothing in it when there is no text

// Drags it, while the button is down, to any window. Returns what the taker made of it: DROPEFFECT_MOVE,
// _COPY or, also when the user gave it up, _NONE. Needs OleInitialize().
DWORD dragClip(const ui::TextClip& clip);

}  // namespace win32
