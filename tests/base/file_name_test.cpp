#include <pelor/base/file_name.h>

#include <gtest/gtest.h>

namespace {

using Tobri::FileSys;
using Tobri::String;

struct Row {
  const char* name;
  const char* defaulted;  // with the default extension mif
  const char* replaced;   // with the extension replaced by mif
};

constexpr Row kRows[] = {
    {"roads", "roads.mif", "roads.mif"},
    {"roads.tab", "roads.tab", "roads.mif"},
    {"roads.mif", "roads.mif", "roads.mif"},
    {"ROADS.MIF", "ROADS.MIF", "ROADS.mif"},
    {"a.b.c", "a.b.c", "a.b.mif"},
    {"dir/roads", "dir/roads.mif", "dir/roads.mif"},
    {"dir.v2/roads", "dir.v2/roads.mif", "dir.v2/roads.mif"},
    {"dir.v2/roads.tab", "dir.v2/roads.tab", "dir.v2/roads.mif"},
    {"/abs/roads.tab", "/abs/roads.tab", "/abs/roads.mif"},
    {"../roads", "../roads.mif", "../roads.mif"},
    {"./roads", "./roads.mif", "./roads.mif"},
    {".hidden", ".hidden.mif", ".hidden.mif"},
    {".hidden.tab", ".hidden.tab", ".hidden.mif"},
    {"dir/.hidden", "dir/.hidden.mif", "dir/.hidden.mif"},
    {"roads.", "roads.", "roads.mif"},
    {"two words.tab", "two words.tab", "two words.mif"},
    {"stra\xC3\x9F"
     "e.tab",
     "stra\xC3\x9F"
     "e.tab",
     "stra\xC3\x9F"
     "e.mif"},
    {"not utf-8 \xE4.tab", "not utf-8 \xE4.tab", "not utf-8 \xE4.mif"},
};

TEST(FileSysTest, DefExtAddsAnExtensionWhereThereIsNone) {
  for (const Row& row : kRows) EXPECT_EQ(FileSys::DefExt(row.name, "mif"), String(row.defaulted)) << row.name;
}

TEST(FileSysTest, RepExtReplacesTheExtension) {
  for (const Row& row : kRows) EXPECT_EQ(FileSys::RepExt(row.name, "mif"), String(row.replaced)) << row.name;
}

TEST(FileSysTest, TheExtensionMayComeWithItsDot) {
  EXPECT_EQ(FileSys::DefExt("roads", ".DGN"), String("roads.DGN"));
  EXPECT_EQ(FileSys::RepExt("roads.tab", ".mid"), String("roads.mid"));
}

TEST(FileSysTest, AnEmptyExtensionRemovesOrAddsNothing) {
  EXPECT_EQ(FileSys::DefExt("roads", ""), String("roads"));
  EXPECT_EQ(FileSys::RepExt("roads.tab", ""), String("roads"));
}

}  // namespace
