#include "app/inspect/object_check.h"

#include "app/inspect/layout.h"
#include "app/io/interrupt.h"
#include <pelor/mi.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace App {

namespace MI = Pelor::MI;
namespace MIF = Pelor::MIF;
using Tobri::IxText;

namespace {

std::string Text(const Tobri::String& text) {
  return std::string(std::string_view(text));
}

bool IsObject(MIF::KeyWord keyword) {
  return keyword >= MIF::None && keyword <= MIF::Ellipse;
}

// The clauses that may follow an object's coordinates.
bool IsClause(MIF::KeyWord keyword) {
  return keyword >= MIF::Symbol && keyword <= MIF::Label;
}

bool IsWord(const MIF::ReadKW& word, std::string_view upper) {
  return std::string_view(Tobri::LocStr::UpperCase(word.text)) == upper;
}

// Kinds of objects of later versions.
bool IsMultipoint(const MIF::ReadKW& word) {
  return IsWord(word, "MULTIPOINT");
}
bool IsCollection(const MIF::ReadKW& word) {
  return IsWord(word, "COLLECTION");
}

// Whether a word can be a keyword at all, and is no number.
bool IsName(const MIF::ReadKW& word) {
  return !word.text.IsEmpty() && (word.text[0] < '0' || word.text[0] > '9');
}

class ObjectCheck {
 public:
  ObjectCheck(IxText& in, const PairHeader& header, CharsetCheck& charset, const PairReport& report)
      : in_(in), header_(header), charset_(charset), report_(report) {}

  std::int64_t Run() {
    while (Tobri::TxtRdr::LookAheadCheck(in_)) {
      ThrowIfInterrupted();
      MIF::ReadKW word;
      word.Read(in_);
      in_.SetPos(word.pos);
      if (IsObject(word.id)) {
        Object(word);
      } else {
        Unknown();
      }
    }
    return count_;
  }

 private:
  void Object(const MIF::ReadKW& word) {
    ++count_;
    name_ = Text(MIF::KeyWordText(word.id));
    begin_ = word.pos;
    if (!Read()) return Resume();
    CheckGeometry();
    CheckTexts();
    while (ReadStray()) {
    }
  }

  // False when the library could not read the object whole.
  bool Read() {
    bool is_whole = true;
    const Tobri::Error::ScopedHandler guard([&](const Tobri::Error::Msg& message) {
      is_whole = false;
      const std::string_view text = message.what();
      Report(Severity::kError, "object-fault",
             Named() + " cannot be read whole (" + std::string(text.substr(0, text.find('@'))) + ')',
             PlaceOf(in_));
    });
    MIF::Read(object_, in_, header_.system);
    return is_whole;
  }

  // Reads clauses that the library has left behind the object. False when there are none.
  bool ReadStray() {
    MIF::ReadKW word;
    word.Read(in_);
    in_.SetPos(word.pos);
    if (!IsClause(word.id)) return false;
    const TextPlace place = PlaceOfWord(in_, word.pos);
    bool is_whole = true;
    bool is_own = false;
    {
      const Tobri::Error::ScopedHandler guard([&](const Tobri::Error::Msg&) { is_whole = false; });
      is_own = MIF::ReadOptionalClauses(*object_, in_);
    }
    const std::string clause = "the clause " + Text(MIF::KeyWordText(word.id));
    if (!is_own) {
      Report(Severity::kError, "clause-foreign", clause + " does not belong to " + Named(), place);
      SkipToObject();
      return false;
    }
    Report(Severity::kWarning, "clause-order", clause + " of " + Named() + " comes out of its order", place);
    if (is_whole) return true;
    Report(Severity::kError, "object-fault", clause + " of " + Named() + " cannot be read whole", place);
    SkipToObject();
    return false;
  }

