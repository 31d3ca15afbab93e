#include "project/html_header.h"

#include "app/new_page.h"
#include "base/text.h"

namespace project {

std::string HTMLheaderi(std::string_view title, const app::PropsRecord& props) {
  return base::join({R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.0 Transitional//EN">)", "<HTML>", "<HEAD>",
                     "<TITLE>" + std::string(title) + "</TITLE>", "</HEAD>",
                     props.HeaderTextOn ? props.HeaderText : std::string(),
                     "<BODY" + app::bodyAttributes(props) + ">", "", "</BODY>", "</HTML>"},
                    base::kCrLf);
}

}  // namespace project
