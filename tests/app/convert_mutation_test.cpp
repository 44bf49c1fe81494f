#include "app/convert/batch.h"
#include "convert_run.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace app_test {
namespace {

using App::Account;

// Damages files as disks, transfers and editors do. The same for the same seed.
class Mutator {
 public:
  explicit Mutator(unsigned seed) : random_(seed) {}

  std::string Mutate(std::string bytes, const std::string& other) {
    for (std::size_t times = 1 + Below(3); times > 0; --times) {
      switch (Below(7)) {
        case 0:
          Flip(bytes, 1);
          break;
        case 1:
          Flip(bytes, 1 + Below(40));
          break;
        case 2:
          bytes.resize(Below(bytes.size() + 1));
          break;
        case 3:
          bytes.erase(Below(bytes.size() + 1), Below(64));
          break;
        case 4:
          bytes.insert(Below(bytes.size() + 1), other.substr(Below(other.size()), Below(400)));
          break;
        case 5:
          bytes = bytes.substr(0, Below(bytes.size() + 1)) + other.substr(Below(other.size()));
          break;
        default:
          Extreme(bytes);
      }
    }
    return bytes;
  }

 private:
  // By itself: the distributions of the standard library differ between systems.
  std::size_t Below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }

  void Flip(std::string& bytes, std::size_t count) {
    for (; count > 0 && !bytes.empty(); --count) bytes[Below(bytes.size())] = static_cast<char>(random_());
  }

  // A count or length that is as wrong as it can be.
  void Extreme(std::string& bytes) {
    constexpr std::string_view kWords[] = {
        {"\xFF\xFF", 2}, {"\0\0", 2}, {"\xFF\x7F", 2}, {"99999999999", 11}};
    const std::string_view word = kWords[Below(4)];
    if (bytes.size() > word.size()) bytes.replace(Below(bytes.size() - word.size()), word.size(), word);
  }

  std::mt19937 random_;
};

class ConvertMutationTest : public ConvertTest {
 protected:
  // Converts a file to both formats. What was read is in the account, and nothing else is left behind.
  void Run(const std::string& name) {
    for (const App::OutputFormat format : {App::OutputFormat::kPair, App::OutputFormat::kDesign}) {
      App::PlanRequest request;
      request.inputs = {Folder() / name};
      request.out_dir = Folder() / "out";
      request.to = format;
      App::BatchOptions batch;
      batch.makes_folders = true;
      std::ostringstream progress;
      const auto results = App::ConvertBatch(App::PlanConversion(request), {}, batch, progress);
      for (const App::FileResult& result : results) {
        Check(result);
        written_ += result.outcome == App::FileResult::Outcome::kWritten ? 1 : 0;
      }
      std::filesystem::remove_all(Folder() / "out");
    }
  }

  [[nodiscard]] int Written() const noexcept { return written_; }

 private:
  void Check(const App::FileResult& result) const {
    if (result.outcome != App::FileResult::Outcome::kWritten) {
      EXPECT_FALSE(result.error.empty());
      EXPECT_EQ(result.error.find('\n'), std::string::npos) << result.error;
      EXPECT_FALSE(std::filesystem::exists(Folder() / "out"));
      return;
    }
    std::set<std::string> outputs;
    for (const auto& output : result.file.outputs) outputs.insert(output.filename());
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Folder() / "out")) {
      names.insert(entry.path().filename());
    }
    EXPECT_EQ(names, outputs);
    for (const auto& [kind, counts] : result.account.GetKinds()) {
      EXPECT_EQ(counts.read, counts.written + counts.skipped) << kind;
    }
  }

  int written_ = 0;
};

TEST_F(ConvertMutationTest, DamagedDesignsAreConvertedAsFarAsTheyGo) {
  const std::string design = DesignOfAllKinds();
  for (unsigned seed = 0; seed < 300; ++seed) {
    SCOPED_TRACE(seed);
    Write("in.dgn", Mutator(seed).Mutate(design, design.substr(design.size() - 1500)));
    Run("in.dgn");
  }
  // Most can be read, or little is tested here.
  EXPECT_GT(Written(), 400);
}

TEST_F(ConvertMutationTest, DamagedElementsBehindASoundHeaderAreConvertedAsFarAsTheyGo) {
  constexpr std::size_t kHeaderBytes = 1536;
  const std::string design = DesignOfAllKinds();
  const std::string elements = design.substr(kHeaderBytes);
  for (unsigned seed = 1000; seed < 1350; ++seed) {
    SCOPED_TRACE(seed);
    Write("in.dgn", design.substr(0, kHeaderBytes) + Mutator(seed).Mutate(elements, elements));
    Run("in.dgn");
  }
  EXPECT_GT(Written(), 600);
}

TEST_F(ConvertMutationTest, DamagedPairsAreConvertedAsFarAsTheyGo) {
  const std::string mif(kMifOfAllKinds);
  const std::string mid(kMidOfAllKinds);
  for (unsigned seed = 2000; seed < 2400; ++seed) {
    SCOPED_TRACE(seed);
    Mutator mutator(seed);
    const bool in_header = seed % 4 == 0;
    const std::size_t begin = in_header ? 0 : mif.find("Data");
    Write("in.mif", mif.substr(0, begin) + mutator.Mutate(mif.substr(begin), mif));
    Write("in.mid", seed % 3 == 0 ? mutator.Mutate(mid, mid) : mid);
    Run("in.mif");
  }
  EXPECT_GT(Written(), 400);
}

}  // namespace
}  // namespace app_test
