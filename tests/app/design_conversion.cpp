#include <pelor/mif.h>

#include <gtest/gtest.h>

#include <sstream>
#include <tests/app/design_conversion.h>
#include <tests/app/design_elements.h>
#include <tests/dgn/words.h>

namespace app_test {

using namespace App;

namespace {

std::string InOneLine(std::string text) {
  while (!text.empty() && text.back() == '\n') text.pop_back();
  std::string line;
  for (const char c : text) {
    if (c == '\n') {
      line += " |";
    } else {
      line += c;
    }
  }
  return line;
}

std::string Reasons(const Account::Reasons& reasons) {
  std::string text;
  for (const auto& [reason, entry] : reasons) {
    if (!text.empty()) text += ", ";
    text += reason + ' ' + std::to_string(entry.count);
  }
  return text;
}

}  // namespace

std::string Conversion::Objects() const {
  std::string text;
  for (const std::string& object : objects) text += object + '\n';
  return text;
}

std::string Conversion::Counts() const {
  std::string text;
  for (const auto& [name, kind] : account.GetKinds()) {
    if (name == "Design File Header") continue;
    if (!text.empty()) text += "; ";
    text += name + ' ' + std::to_string(kind.read) + '=' + std::to_string(kind.written) + '+' +
            std::to_string(kind.skipped);
    if (!kind.skip_reasons.empty()) text += " skipped{" + Reasons(kind.skip_reasons) + '}';
    if (!kind.approximation_reasons.empty()) {
      text += " approximated{" + Reasons(kind.approximation_reasons) + '}';
    }
  }
  return text;
}

Conversion ConvertFile(std::string_view bytes, const DesignOptions& options) {
  const dgn_test::TempFile file(bytes);
  Conversion result;
  DesignSource source(Input{InputKind::kDesign2D, file.Name(), {}}, options);
  Feature feature;
  while (source.Next(feature, result.account)) {
    std::ostringstream text;
    text.precision(10);
    Pelor::MIF::Write(feature.object, text);
    result.objects.push_back(InOneLine(text.str()));
    std::vector<std::string>& row = result.rows.emplace_back();
    for (const Tobri::String& value : feature.values) row.push_back(value.str());
    result.counts.push_back(feature.count);
    result.account.Written(feature.kind, feature.count);
  }
  for (const auto& [name, kind] : result.account.GetKinds()) {
    EXPECT_EQ(kind.read, kind.written + kind.skipped) << name;
  }
  return result;
}

Conversion Convert(std::string_view elements, const DesignOptions& options, bool is_3d) {
  HeaderText header;
  header.is_3d = is_3d;
  return ConvertFile(DesignBytes(elements, header), options);
}

}  // namespace app_test
