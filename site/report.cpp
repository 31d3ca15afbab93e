#include "site/report.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include "base/disk.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"

namespace site {
namespace {

namespace disk = base::disk;

// Pages that link one file, as they are listed.
constexpr std::size_t kMostNamed = 30;

// Beyond so many bytes files are shown without their changes: browsers must still open it.
constexpr std::uint64_t kMostSpooled = 100'000'000;

constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="ka" class="ka">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Zervo: საიტის ანგარიში · site report</title>
<style>
:root{color-scheme:light dark;--line:#8886;--mild:#8882;--warn:#b45309;--bad:#b91c1c;--good:#15803d}
body{font:15px/1.45 Sylfaen,"DejaVu Sans",sans-serif;max-width:80em;margin:1em auto;padding:0 1em}
html.ka .en,html.en .ka{display:none}
table{border-collapse:collapse;margin:.5em 0 1.5em;width:100%}
th,td{border-bottom:1px solid var(--line);padding:.25em .6em;text-align:left;vertical-align:top;overflow-wrap:anywhere}
td.n,th.n{text-align:right;white-space:nowrap;overflow-wrap:normal}
th button{font:inherit;font-weight:bold;background:none;border:0;padding:0;color:inherit;cursor:pointer;text-align:inherit}
th[aria-sort=ascending] button::after{content:" ▲"}th[aria-sort=descending] button::after{content:" ▼"}
.warn{color:var(--warn)}.bad{color:var(--bad)}.good{color:var(--good)}
details table{margin:.3em 0 .6em;background:var(--mild)}
summary{cursor:pointer}
@media (prefers-color-scheme:dark){:root{--warn:#fbbf24;--bad:#f87171;--good:#4ade80}}
</style>
</head>
<body>
<p><button type="button" data-lang="ka">ქართული</button> <button type="button" data-lang="en">English</button></p>
)";

// Sorts the bodies of a table by a column: numbers by their value, all else as text.
constexpr std::string_view kScript = R"(<script>
(function () {
  var root = document.documentElement;
  function speak(language) { root.className = root.lang = language; }
  document.querySelectorAll("[data-lang]").forEach(function (button) {
    button.addEventListener("click", function () { speak(button.dataset.lang); });
  });
  if (!/^ka/.test(navigator.language)) speak("en");
  function valueOf(body, column) {
    var cell = body.rows[0].cells[column];
    return cell.dataset.v !== undefined ? Number(cell.dataset.v) : cell.textContent;
  }
  document.querySelectorAll("table.sorted").forEach(function (table) {
    table.querySelectorAll("thead th").forEach(function (head, column) {
      head.querySelectorAll("button").forEach(function (button) {
        button.addEventListener("click", function () {
          var down = head.getAttribute("aria-sort") === "ascending";
          table.querySelectorAll("thead th").forEach(function (other) { other.removeAttribute("aria-sort"); });
          head.setAttribute("aria-sort", down ? "descending" : "ascending");
          Array.from(table.tBodies).map(function (body) { return [valueOf(body, column), body]; })
            .sort(function (a, b) {
              var order = typeof a[0] === "number" ? a[0] - b[0] : a[0].localeCompare(b[0]);
              return down ? -order : order;
            }).forEach(function (pair) { table.appendChild(pair[1]); });
        });
      });
    });
  });
})();
</script>
)";

std::string escaped(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      case '\'':
        out += "&#39;";
        break;
      default:
        // Control characters are none in HTML.
        out += static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? ' ' : c;
    }
  }
  return out;
}

std::string both(std::string_view georgian, std::string_view english) {
  return "<span class=\"ka\">" + escaped(georgian) + "</span><span class=\"en\">" + escaped(english) +
         "</span>";
}

struct Word {
  std::string_view id, georgian;
};

// Names of forms, places, reasons and kinds of change as users of the report read them.
std::string word(std::string_view id) {
  static constexpr Word kWords[] = {{"ascii", "ლათინური"},
                                    {"legacy", "ძველი 8-ბიტიანი"},
                                    {"academy", "აკადემიური 8-ბიტიანი"},
                                    {"keyboard", "კლავიატურული ლათინური"},
                                    {"references", "HTML კოდები"},
                                    {"russian", "რუსული (1251)"},
                                    {"western", "დასავლური (1252)"},
                                    {"double-utf-8", "ორმაგი UTF-8"},
                                    {"mixed", "შერეული"},
                                    {"unknown", "უცნობი"},
                                    {"text", "ტექსტი"},
                                    {"title", "სათაური"},
                                    {"attribute", "ატრიბუტი"},
                                    {"script", "სკრიპტი"},
                                    {"css string", "სტილის ტექსტი"},
                                    {"comment", "კომენტარი"},
                                    {"valid", "უდავო"},
                                    {"font", "შრიფტი"},
                                    {"letters", "ასოები"},
                                    {"page", "გვერდი"},
                                    {"chosen", "არჩეული"},
                                    {"doubled", "ორმაგი კოდირება"},
                                    {"no key", "კლავიატურაზე არ არის"},
                                    {"reencoded", "ბაიტები ტექსტის გარეთ"},
                                    {"declared", "კოდირების მითითება"},
                                    {"written", "გარდაქმნილია"},
                                    {"copied", "გადაწერილია"},
                                    {"already", "უკვე გაკეთებულია"},
                                    {"restored", "აღდგენილია"}};
  for (const Word& known : kWords) {
    if (known.id == id) return both(known.georgian, id);
  }
  return escaped(id);
}

std::string numberCell(std::uint64_t value, std::string_view shown = {}, std::string_view style = "n") {
  const std::string number = std::to_string(value);
  return "<td class=\"" + std::string(style) + "\" data-v=\"" + number + "\">" +
         (shown.empty() ? number : std::string(shown)) + "</td>";
}

std::string headCell(std::string_view georgian, std::string_view english, bool number, bool sorts) {
  const std::string text = both(georgian, english);
  return std::string(number ? "<th class=\"n\">" : "<th>") +
         (sorts ? "<button type=\"button\">" + text + "</button>" : text) + "</th>";
}

std::string differenceRow(const Difference& difference) {
  std::string row = "<tr><td class=\"n\">" + std::to_string(difference.line) + "</td><td>";
  const std::string_view place = difference.kind == convert::ChangeKind::Letters   ? nameOf(difference.place)
                                 : difference.kind == convert::ChangeKind::Font    ? "font"
                                 : difference.kind == convert::ChangeKind::Charset ? "declared"
                                                                                   : "reencoded";
  row += word(place) + "</td><td>" + word(nameOf(difference.form)) + "</td><td>";
  if (difference.uncertain)
    row += "<b class=\"warn\">" + both("საეჭვოა, უცვლელია", "uncertain, left") + "</b> ";
  row += word(nameOf(difference.reason)) + "</td><td class=\"n\">" + std::to_string(difference.confidence) +
         "%</td><td>" + escaped(difference.before) + "</td><td>" +
         (difference.uncertain ? std::string() : escaped(difference.after)) + "</td></tr>\n";
  return row;
}

std::string stateOf(const FileResult& result) {
  if (result.note != Note::None) {
    const NoteText& text = textOf(result.note);
    return std::string(isFault(result.note) ? "<span class=\"bad\">" : "<span>") +
           both(text.georgian, text.english) + "</span>";
  }
  if (result.done != Done::Nothing) return "<span class=\"good\">" + word(nameOf(result.done)) + "</span>";
  return result.changes ? both("შეიცვლება", "would change") : both("უცვლელი რჩება", "stays as it is");
}

// A body of the table of files.
std::string bodyOf(const FileResult& result) {
  std::string body = "<tbody><tr><td>";
  const std::string name = escaped(result.file);
  const std::size_t all = result.changeCount + result.uncertainCount;
  if (result.differences.empty()) {
    body += name;
  } else {
    body += "<details><summary>" + name + "</summary><table><tr>" +
            headCell("სტრიქონი", "line", true, false) + headCell("სად", "where", false, false) +
            headCell("ფორმა", "form", false, false) + headCell("რატომ", "why", false, false) +
            headCell("სანდოობა", "confidence", true, false) + headCell("იყო", "before", false, false) +
            headCell("იქნება", "after", false, false) + "</tr>\n";
    for (const Difference& difference : result.differences) body += differenceRow(difference);
    body += "</table>";
    if (all > result.differences.size()) {
      const std::string more = std::to_string(all - result.differences.size());
      body += "<p>" + both("და კიდევ " + more, "and " + more + " more") + "</p>";
    }
    body += "</details>";
  }
  body += "</td><td>" + word(nameOf(result.form));
  if (result.from) body += " (" + both("გვერდებიდან", "from its pages") + ")";
  body += "</td>" + numberCell(result.confidence, std::to_string(result.confidence) + "%") +
          numberCell(result.letters) + numberCell(result.changeCount) +
          numberCell(result.uncertainCount, {}, result.uncertainCount > 0 ? "n warn" : "n") + "<td>" +
          stateOf(result) + "</td></tr></tbody>\n";
  return body;
}

bool isShown(const FileResult& result) {
  return result.changes || result.uncertainCount > 0 || result.note != Note::None ||
         result.done == Done::Already || result.done == Done::Restored;
}

}  // namespace

