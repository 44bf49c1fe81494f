#include <pelor/dgn/errors.h>

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace Pelor::DGN;

// What Handle throws as `Caught`, for a message of class `Thrown`.
template <class Caught, class Thrown>
std::string TextThrown(const Thrown& message) {
  try {
    Tobri::Error::Handle(message);
  } catch (const Caught& caught) {
    return caught.what();
  }
  return "not thrown as expected";
}

TEST(ErrorTest, MessagesHaveTheirTexts) {
  EXPECT_EQ(EndOfFileErr().GetText().str(), "End of File");
  EXPECT_EQ(BadTypeErr().GetText().str(), "Incorrect Element Type");
  EXPECT_EQ(NotDisplayableErr().GetText().str(), "Element is not displayable");
  EXPECT_EQ(NoAttributesErr().GetText().str(), "Element has no attributes");
}

TEST(ErrorTest, MessagesCanBeMadeFromAText) {
  EXPECT_STREQ(Error(Tobri::String("a")).what(), "a");
  EXPECT_STREQ(FileErr(Tobri::String("b")).what(), "b");
  EXPECT_STREQ(BadTypeErr(Tobri::String("c")).what(), "c");
  EXPECT_STREQ(NotDisplayableErr(Tobri::String("d")).what(), "d");
  EXPECT_STREQ(NoAttributesErr(Tobri::String("e")).what(), "e");
}

TEST(ErrorTest, EndOfFileFromATextPutsItBehindItsOwn) {
  EXPECT_STREQ(EndOfFileErr(Tobri::String("in x.dgn")).what(), "End of File in x.dgn");
}

TEST(ErrorTest, MessagesAreThrownAsTheirOwnClassAndCaughtAsTheirBases) {
  EXPECT_EQ(TextThrown<EndOfFileErr>(EndOfFileErr()), "End of File");
  EXPECT_EQ(TextThrown<FileErr>(EndOfFileErr()), "End of File");
  EXPECT_EQ(TextThrown<Error>(EndOfFileErr()), "End of File");
  EXPECT_EQ(TextThrown<Error>(BadTypeErr()), "Incorrect Element Type");
  EXPECT_EQ(TextThrown<NotDisplayableErr>(NotDisplayableErr()), "Element is not displayable");
  EXPECT_EQ(TextThrown<NoAttributesErr>(NoAttributesErr()), "Element has no attributes");
  EXPECT_EQ(TextThrown<Tobri::ErrMsg>(EndOfFileErr(Tobri::String("in x.dgn"))), "End of File in x.dgn");
  EXPECT_EQ(TextThrown<Tobri::ErrMsg>(BadTypeErr()), "Incorrect Element Type");
  EXPECT_EQ(TextThrown<Tobri::Error::Msg>(NoAttributesErr()), "Element has no attributes");
}

}  // namespace
