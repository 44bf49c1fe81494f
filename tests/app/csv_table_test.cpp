#include "app/design/csv_table.h"

#include <gtest/gtest.h>

#include <tests/app/failure_text.h>
#include <tests/app/scratch_folder.h>
#include <vector>

namespace App {
namespace {

namespace MI = Pelor::MI;

MI::Column Text(const char* name) {
  return {name, MI::Character_t(), 20, 0};
}

TEST(CsvTableTest, WritesKeysAndValues) {
  const ScratchFolder folder;
  const std::vector<MI::Column> columns = {Text("name"), {"height", MI::Float_t(), 0}};
  CsvTable table(folder / "t.csv", folder / "t.csv", columns);
  table.Add(1, std::vector<Tobri::String>{"Z\xC3\xBCrich", "408.5"});
  table.Add(4294967295, std::vector<Tobri::String>{"", " "});
  table.Close();
  EXPECT_EQ(ReadWhole(folder / "t.csv"), "mslink,name,height\r\n1,Z\xC3\xBCrich,408.5\r\n4294967295,, \r\n");
}

TEST(CsvTableTest, QuotesWhatWouldBreakARow) {
  const ScratchFolder folder;
  const std::vector<MI::Column> columns = {Text("a,b"), Text("c")};
  CsvTable table(folder / "t.csv", folder / "t.csv", columns);
  table.Add(1, std::vector<Tobri::String>{"x,y", "say \"hi\""});
  table.Add(2, std::vector<Tobri::String>{"two\nlines", "cr\rhere"});
  table.Add(3, std::vector<Tobri::String>{"\"", "a;b\tc"});
  table.Close();
  EXPECT_EQ(ReadWhole(folder / "t.csv"),
            "mslink,\"a,b\",c\r\n"
            "1,\"x,y\",\"say \"\"hi\"\"\"\r\n"
            "2,\"two\nlines\",\"cr\rhere\"\r\n"
            "3,\"\"\"\",a;b\tc\r\n");
}

TEST(CsvTableTest, FillsUpAndCutsRowsToTheColumns) {
  const ScratchFolder folder;
  const std::vector<MI::Column> columns = {Text("a"), Text("b")};
  CsvTable table(folder / "t.csv", folder / "t.csv", columns);
  table.Add(std::nullopt, std::vector<Tobri::String>{"1"});
  table.Add(5, std::vector<Tobri::String>{"1", "2", "3"});
  table.Close();
  EXPECT_EQ(ReadWhole(folder / "t.csv"), "mslink,a,b\r\n,1,\r\n5,1,2\r\n");
}

TEST(CsvTableTest, NamesTheKeyApartFromAllColumns) {
  const ScratchFolder folder;
  const std::vector<MI::Column> columns = {Text("MSLink2"), Text("MSLINK")};
  CsvTable table(folder / "t.csv", folder / "t.csv", columns);
  table.Close();
  EXPECT_EQ(ReadWhole(folder / "t.csv"), "mslink3,MSLink2,MSLINK\r\n");
}

TEST(CsvTableTest, SaysWhenItCannotBeWritten) {
  EXPECT_EQ(FailureText([] { CsvTable("/dev/full", "towns.csv", {}).Close(); }),
            "towns.csv cannot be written: the disk is full");
}

}  // namespace
}  // namespace App
