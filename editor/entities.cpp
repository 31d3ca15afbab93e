#include "editor/entities.h"

#include <optional>
#include <unordered_map>

#include "base/cp1252.h"
#include "base/utf8.h"

namespace editor {
namespace {

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

// Letters from here on are Georgian ones in a page of the legacy font, whatever they are elsewhere.
constexpr unsigned char kLegacyLetters = 0xC0;

const std::unordered_map<char32_t, const Entity*>& byCharacter() {
  static const auto map = [] {
    std::unordered_map<char32_t, const Entity*> made;
    for (const Entity& entity : kTable) made.emplace(entity.character, &entity);
    return made;
  }();
  return map;
}

const Entity* named(std::string_view name) {
  static const auto map = [] {
    std::unordered_map<std::string_view, const Entity*> made;
    for (const Entity& entity : kTable) made.emplace(entity.name, &entity);
    return made;
  }();
  const auto at = map.find(name);
  return at == map.end() ? nullptr : at->second;
}

// What Windows-1251 has where Windows-1252 has it too; at all other bytes above 7F it has letters, or
// something else.
constexpr std::string_view kAlsoRussian =
    "\x82\x84\x85\x86\x87\x89\x8B\x91\x92\x93\x94\x95\x96\x97\x99\x9B\xA0\xA4\xA6\xA7\xA9\xAB\xAC\xAD\xAE\xB0"
    "\xB1\xB5\xB6\xB7\xBB";

// The byte is, in such a page, the character that Windows-1252 has for it.
bool isWestern(unsigned char byte, PageBytes page) {
  if (page == PageBytes::EightBit) return byte < kLegacyLetters;
  return byte < 0x80 || kAlsoRussian.find(static_cast<char>(byte)) != std::string_view::npos;
}

// The character's bytes in the page; empty when it has none there.
std::string bytesOf(char32_t character, PageBytes page) {
  std::string bytes;
  if (page == PageBytes::Utf8) {
    base::appendUtf8(bytes, character);
  } else if (const auto byte = base::byteOfChar(character); byte && isWestern(*byte, page)) {
    bytes += static_cast<char>(*byte);
  }
  return bytes;
}

// The character that begins at `at`, and `at` behind it.
std::optional<char32_t> take(std::string_view text, std::size_t& at, PageBytes page) {
  const auto byte = static_cast<unsigned char>(text[at]);
  if (page == PageBytes::Utf8) {
    if (const auto character = base::nextUtf8(text, at)) return character;
  } else if (isWestern(byte, page)) {
    ++at;
    return base::charOfByte(byte);
  }
  ++at;
  return std::nullopt;
}

}  // namespace

const std::array<Entity, kEntities>& entities() {
  return kTable;
}

PageBytes pageBytes(std::string_view page, ui::CharacterSet font) {
  if (base::isUtf8(page)) return PageBytes::Utf8;
  return font == ui::CharacterSet::Russian ? PageBytes::Russian : PageBytes::EightBit;
}

std::string encodeEntities(std::string_view text, PageBytes page) {
  std::string out;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    const auto character = take(text, at, page);
    const auto found = character ? byCharacter().find(*character) : byCharacter().end();
    if (found == byCharacter().end()) {
      out += text.substr(start, at - start);
    } else {
      out += '&';
      out += found->second->name;
      out += ';';
    }
  }
  return out;
}

std::string decodeEntities(std::string_view text, PageBytes page) {
  std::string out;
  std::size_t done = 0;
  for (std::size_t at = 0; (at = text.find('&', at)) != std::string_view::npos;) {
    const std::string_view behind = text.substr(at + 1, kLongestName + 1);
    const std::size_t size = behind.find(';');
    const Entity* entity = size == std::string_view::npos ? nullptr : named(behind.substr(0, size));
    const std::string bytes = entity == nullptr ? std::string() : bytesOf(entity->character, page);
    if (bytes.empty()) {
      ++at;
      continue;
    }
    out += text.substr(done, at - done);
    out += bytes;
    at += size + 2;
    done = at;
  }
  out += text.substr(done);
  return out;
}

}  // namespace editor
