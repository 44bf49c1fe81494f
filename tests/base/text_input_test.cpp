#include <pelor/base/text_input.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Tobri::ChrS;
using Tobri::IBText;
using Tobri::IRefC;
using Tobri::TxtSeparators;

// A stream that can be read once and not sought, as a pipe.
class PipeBuffer : public std::streambuf {
 public:
  explicit PipeBuffer(std::string text) : text_(std::move(text)) {
    setg(text_.data(), text_.data(), text_.data() + text_.size());
  }

 private:
  std::string text_;
};

struct Place {
  std::uint64_t line;
  std::uint64_t column;
};

// Line and column of every byte and of the end, counted one character at a time.
std::vector<Place> Places(const std::string& text) {
  std::vector<Place> places;
  Place place{1, 1};
  for (std::size_t i = 0; i < text.size(); ++i) {
    places.push_back(place);
    const bool ends = text[i] == '\n' || (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n'));
    place = ends ? Place{place.line + 1, 1} : Place{place.line, place.column + 1};
  }
  places.push_back(place);
  return places;
}

std::string ReadRest(IBText& in) {
  std::string rest;
  while (!in.AtEnd()) {
    const std::string_view window = in.Window(1);
    rest.append(window);
    in.Consume(window.size());
  }
  return rest;
}

TEST(TextInputTest, WithoutAStreamItIsAtTheEnd) {
  IBText in;
  EXPECT_TRUE(in.AtEnd());
  in.SkipBlanks(true);
  EXPECT_FALSE(in.SkipLineEnd());
  in.SetPos(in.GetPos());
  EXPECT_EQ(in.Offset(), 0U);
}

TEST(TextInputTest, InitForgetsTheStreamAndTheConventions) {
  std::istringstream stream("x");
  IBText in;
  in.Attach(stream);
  in.Def(TxtSeparators{nullptr, nullptr, ';', true});
  in.init();
  EXPECT_TRUE(in.AtEnd());
  EXPECT_EQ(in.Separators().principal, ',');
  EXPECT_NE(in.ClassOf(' ') & IBText::kBlank, 0);
}

TEST(TextInputTest, DefaultWhiteSpaceIsBlankTabAndTheLineAndPageControls) {
  std::string members;
  for (int code = 0; code < 256; ++code) {
    if (TxtSeparators::DefWS()->Contains(static_cast<char>(code))) members += static_cast<char>(code);
  }
  EXPECT_EQ(members, "\t\n\v\f\r ");
}

TEST(TextInputTest, DefaultSeparatorIsTheComma) {
  for (int code = 0; code < 256; ++code) {
    EXPECT_EQ(TxtSeparators::DefSepS()->Contains(static_cast<char>(code)), code == ',') << code;
  }
}

TEST(TextInputTest, StartsWhereTheStreamStands) {
  std::istringstream stream("skipped\nrest");
  stream.seekg(8);
  IBText in;
  in.Attach(stream);
  const IBText::Pos start = in.GetPos();
  EXPECT_EQ(ReadRest(in), "rest");
  in.SetPos(start);
  EXPECT_EQ(in.Line().line, 1U);
  EXPECT_EQ(ReadRest(in), "rest");
}

TEST(TextInputTest, EveryKindOfLineEndIsReadAsOne) {
  std::istringstream stream("\r\n\r\n\n\r\r\nx");
  IBText in;
  in.Attach(stream);
  int ends = 0;
  while (in.SkipLineEnd()) ++ends;
  EXPECT_EQ(ends, 5);
  EXPECT_EQ(in.Window(1), "x");
  EXPECT_EQ(in.Line().line, 6U);
}

TEST(TextInputTest, BlanksOnTheLineStopAtTheLineEnd) {
  std::istringstream stream(" \t\v\f \n  x");
  IBText in;
  in.Attach(stream);
  in.SkipBlanks(false);
  EXPECT_EQ(in.Window(1).front(), '\n');
  in.SkipBlanks(true);
  EXPECT_EQ(in.Window(1).front(), 'x');
}

TEST(TextInputTest, LineEndsThatAreNoWhiteSpaceAreNotSkipped) {
  std::istringstream stream(" \nx");
  IBText in;
  in.Attach(stream);
  in.Def(TxtSeparators{nullptr, IRefC<ChrS<char>>(new ChrS<char>(' ')), ' ', false});
  in.SkipBlanks(true);
  EXPECT_EQ(in.Window(1).front(), '\n');
}

TEST(TextInputTest, CommentsToTheLineEndAreBlanks) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    std::istringstream stream(" ' a comment, \"quoted\"" + end + "'another" + end + " x 'last");
    IBText in;
    in.Attach(stream);
    in.Def(Tobri::TxtComments{'\'', '\n'}, false);
    in.SkipBlanks(true);
    EXPECT_EQ(in.Window(1).front(), 'x');
    EXPECT_EQ(in.Line().line, 3U);
    in.Consume(1);
    in.SkipBlanks(true);
    EXPECT_TRUE(in.AtEnd());
  }
}

TEST(TextInputTest, ACommentCanLeaveItsCloseInPlace) {
  std::istringstream stream("' comment\r\nx");
  IBText in;
  in.Attach(stream);
  in.Def(Tobri::TxtComments{'\'', '\n'}, true);
  in.SkipBlanks(false);
  EXPECT_TRUE(in.SkipLineEnd());
  EXPECT_EQ(in.Window(1), "x");
}

