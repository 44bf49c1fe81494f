#include "app/convert/account.h"

#include <gtest/gtest.h>

namespace App {
namespace {

TEST(AccountTest, CountsByKindAndReason) {
  Account account;
  account.Read("Line", 7);
  account.Written("Line", 4);
  account.Skipped("Line", "deleted", {2, 100}, 2);
  account.Skipped("Line", "outside the window", {5, 200});
  account.Approximated("Line", "z dropped", {1, 50});
  account.Read("Arc");
  account.Written("Arc");

  const Account::Kind& lines = account.GetKinds().at("Line");
  EXPECT_EQ(lines.read, 7);
  EXPECT_EQ(lines.written, 4);
  EXPECT_EQ(lines.skipped, 3);
  EXPECT_EQ(lines.skip_reasons.at("deleted").count, 2);
  EXPECT_EQ(lines.skip_reasons.at("outside the window").places.at(0).position, 200);
  EXPECT_EQ(lines.approximation_reasons.at("z dropped").count, 1);
  EXPECT_EQ(account.GetRead(), 8);
  EXPECT_EQ(account.GetWritten(), 5);
  EXPECT_EQ(account.GetSkipped(), 3);
  EXPECT_EQ(account.GetApproximated(), 1);
}

TEST(AccountTest, KeepsTheFirstPlacesOnly) {
  Account account;
  for (int i = 1; i <= 9; ++i) account.Skipped("Cell", "deleted", {i, 10 * i});
  const Account::Entry& entry = account.GetKinds().at("Cell").skip_reasons.at("deleted");
  EXPECT_EQ(entry.count, 9);
  ASSERT_EQ(entry.places.size(), Account::kPlaces);
  EXPECT_EQ(entry.places.front().number, 1);
  EXPECT_EQ(entry.places.back().number, 5);
}

TEST(AccountTest, KeepsAnAssumptionOnce) {
  Account account;
  account.Assume("no coordinate system");
  account.Assume("tab as delimiter");
  account.Assume("no coordinate system");
  EXPECT_EQ(account.GetAssumptions(), (std::vector<std::string>{"no coordinate system", "tab as delimiter"}));
}

}  // namespace
}  // namespace App
