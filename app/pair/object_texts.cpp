#include "app/pair/object_texts.h"

#include <string>
#include <string_view>
#include <utility>

namespace App {

namespace MI = Pelor::MI;

namespace {

// Puts the converted text into `changed`; false when it is the same.
bool Convert(std::string_view text, Transcoder& transcoder, Tobri::String& changed) {
  const std::string_view converted = transcoder.Convert(text);
  if (converted.data() == text.data()) return false;
  changed = converted;
  return true;
}

}  // namespace

void ConvertTexts(MI::WObjBody& object, Transcoder& transcoder) {
  Tobri::String changed;
  if (object.GetType() == MI::WObjType_Text) {
    auto& text = static_cast<MI::WTextBody&>(object);
    if (Convert(text.GetText(), transcoder, changed)) text.SetText(std::move(changed));
    if (Convert(text.GetFont().name, transcoder, changed)) {
      MI::Font font = text.GetFont();
      font.name = std::move(changed);
      text.SetFont(std::move(font));
    }
  } else if (object.GetType() == MI::WObjType_Point) {
    auto& point = static_cast<MI::W0DBody&>(object);
    if (point.GetSymbol().name.IsEmpty()) return;
    if (Convert(point.GetSymbol().name, transcoder, changed)) {
      MI::Symbol symbol = point.GetSymbol();
      symbol.name = std::move(changed);
      point.SetSymbol(std::move(symbol));
    }
  }
}

void EscapeLineEnds(MI::WTextBody& text) {
  const std::string_view lines = text.GetText();
  std::size_t end = lines.find_first_of("\r\n");
  if (end == std::string_view::npos) return;
  std::string escaped;
  std::size_t begin = 0;
  for (; end != std::string_view::npos; end = lines.find_first_of("\r\n", begin)) {
    escaped += lines.substr(begin, end - begin);
    escaped += "\\n";
    begin = end + (lines.substr(end, 2) == "\r\n" ? 2 : 1);
  }
  escaped += lines.substr(begin);
  text.SetText(Tobri::String(std::move(escaped)));
}

}  // namespace App
