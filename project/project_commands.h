// Web projects, upload and publishing in the main window's menus.
#pragma once

#include "app/workbench.h"
#include "publish/transport.h"

namespace project {

// `bench` must outlive the rows added. `connect` makes the connections of publishing.
void attach(app::Workbench& bench, const publish::MakeTransport& connect);

}  // namespace project
