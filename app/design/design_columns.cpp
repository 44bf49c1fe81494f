#include "app/design/design_columns.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <utility>

namespace App {

using namespace Pelor;

namespace {

// The longest name of an element type: "B-Spline Surface Header", and one more for a margin.
constexpr int kTypeWidth = 24;
constexpr int kCellWidth = 6;
constexpr int kWidthByValues = 0;

constexpr std::array<std::string_view, 11> kNames = {
    "Type", "Level", "Color", "Weight", "Style", "Class", "GraphicGroup", "Cell", "Entity", "MSLink", "Text"};

bool EqualsInAnyCase(std::string_view a, std::string_view b) noexcept {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
  });
}

void Set(Tobri::String& value, std::string_view text) {
  if (std::string_view(value) != text) value = Tobri::String(text);
}

void Set(Tobri::String& value, std::int64_t number) {
  std::array<char, 24> digits = {};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  Set(value, std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
}

}  // namespace

const std::vector<DesignColumn>& AllDesignColumns() {
  static const std::vector<DesignColumn> kAll = [] {
    std::vector<DesignColumn> all;
    for (std::size_t i = 0; i < kNames.size(); ++i) all.push_back(static_cast<DesignColumn>(i));
    return all;
  }();
  return kAll;
}

std::string_view ColumnName(DesignColumn column) noexcept {
  return kNames[static_cast<std::size_t>(column)];
}

std::optional<DesignColumn> FindDesignColumn(std::string_view name) noexcept {
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (EqualsInAnyCase(kNames[i], name)) return static_cast<DesignColumn>(i);
  }
  return std::nullopt;
}

MI::Column MakeColumn(DesignColumn column) {
  const Tobri::String name(ColumnName(column));
  switch (column) {
    case DesignColumn::kType:
      return {name, MI::Character_t(), kTypeWidth, 0};
    case DesignColumn::kCell:
      return {name, MI::Character_t(), kCellWidth, 0};
    case DesignColumn::kText:
      return {name, MI::Character_t(), kWidthByValues, 0};
    case DesignColumn::kGroup:
    case DesignColumn::kEntity:
    case DesignColumn::kKey:
      return {name, MI::Integer_t(), 0};
    case DesignColumn::kLevel:
    case DesignColumn::kColor:
    case DesignColumn::kWeight:
    case DesignColumn::kStyle:
    case DesignColumn::kClass:
      break;
  }
  return {name, MI::SmallInt_t(), 0};
}

ElementFacts::ElementFacts(const ElementView& element, const Place& element_place) noexcept
    : type(element.Type()),
      level(static_cast<std::uint8_t>(element.Header().Level())),
      element_class(static_cast<std::uint8_t>(element.Header().Class())),
      group(element.Header().graphic_group),
      is_deleted(element.Header().IsDeleted()),
      is_hole(element.Header().IsHole()),
      symbology(element.Header()),
      linkages(ReadLinkages(element.Attributes())),
      place(element_place) {}

void FillValues(const std::vector<DesignColumn>& columns, const ElementFacts& facts, std::string_view cell,
                std::string_view text, std::vector<Tobri::String>& values) {
  values.resize(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    Tobri::String& value = values[i];
    const std::optional<DatabaseKey>& row = facts.linkages.database;
    switch (columns[i]) {
      case DesignColumn::kType:
        Set(value, facts.Kind());
        break;
      case DesignColumn::kLevel:
        Set(value, facts.level);
        break;
      case DesignColumn::kColor:
        Set(value, facts.symbology.color);
        break;
      case DesignColumn::kWeight:
        Set(value, facts.symbology.weight);
        break;
      case DesignColumn::kStyle:
        Set(value, facts.symbology.style);
        break;
      case DesignColumn::kClass:
        Set(value, facts.element_class);
        break;
      case DesignColumn::kGroup:
        Set(value, facts.group);
        break;
      case DesignColumn::kCell:
        Set(value, cell);
        break;
      case DesignColumn::kEntity:
        row ? Set(value, row->entity) : Set(value, std::string_view());
        break;
      case DesignColumn::kKey:
        // Keys are signed numbers of 32 bits, as their column is.
        row ? Set(value, static_cast<std::int32_t>(row->key)) : Set(value, std::string_view());
        break;
      case DesignColumn::kText:
        Set(value, text);
        break;
    }
  }
}

}  // namespace App
