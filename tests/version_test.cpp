#include <pelor/version.h>

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(VersionTest, TheLibraryThatRunsIsTheOneThatWasCompiledWith) {
  EXPECT_STREQ(Pelor::Version(), PELOR_VERSION);
}

TEST(VersionTest, TheTextJoinsTheThreeNumbers) {
  EXPECT_EQ(std::string(PELOR_VERSION), std::to_string(PELOR_VERSION_MAJOR) + "." +
                                            std::to_string(PELOR_VERSION_MINOR) + "." +
                                            std::to_string(PELOR_VERSION_PATCH));
}

}  // namespace