Report::Report() : spoolPath_(base::joinPath(base::tempFolder(), "zervo-" + disk::newName() + ".report")) {
  spool_ = disk::open(spoolPath_, disk::Mode::Create);
  if (spool_ == nullptr) base::throwFileError(errno, spoolPath_);
}

Report::~Report() {
  if (spool_ != nullptr) std::fclose(spool_);
  disk::remove(spoolPath_);
}

void Report::add(const FileResult& result) {
  const auto old = rows_.find(result.file);
  Row row;
  row.form = result.form;
  row.note = result.note;
  row.done = result.done;
  row.page = result.kind != FileKind::Other;
  row.changes = result.changes;
  row.letters = result.letters;
  row.changeCount = result.changeCount;
  row.uncertainCount = result.uncertainCount;
  if (isShown(result)) {
    FileResult shown = result;
    if (spooled_ > kMostSpooled) shown.differences.clear();
    const std::string body = bodyOf(shown);
    errno = 0;
    if (std::fwrite(body.data(), 1, body.size(), spool_) != body.size())
      base::throwFileError(errno != 0 ? errno : ENOSPC, spoolPath_);
    row.at = spooled_;
    row.size = static_cast<std::uint32_t>(body.size());
    spooled_ += body.size();
  }
  const bool first = old == rows_.end();
  for (const std::string& link : result.links) {
    if (first) linking_[base::upperAscii(link)].push_back(result.file);
  }
  rows_.insert_or_assign(result.file, row);
}

