#include "app/design/design_output.h"

#include "app/io/output_files.h"
#include "app/io/system_failure.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

namespace App {

namespace {

constexpr std::uint16_t kEndOfDesign = 0xFFFF;
constexpr std::int64_t kBlock = 512;

}  // namespace

DesignOutput::DesignOutput(const std::filesystem::path& path, std::filesystem::path name)
    : name_(std::move(name)), out_(path, std::ios::binary | std::ios::trunc) {
  ThrowIfNotWritten(out_, name_);
}

void DesignOutput::CopyFrom(const std::filesystem::path& file, std::int64_t count) {
  std::ifstream in(file, std::ios::binary);
  std::array<char, 4096> block{};
  while (count > 0) {
    const std::int64_t wanted = std::min<std::int64_t>(count, block.size());
    if (!in.read(block.data(), wanted)) throw SystemFailure(file, "cannot be read", errno);
    bytes_.Raw(std::string_view(block.data(), static_cast<std::size_t>(wanted)));
    FlushIfFull();
    count -= wanted;
  }
}

void DesignOutput::Finish() {
  bytes_.Word(kEndOfDesign);
  bytes_.Zeros(static_cast<std::size_t>((kBlock - Position() % kBlock) % kBlock));
  Flush();
}

void DesignOutput::Replace(std::int64_t position, const ElementBytes& bytes) {
  out_.seekp(position);
  out_.write(bytes.Data(), static_cast<std::streamsize>(bytes.Size()));
  ThrowIfNotWritten(out_, name_);
}

void DesignOutput::Close() {
  out_.close();
  ThrowIfNotWritten(out_, name_);
}

void DesignOutput::Flush() {
  out_.write(bytes_.Data(), static_cast<std::streamsize>(bytes_.Size()));
  ThrowIfNotWritten(out_, name_);
  written_ += static_cast<std::int64_t>(bytes_.Size());
  bytes_.Clear();
}

}  // namespace App