  // Something that is no object. Where it looks like one, of a kind that nobody knows, it has a row.
  void Unknown() {
    const std::uint64_t before = in_.Offset();
    const Tobri::IBText::LineState line_before = in_.Line();
    Tobri::TxtRdr::SkipWS(in_);
    const TextPlace place = PlaceOf(in_);
    const bool begins_line =
        static_cast<std::uint64_t>(place.line) != line_before.line || line_before.line_start == before;
    MIF::ReadKW word;
    word.Read(in_);
    int parts = 0;
    if (begins_line && IsName(word) && word.id == MIF::NoKeyWord) {
      ++count_;
      Report(
          Severity::kError, "object-unknown",
          '"' + Text(word.text) + "\" (object " + ToText(count_) + ") is no kind of object that can be read",
          place);
      if (IsCollection(word)) in_.ReadNextSep(parts, Tobri::IntFmt(), false);
    } else {
      const std::string_view rest = in_.Window(1);
      const std::string shown =
          IsName(word) || !word.text.IsEmpty() ? Text(word.text) : std::string(rest.substr(0, 1));
      Report(Severity::kError, "word-unexpected", '"' + shown + "\" stands where an object should begin",
             place);
    }
    SkipToObject();
    SkipParts(parts);
  }

  // Goes on behind a fault: at the object that follows, or at the next one that begins a line.
  void Resume() {
    MIF::ReadKW word;
    word.Read(in_);
    in_.SetPos(word.pos);
    if (!IsObject(word.id)) SkipToObject();
  }

  // Goes to the next object keyword that begins a line, or to the end.
  void SkipToObject() {
    while (!in_.AtEnd()) {
      SkipLine(in_);
      MIF::ReadKW word;
      word.Read(in_);
      in_.SetPos(word.pos);
      if (IsObject(word.id) || IsMultipoint(word) || IsCollection(word)) return;
    }
  }

  // Goes behind the objects that a collection is made of, which have no rows.
  void SkipParts(int count) {
    for (; count > 0; --count) {
      MIF::ReadKW word;
      word.Read(in_);
      in_.SetPos(word.pos);
      if (word.id != MIF::Region && word.id != MIF::PLine && !IsMultipoint(word)) return;
      SkipToObject();
    }
  }

  void CheckGeometry() {
    if (const MI::WObjRf<MI::WRegionBody> region(object_); region != nullptr) {
      for (int part = 0; part < region->GetNParts(); ++part) CheckRing(*region, part);
    } else if (const MI::WObjRf<MI::WPLineBody> pline(object_); pline != nullptr) {
      for (int part = 0; part < pline->GetNParts(); ++part) {
        CheckCount("part", part, pline->GetNVertices(part), 2);
      }
    }
  }

  void CheckRing(const MI::WRegionBody& region, int part) {
    const int count = region.GetNVertices(part);
    if (!CheckCount("ring", part, count, 3)) return;
    const Vanth::PointXY first = region.GetVertex(0, part);
    const Vanth::PointXY last = region.GetVertex(count - 1, part);
    if (first.x == last.x && first.y == last.y) return;
    Report(Severity::kWarning, "ring-open",
           "ring " + std::to_string(part + 1) + " of " + Named() + " does not end where it began",
           PlaceOfWord(in_, begin_));
  }

  bool CheckCount(std::string_view what, int part, int count, int least) {
    if (count >= least) return true;
    Report(Severity::kWarning, "few-vertices",
           std::string(what) + ' ' + std::to_string(part + 1) + " of " + Named() + " has " +
               std::to_string(count) + (count == 1 ? " vertex; " : " vertices; ") + std::to_string(least) +
               " are the least",
           PlaceOfWord(in_, begin_));
    return false;
  }

  void CheckTexts() {
    const MI::WObjRf<MI::WTextBody> text(object_);
    if (text == nullptr) return;
    const std::string misfit = charset_.MisfitOf(text->GetText());
    if (misfit.empty()) return;
    Report(Severity::kWarning, "charset", "the text of " + Named() + ' ' + misfit, PlaceOfWord(in_, begin_));
  }

  // "object 3 (Region)"
  [[nodiscard]] std::string Named() const { return "object " + ToText(count_) + " (" + name_ + ')'; }

  void Report(Severity severity, std::string_view code, std::string sentence, const TextPlace& place) const {
    report_(severity, code, std::move(sentence), place);
  }

  IxText& in_;
  const PairHeader& header_;
  CharsetCheck& charset_;
  const PairReport& report_;
  MI::WObjRf<MI::WObjBody> object_;
  std::int64_t count_ = 0;
  std::string name_;          // of the kind of the object at hand
  Tobri::IBText::Pos begin_;  // of the object at hand
};

}  // namespace

std::int64_t CheckObjects(IxText& in, const PairHeader& header, CharsetCheck& charset,
                          const PairReport& report) {
  return ObjectCheck(in, header, charset, report).Run();
}

}  // namespace App
