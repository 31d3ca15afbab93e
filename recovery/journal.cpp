#include "recovery/journal.h"

#include <algorithm>

#include "base/binary.h"
#include "base/error.h"
#include "base/file_trace.h"

namespace recovery {
namespace {

enum class Kind : std::uint8_t {
  Head = 'H',
  Copy = 'C',
  Whole = 'W',
  Change = 'E',
  Time = 'T',
  Documents = 'D'
};

std::uint32_t checksum(std::string_view bytes) {
  const std::uint64_t sum = base::sumOf(bytes);
  return static_cast<std::uint32_t>(sum ^ (sum >> 32U));
}

constexpr std::size_t kFrame = 2 * sizeof(std::uint32_t);

std::string record(Kind kind, std::string_view content, std::string_view more = {}) {
  std::string made(kFrame, '\0');
  made.reserve(kFrame + 1 + content.size() + more.size());
  made += static_cast<char>(kind);
  made.append(content).append(more);
  base::BinaryWriter frame;
  frame.u32(static_cast<std::uint32_t>(made.size() - kFrame));
  frame.u32(checksum(std::string_view(made).substr(kFrame)));
  return made.replace(0, kFrame, frame.bytes());
}

// Calls `take` for each whole record from the first one on.
template <class Take>
void eachRecord(std::string_view file, Take take) {
  base::BinaryReader reader(file);
  while (reader.left() > kFrame) {
    const std::uint32_t size = reader.u32();
    const std::uint32_t sum = reader.u32();
    if (size == 0 || size > reader.left()) return;
    const std::string_view inside = reader.raw(size);
    if (checksum(inside) != sum) return;
    take(static_cast<Kind>(inside.front()), inside.substr(1));
  }
}

void write64(base::BinaryWriter& out, std::uint64_t value) {
  out.u32(static_cast<std::uint32_t>(value));
  out.u32(static_cast<std::uint32_t>(value >> 32U));
}

std::uint64_t read64(base::BinaryReader& in) {
  const std::uint64_t low = in.u32();
  return low | (static_cast<std::uint64_t>(in.u32()) << 32U);
}

void writePlace(base::BinaryWriter& out, const Place& place) {
  write64(out, place.document);
  out.text(place.title);
  out.text(place.path);
  out.boolean(place.utf8);
  out.boolean(place.viewChosen);
  out.u32(place.start);
  out.u32(place.length);
}

Place readPlace(base::BinaryReader& in) {
  Place place;
  place.document = read64(in);
  place.title = in.text();
  place.path = in.text();
  place.utf8 = in.boolean();
  place.viewChosen = in.boolean();
  place.start = in.u32();
  place.length = in.u32();
  return place;
}

}  // namespace

std::string timeRecord(std::int64_t time) {
  base::BinaryWriter out;
  write64(out, static_cast<std::uint64_t>(time));
  return record(Kind::Time, out.bytes());
}

std::string Journal::head(const Place& place, std::int64_t time) {
  base::BinaryWriter out;
  writePlace(out, place);
  return record(Kind::Head, out.bytes()) + timeRecord(time);
}

std::string Journal::change(std::size_t position, std::size_t removed, std::string_view added) {
  // What lies behind the copied part will be copied as it is then.
  if (!whole_ && position >= copied_) return {};
  const std::size_t inside = whole_ ? removed : std::min(removed, copied_ - position);
  copied_ += added.size() - inside;
  base::BinaryWriter out;
  out.u32(static_cast<std::uint32_t>(position));
  out.u32(static_cast<std::uint32_t>(inside));
  std::string made = record(Kind::Change, out.bytes(), added);
  logged_ += made.size();
  return made;
}

std::string Journal::copy(std::string_view piece, bool last) {
  copied_ += piece.size();
  whole_ = last;
  std::string made = record(Kind::Copy, piece);
  return last ? made + record(Kind::Whole, {}) : made;
}

std::optional<KeptText> replay(std::string_view file) {
  KeptText kept;
  bool begun = false, whole = false;
  try {
    eachRecord(file, [&](Kind kind, std::string_view content) {
      base::BinaryReader in(content);
      if (kind == Kind::Head) {
        kept.place = readPlace(in);
        begun = true;
      } else if (kind == Kind::Time) {
        kept.time = static_cast<std::int64_t>(read64(in));
      } else if (kind == Kind::Copy) {
        kept.text += content;
      } else if (kind == Kind::Whole) {
        whole = true;
      } else if (kind == Kind::Change) {
        const std::size_t position = in.u32();
        const std::size_t removed = in.u32();
        if (position > kept.text.size()) throw base::Error(base::ErrorNumber::BadFileFormat, "journal");
        kept.text.replace(position, removed, in.raw(in.left()));
      }
    });
  } catch (const base::Error&) {
    return std::nullopt;
  }
  if (!begun || !whole) return std::nullopt;
  return kept;
}

std::string documentsRecord(const Documents& documents) {
  base::BinaryWriter out;
  out.text(documents.project);
  out.u32(static_cast<std::uint32_t>(documents.shown));
  out.u32(static_cast<std::uint32_t>(documents.places.size()));
  for (const Place& place : documents.places) writePlace(out, place);
  return record(Kind::Documents, out.bytes());
}

Documents readDocuments(std::string_view file) {
  Documents last;
  try {
    eachRecord(file, [&](Kind kind, std::string_view content) {
      if (kind != Kind::Documents) return;
      base::BinaryReader in(content);
      Documents read;
      read.project = in.text();
      read.shown = static_cast<std::int32_t>(in.u32());
      for (std::uint32_t left = in.u32(); left > 0; --left) read.places.push_back(readPlace(in));
      last = std::move(read);
    });
  } catch (const base::Error&) {
    // A record with a right checksum and wrong content was not written by this program.
  }
  return last;
}

}  // namespace recovery