std::string Report::totals() const {
  struct Sum {
    std::uint64_t files = 0, changing = 0, letters = 0, changes = 0, uncertain = 0;
  };
  std::array<Sum, convert::kForms> sums{};
  std::map<Note, std::uint64_t> notes;
  std::uint64_t others = 0;
  Sum all;
  const auto count = [](Sum& sum, const Row& row) {
    ++sum.files;
    sum.changing += row.changes ? 1 : 0;
    sum.letters += row.letters;
    sum.changes += row.changeCount;
    sum.uncertain += row.uncertainCount;
  };
  for (const auto& [file, row] : rows_) {
    if (row.note != Note::None) ++notes[row.note];
    if (!row.page) {
      ++others;
    } else if (row.note == Note::None) {
      count(sums[static_cast<std::size_t>(row.form)], row);
      count(all, row);
    }
  }
  const auto cells = [](const Sum& sum) {
    return numberCell(sum.files) + numberCell(sum.changing) + numberCell(sum.letters) +
           numberCell(sum.changes) + numberCell(sum.uncertain, {}, sum.uncertain > 0 ? "n warn" : "n") +
           "</tr>";
  };
  std::string out = "<h1>" + both("საიტის ანგარიში", "Site report") +
                    "</h1>\n<table class=\"sorted\"><thead><tr>" + headCell("ფორმა", "form", false, true) +
                    headCell("ფაილი", "files", true, true) + headCell("იცვლება", "change", true, true) +
                    headCell("ასო", "letters", true, true) + headCell("ცვლილება", "changes", true, true) +
                    headCell("საეჭვო", "uncertain", true, true) + "</tr></thead>\n";
  for (std::size_t i = 0; i < sums.size(); ++i) {
    if (sums[i].files == 0) continue;
    out += "<tbody><tr><td>" + word(nameOf(static_cast<convert::Form>(i))) + "</td>" + cells(sums[i]) +
           "</tbody>\n";
  }
  out += "<tfoot><tr><th>" + both("სულ", "all") + "</th>" + cells(all) + "</tfoot></table>\n";
  out += "<p>" + both("სხვა ფაილი: " + std::to_string(others), "other files: " + std::to_string(others)) +
         "</p>\n";
  for (const auto& [note, files] : notes) {
    const NoteText& text = textOf(note);
    const std::string number = std::to_string(files);
    out += "<p class=\"" + std::string(isFault(note) ? "bad" : "") + "\">" +
           both(number + " ფაილი: " + std::string(text.georgian),
                number + " files: " + std::string(text.english)) +
           "</p>\n";
  }
  return out;
}

