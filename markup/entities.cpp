#include "markup/entities.h"

#include <algorithm>
#include <unordered_map>

namespace markup {
namespace {

// Those of Python's html.entities.name2codepoint.
constexpr std::array<Entity, kEntities> kTable = {{
    {"quot", 34},     {"amp", 38},       {"lt", 60},        {"gt", 62},       {"nbsp", 160},
    {"iexcl", 161},   {"cent", 162},     {"pound", 163},    {"curren", 164},  {"yen", 165},
    {"brvbar", 166},  {"sect", 167},     {"uml", 168},      {"copy", 169},    {"ordf", 170},
    {"laquo", 171},   {"not", 172},      {"shy", 173},      {"reg", 174},     {"macr", 175},
    {"deg", 176},     {"plusmn", 177},   {"sup2", 178},     {"sup3", 179},    {"acute", 180},
    {"micro", 181},   {"para", 182},     {"middot", 183},   {"cedil", 184},   {"sup1", 185},
    {"ordm", 186},    {"raquo", 187},    {"frac14", 188},   {"frac12", 189},  {"frac34", 190},
    {"iquest", 191},  {"Agrave", 192},   {"Aacute", 193},   {"Acirc", 194},   {"Atilde", 195},
    {"Auml", 196},    {"Aring", 197},    {"AElig", 198},    {"Ccedil", 199},  {"Egrave", 200},
    {"Eacute", 201},  {"Ecirc", 202},    {"Euml", 203},     {"Igrave", 204},  {"Iacute", 205},
    {"Icirc", 206},   {"Iuml", 207},     {"ETH", 208},      {"Ntilde", 209},  {"Ograve", 210},
    {"Oacute", 211},  {"Ocirc", 212},    {"Otilde", 213},   {"Ouml", 214},    {"times", 215},
    {"Oslash", 216},  {"Ugrave", 217},   {"Uacute", 218},   {"Ucirc", 219},   {"Uuml", 220},
    {"Yacute", 221},  {"THORN", 222},    {"szlig", 223},    {"agrave", 224},  {"aacute", 225},
    {"acirc", 226},   {"atilde", 227},   {"auml", 228},     {"aring", 229},   {"aelig", 230},
    {"ccedil", 231},  {"egrave", 232},   {"eacute", 233},   {"ecirc", 234},   {"euml", 235},
    {"igrave", 236},  {"iacute", 237},   {"icirc", 238},    {"iuml", 239},    {"eth", 240},
    {"ntilde", 241},  {"ograve", 242},   {"oacute", 243},   {"ocirc", 244},   {"otilde", 245},
    {"ouml", 246},    {"divide", 247},   {"oslash", 248},   {"ugrave", 249},  {"uacute", 250},
    {"ucirc", 251},   {"uuml", 252},     {"yacute", 253},   {"thorn", 254},   {"yuml", 255},
    {"OElig", 338},   {"oelig", 339},    {"Scaron", 352},   {"scaron", 353},  {"Yuml", 376},
    {"fnof", 402},    {"circ", 710},     {"tilde", 732},    {"Alpha", 913},   {"Beta", 914},
    {"Gamma", 915},   {"Delta", 916},    {"Epsilon", 917},  {"Zeta", 918},    {"Eta", 919},
    {"Theta", 920},   {"Iota", 921},     {"Kappa", 922},    {"Lambda", 923},  {"Mu", 924},
    {"Nu", 925},      {"Xi", 926},       {"Omicron", 927},  {"Pi", 928},      {"Rho", 929},
    {"Sigma", 931},   {"Tau", 932},      {"Upsilon", 933},  {"Phi", 934},     {"Chi", 935},
    {"Psi", 936},     {"Omega", 937},    {"alpha", 945},    {"beta", 946},    {"gamma", 947},
    {"delta", 948},   {"epsilon", 949},  {"zeta", 950},     {"eta", 951},     {"theta", 952},
    {"iota", 953},    {"kappa", 954},    {"lambda", 955},   {"mu", 956},      {"nu", 957},
    {"xi", 958},      {"omicron", 959},  {"pi", 960},       {"rho", 961},     {"sigmaf", 962},
    {"sigma", 963},   {"tau", 964},      {"upsilon", 965},  {"phi", 966},     {"chi", 967},
    {"psi", 968},     {"omega", 969},    {"thetasym", 977}, {"upsih", 978},   {"piv", 982},
    {"ensp", 8194},   {"emsp", 8195},    {"thinsp", 8201},  {"zwnj", 8204},   {"zwj", 8205},
    {"lrm", 8206},    {"rlm", 8207},     {"ndash", 8211},   {"mdash", 8212},  {"lsquo", 8216},
    {"rsquo", 8217},  {"sbquo", 8218},   {"ldquo", 8220},   {"rdquo", 8221},  {"bdquo", 8222},
    {"dagger", 8224}, {"Dagger", 8225},  {"bull", 8226},    {"hellip", 8230}, {"permil", 8240},
    {"prime", 8242},  {"Prime", 8243},   {"lsaquo", 8249},  {"rsaquo", 8250}, {"oline", 8254},
    {"frasl", 8260},  {"euro", 8364},    {"image", 8465},   {"weierp", 8472}, {"real", 8476},
    {"trade", 8482},  {"alefsym", 8501}, {"larr", 8592},    {"uarr", 8593},   {"rarr", 8594},
    {"darr", 8595},   {"harr", 8596},    {"crarr", 8629},   {"lArr", 8656},   {"uArr", 8657},
    {"rArr", 8658},   {"dArr", 8659},    {"hArr", 8660},    {"forall", 8704}, {"part", 8706},
    {"exist", 8707},  {"empty", 8709},   {"nabla", 8711},   {"isin", 8712},   {"notin", 8713},
    {"ni", 8715},     {"prod", 8719},    {"sum", 8721},     {"minus", 8722},  {"lowast", 8727},
    {"radic", 8730},  {"prop", 8733},    {"infin", 8734},   {"ang", 8736},    {"and", 8743},
    {"or", 8744},     {"cap", 8745},     {"cup", 8746},     {"int", 8747},    {"there4", 8756},
    {"sim", 8764},    {"cong", 8773},    {"asymp", 8776},   {"ne", 8800},     {"equiv", 8801},
    {"le", 8804},     {"ge", 8805},      {"sub", 8834},     {"sup", 8835},    {"nsub", 8836},
    {"sube", 8838},   {"supe", 8839},    {"oplus", 8853},   {"otimes", 8855}, {"perp", 8869},
    {"sdot", 8901},   {"lceil", 8968},   {"rceil", 8969},   {"lfloor", 8970}, {"rfloor", 8971},
    {"lang", 9001},   {"rang", 9002},    {"loz", 9674},     {"spades", 9824}, {"clubs", 9827},
    {"hearts", 9829}, {"diams", 9830},
}};

constexpr std::size_t kLongestName = 8;
// Line ends that may stand in a reference which an editor has broken.
constexpr int kMostLineEnds = 4;

const Entity* named(std::string_view name) {
  static const auto map = [] {
    std::unordered_map<std::string_view, const Entity*> made;
    for (const Entity& entity : kTable) made.emplace(entity.name, &entity);
    return made;
  }();
  const auto at = map.find(name);
  return at == map.end() ? nullptr : at->second;
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool isLetter(char c) {
  return static_cast<unsigned char>((c | 0x20) - 'a') < 26;
}
int hexValue(char c) {
  if (isDigit(c)) return c - '0';
  const int lower = c | 0x20;
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// The letters whose references are worth putting together again.
bool isLetterOfOurs(char32_t c) {
  return (c >= 0xC0 && c <= 0xFF) || (c >= 0x400 && c <= 0x45F) || (c >= 0x10A0 && c <= 0x10FF);
}

// Reads the bytes of a reference one after the other, over the line ends in it.
class Reader {
 public:
  Reader(std::string_view text, int mostLineEnds) : text_(text), mostLineEnds_(mostLineEnds) { skip(); }
  char now() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  std::size_t behind() const { return end_; }  // of the last byte taken
  void take() {
    end_ = at_ + 1;
    taken_ = lineEnds_;
    ++at_;
    skip();
  }
  bool broken() const { return taken_ != 0; }

 private:
  void skip() {
    while (at_ < text_.size() && (text_[at_] == '\r' || text_[at_] == '\n') && lineEnds_ < mostLineEnds_) {
      ++at_;
      ++lineEnds_;
    }
  }
  std::string_view text_;
  int mostLineEnds_;
  std::size_t at_ = 1;
  std::size_t end_ = 1;
  int lineEnds_ = 0;
  int taken_ = 0;  // line ends before the last byte taken
};

std::optional<Reference> numeric(Reader& reader) {
  reader.take();  // "#"
  const bool hexadecimal = (reader.now() | 0x20) == 'x';
  if (hexadecimal) reader.take();
  char32_t number = 0;
  int digits = 0;
  for (;; ++digits) {
    const int value = hexValue(reader.now());
    if (value < 0 || (!hexadecimal && value > 9)) break;
    number = std::min<char32_t>(number * (hexadecimal ? 16 : 10) + static_cast<char32_t>(value), 0x110000);
    reader.take();
  }
  if (digits == 0 || number > 0x10FFFF) return std::nullopt;
  const bool closed = reader.now() == ';';
  if (closed) reader.take();
  if (reader.broken() && (!closed || !isLetterOfOurs(number))) return std::nullopt;
  if (number == 0 || (number >= 0xD800 && number < 0xE000)) return std::nullopt;
  return Reference{reader.behind(), number, closed && !reader.broken(), true};
}

std::optional<Reference> byName(Reader& reader) {
  std::array<char, kLongestName> name{};
  std::size_t size = 0;
  while (size < kLongestName && (isLetter(reader.now()) || isDigit(reader.now()))) {
    name[size++] = reader.now();
    reader.take();
  }
  const Entity* entity = named({name.data(), size});
  if (entity == nullptr) return std::nullopt;
  const bool closed = reader.now() == ';';
  if (closed) reader.take();
  if (reader.broken() && (!closed || !isLetterOfOurs(entity->character))) return std::nullopt;
  if (!closed) {
    // Browsers take the names of HTML 2 without a semicolon too.
    const char after = reader.now();
    if (entity->character > 0xFF || isLetter(after) || isDigit(after) || after == '=') return std::nullopt;
  }
  return Reference{reader.behind(), entity->character, closed && !reader.broken(), false};
}

}  // namespace

const std::array<Entity, kEntities>& entities() {
  return kTable;
}

std::optional<char32_t> characterNamed(std::string_view name) {
  const Entity* entity = named(name);
  return entity == nullptr ? std::nullopt : std::optional(entity->character);
}

std::optional<Reference> referenceAt(std::string_view text) {
  if (text.size() < 3 || text[0] != '&') return std::nullopt;
  for (const int lineEnds : {kMostLineEnds, 0}) {
    Reader reader(text, lineEnds);
    const auto found = reader.now() == '#' ? numeric(reader) : byName(reader);
    if (found) return found;
  }
  return std::nullopt;
}

}  // namespace markup
