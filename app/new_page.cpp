#include "app/new_page.h"

#include "base/text.h"

namespace app {

std::string bodyAttributes(const PropsRecord& props) {
  if (!props.BodyAttributesOn || props.BodyAttributes.empty()) return {};
  return " " + base::replaceAll(props.BodyAttributes, base::kCrLf, " ") + " ";
}

NewPage wholePage(const PropsRecord& props) {
  std::string text =
      "<!DOCTYPE html>\r\n<HTML LANG=\"ka\">\r\n<HEAD>\r\n<META CHARSET=\"UTF-8\">\r\n<TITLE></TITLE>\r\n";
  if (props.HeaderTextOn && !props.HeaderText.empty()) text.append(props.HeaderText).append(base::kCrLf);
  text += "</HEAD>\r\n<BODY" + bodyAttributes(props) + ">\r\n";
  const int caret = static_cast<int>(text.size());
  return {text + "\r\n</BODY>\r\n</HTML>\r\n", caret};
}

}  // namespace app