// A style sheet or script that changes is right only together with the pages that read it.
std::string Report::together() const {
  std::string out;
  for (const auto& [file, row] : rows_) {
    const auto at = row.changes ? linking_.find(base::upperAscii(file)) : linking_.end();
    if (at == linking_.end()) continue;
    const std::vector<std::string>& pages = at->second;
    out += "<li><b>" + escaped(file) + "</b>: ";
    for (std::size_t i = 0; i < std::min(pages.size(), kMostNamed); ++i) {
      out += (i > 0 ? ", " : "") + escaped(pages[i]);
    }
    if (pages.size() > kMostNamed) {
      const std::string more = std::to_string(pages.size() - kMostNamed);
      out += both(" და კიდევ " + more, " and " + more + " more");
    }
    out += "</li>\n";
  }
  if (out.empty()) return out;
  return "<h2>" + both("ერთად იცვლება", "Change together") + "</h2>\n<ul>\n" + out + "</ul>\n";
}

void Report::write(const std::function<void(std::string_view)>& out) {
  std::fclose(spool_);
  spool_ = disk::open(spoolPath_, disk::Mode::Read);
  if (spool_ == nullptr) base::throwFileError(errno, spoolPath_);
  out(kHead);
  out(totals());
  out(together());
  out("<h2>" + both("ფაილები", "Files") + "</h2>\n<table class=\"sorted\"><thead><tr>" +
      headCell("ფაილი", "file", false, true) + headCell("ფორმა", "form", false, true) +
      headCell("სანდოობა", "confidence", true, true) + headCell("ასო", "letters", true, true) +
      headCell("ცვლილება", "changes", true, true) + headCell("საეჭვო", "uncertain", true, true) +
      headCell("მდგომარეობა", "state", false, true) + "</tr></thead>\n");
  std::vector<const Row*> order;
  for (const auto& [file, row] : rows_) {
    if (row.size > 0) order.push_back(&row);
  }
  // What needs the user's eye comes first.
  std::ranges::stable_sort(order, [](const Row* a, const Row* b) {
    if (a->uncertainCount != b->uncertainCount) return a->uncertainCount > b->uncertainCount;
    return isFault(a->note) && !isFault(b->note);
  });
  std::string body;
  for (const Row* const row : order) {
    body.resize(row->size);
    if (std::fseek(spool_, static_cast<long>(row->at), SEEK_SET) != 0 ||
        std::fread(body.data(), 1, body.size(), spool_) != body.size())
      base::throwFileError(EIO, spoolPath_);
    out(body);
  }
  out("</table>\n");
  out(kScript);
  out("</body>\n</html>\n");
}

}  // namespace site