TEST(TextInputTest, ACommentWithACloseOfItsOwnSpansLines) {
  std::istringstream stream("{ one\n two } x");
  IBText in;
  in.Attach(stream);
  in.Def(Tobri::TxtComments{'{', '}'}, false);
  in.SkipBlanks(false);
  EXPECT_EQ(in.Window(1), "x");
  EXPECT_EQ(in.Line().line, 2U);
}

TEST(TextInputTest, LineAndColumnAreRightAtEveryByte) {
  const std::string text = "a\r\n\r\n\tb c\n\n\r\rlast\r\n";
  const std::vector<Place> places = Places(text);
  for (std::size_t offset = 0; offset <= text.size(); ++offset) {
    std::istringstream stream(text);
    IBText in;
    in.Attach(stream);
    ASSERT_GE(in.Window(text.size()).size(), offset);
    in.Consume(offset);
    EXPECT_EQ(in.Line().line, places[offset].line) << offset;
    EXPECT_EQ(in.Offset() - in.Line().line_start + 1, places[offset].column) << offset;
  }
}

// Texts several windows long: positions, lines and columns hold whichever bytes have left the window.
TEST(TextInputTest, PositionsRestoreExactlyAcrossWindows) {
  std::mt19937 random(20240611);
  std::string text;
  while (text.size() < 5 * IBText::kBlock) {
    static constexpr std::string_view kPieces[] = {"\r\n", "\n",   "\r",       "\t",
                                                   " ",    "word", "\r\n\r\n", "12.5,"};
    text += kPieces[random() % std::size(kPieces)];
  }
  const std::vector<Place> places = Places(text);
  std::istringstream stream(text);
  IBText in;
  in.Attach(stream);
  std::vector<IBText::Pos> positions;
  for (int step = 0; step < 2000; ++step) {
    if (step % 3 != 2 || positions.empty()) {
      const std::size_t want = 1 + random() % 400;
      in.Consume(std::min(in.Window(want).size(), want));
      positions.push_back(in.GetPos());
    } else {
      in.SetPos(positions[random() % positions.size()]);
    }
    if (step % 16 == 0) {
      const IBText::LineState line = in.Line();
      ASSERT_EQ(line.line, places[in.Offset()].line) << step;
      ASSERT_EQ(in.Offset() - line.line_start + 1, places[in.Offset()].column) << step;
    }
    const std::string_view window = in.Window(64);
    ASSERT_EQ(window, std::string_view(text).substr(in.Offset(), window.size())) << step;
    ASSERT_FALSE(window.empty());
    if (step % 40 == 0) {
      in.Consume(std::min(in.Window(IBText::kBlock).size() - 1, IBText::kBlock - 1));
      positions.push_back(in.GetPos());
      if (in.Offset() + 2 * IBText::kBlock > text.size()) in.SetPos(positions.front());
    }
  }
}

TEST(TextInputTest, AWindowOfAWholeBlockIsAlwaysToBeHad) {
  const std::string text(4 * IBText::kBlock, 'x');
  std::istringstream stream(text);
  IBText in;
  in.Attach(stream);
  for (std::size_t offset = 0; offset < 2 * IBText::kBlock; offset += 1021) {
    ASSERT_GE(in.Window(IBText::kBlock).size(), IBText::kBlock) << offset;
    in.Consume(1021);
  }
}

TEST(TextInputTest, AStreamThatCannotSeekIsReadToItsEnd) {
  std::string text;
  for (int i = 0; i < 40000; ++i) text += std::to_string(i) + "\n";
  PipeBuffer pipe(text);
  std::istream stream(&pipe);
  IBText in;
  in.Attach(stream);
  EXPECT_EQ(ReadRest(in), text);
  EXPECT_EQ(in.Line().line, 40001U);
}

TEST(TextInputTest, GoingBackTooFarOnAStreamThatCannotSeekSetsItsFailbit) {
  PipeBuffer pipe(std::string(3 * IBText::kBlock, 'x'));
  std::istream stream(&pipe);
  IBText in;
  in.Attach(stream);
  const IBText::Pos start = in.GetPos();
  in.Consume(in.Window(IBText::kBlock).size());
  const IBText::Pos near = in.GetPos();
  in.Consume(std::min<std::size_t>(in.Window(8).size(), 8));
  in.SetPos(near);
  EXPECT_FALSE(stream.fail());
  EXPECT_FALSE(in.AtEnd());
  in.SetPos(start);
  EXPECT_TRUE(stream.fail());
  EXPECT_TRUE(in.AtEnd());
}

TEST(TextInputTest, AReadErrorLeavesTheStreamBad) {
  class Broken : public std::streambuf {
    int_type underflow() override { throw std::runtime_error("broken"); }
  } broken;
  std::istream stream(&broken);
  IBText in;
  in.Attach(stream);
  EXPECT_TRUE(in.AtEnd());
  EXPECT_TRUE(stream.bad());
}

TEST(TextInputTest, TheEndOfTheInputIsNoFailureOfTheStream) {
  std::istringstream stream("x");
  IBText in;
  in.Attach(stream);
  EXPECT_EQ(ReadRest(in), "x");
  EXPECT_TRUE(stream.eof());
  EXPECT_FALSE(stream.fail());
}

}  // namespace
