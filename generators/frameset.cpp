#include "generators/frameset.h"

#include <string_view>

#include "base/text.h"

namespace generators {
namespace {

struct Layout {
  struct Named {
    const char* name;
    const char* scrolling;
  };
  std::vector<Named> frames;
  const char* rows;
  const char* cols;
  FrameShape shape;
};

const Layout& layoutOf(int number) {
  static const Layout all[kLayouts] = {
      {{{"Top", "No"}, {"Left", "Auto"}, {"Page", "Auto"}}, "64,*", "150,*", {true, 1}},
      // "NO": written so from the first version on.
      {{{"Page", "Auto"}, {"Footer", "NO"}}, "*,20%", "", {true, -1}},
      {{{"Top", "No"}, {"Footer", "No"}}, "*,*", "", {true, -1}},
      {{{"Left", "Auto"}, {"Page", "Auto"}}, "", "150,*", {false, -1}},
      {{{"Top", "No"}, {"Page", "Auto"}}, "64,*", "", {true, -1}},
      {{{"Top", "No"}, {"Left", "Auto"}, {"Page", "Auto"}, {"Footer", "No"}}, "64,*,64", "150,*", {true, 1}},
      {{{"Top", "No"}, {"Page", "Auto"}, {"Footer", "No"}}, "64,25%,*", "", {true, -1}},
      {{{"Left", "Auto"}, {"Top", "No"}, {"Page", "Auto"}}, "20%,*", "150,*", {false, 1}},
      {{{"Left", "Auto"}, {"Right", "Auto"}}, "", "*,*", {false, -1}}};
  return all[number];
}

// Lines of a page, each ended.
class Page {
 public:
  void line(std::string_view text) {
    text_ += text;
    text_ += base::kCrLf;
  }
  void lines(std::initializer_list<std::string_view> texts) {
    for (const std::string_view text : texts) line(text);
  }
  void header(const HeaderText& header) {
    if (header.on) line(header.text);
  }
  std::string text() { return std::move(text_); }

 private:
  std::string text_;
};

std::string openingTag(const FramesetDesign& design, bool rows) {
  const std::string value = (rows ? "rows=\"" : "cols=\"") + (rows ? design.rows : design.cols) + "\">";
  if (!design.border && design.spacing == 0) {
    return "<FRAMESET framespacing=\"0\" border=\"0\" frameborder = \"0\" " + value;
  }
  return "<FRAMESET framespacing=\"" + std::to_string(design.spacing) + "\" border=\"1\" " + value;
}

std::string frameLine(const Frame& frame) {
  return "<FRAME name=\"" + frame.name + "\" src=\"" + frame.source + "\" scrolling=\"" + frame.scrolling +
         "\"" + (frame.resizable ? "" : " noresize") + ">";
}

std::string bodyAttributes(const Background& background, base::Color none) {
  std::string attributes;
  if (background.color != none) attributes += " bgcolor=\"" + base::shortHtmlColor(background.color) + "\"";
  if (!background.image.empty()) {
    attributes += " background=\"" + background.image + "\"";
    if (background.fixed) attributes += " bgproperties=\"fixed\"";
  }
  return attributes;
}

std::string page(std::string_view title, const HeaderText& header, const std::string& attributes) {
  Page page;
  page.lines({R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.0 Transitional//EN">)", "<HTML>", "<HEAD>",
              "<TITLE>" + std::string(title) + "</TITLE>", "</HEAD>"});
  page.header(header);
  page.lines({"<BODY" + attributes + ">", "", "</BODY>"});
  return page.text() + "</HTML>";
}

}  // namespace

FrameShape shapeOf(int layout) {
  return layoutOf(layout).shape;
}

bool cutInRows(const FramesetDesign& design) {
  return shapeOf(design.layout).outerRows && !design.rows.empty();
}

FramesetDesign newDesign(int number) {
  FramesetDesign design;
  design.layout = number;
  if (number < 0) return design;
  const Layout& layout = layoutOf(number);
  for (const Layout::Named& named : layout.frames) {
    Frame frame;
    frame.source = "Page" + std::to_string(design.frames.size() + 1) + ".HTML";
    frame.name = named.name;
    frame.scrolling = named.scrolling;
    design.frames.push_back(std::move(frame));
  }
  design.rows = layout.rows;
  design.cols = layout.cols;
  return design;
}

std::string framesetPage(const FramesetDesign& design, const HeaderText& header) {
  Page page;
  page.lines({R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Frameset//EN">)", "<HTML>", "<HEAD>",
              "<TITLE>Frame Page</TITLE>", "</HEAD>"});
  page.header(header);
  const FrameShape shape = shapeOf(design.layout);
  page.line(openingTag(design, cutInRows(design)));
  int cell = 0;
  for (std::size_t i = 0; i < design.frames.size(); ++cell) {
    if (cell != shape.nested) {
      page.line(frameLine(design.frames[i++]));
      continue;
    }
    page.line(shape.outerRows ? "<FRAMESET cols=\"" + design.cols + "\" >"
                              : "<FRAMESET rows=\"" + design.rows + "\" >");
    page.lines({frameLine(design.frames[i]), frameLine(design.frames[i + 1]), "</FRAMESET>"});
    i += 2;
  }
  page.lines({"<NOFRAMES>", "<P>es gverdi iyenebs freimebs.Tqveni brauzeri ar iyenebs freimebs.</P>",
              "</NOFRAMES>", "</FRAMESET>"});
  // A body behind the frameset: browsers that show no frames have always been given one.
  page.lines({"<BODY" + bodyAttributes(design.page, kNoPageColor) + ">", "", "</BODY>", "</HTML>"});
  return page.text();
}

std::string framePage(const FramesetDesign& design, std::size_t frame, const HeaderText& header) {
  return page("Page " + std::to_string(frame + 1), header,
              bodyAttributes(design.frames[frame].background, kNoFrameColor));
}

std::string singlePage(const FramesetDesign& design, const HeaderText& header) {
  return page("New Document", header, bodyAttributes(design.page, kNoPageColor));
}

}  // namespace generators
