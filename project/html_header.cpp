#include "project/html_header.h"

#include "base/text.h"

namespace project {

std::string HTMLheaderi(std::string_view title, const app::PropsRecord& props) {
  std::string body;
  if (props.BodyAttributesOn && !props.BodyAttributes.empty()) {
    body = " " + base::replaceAll(props.BodyAttributes, base::kCrLf, " ") + " ";
  }
  return base::join(
      {R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.0 Transitional//EN">)", "<HTML>", "<HEAD>",
       "<TITLE>" + std::string(title) + "</TITLE>", "</HEAD>",
       props.HeaderTextOn ? props.HeaderText : std::string(), "<BODY" + body + ">", "", "</BODY>", "</HTML>"},
      base::kCrLf);
}

}  // namespace project
