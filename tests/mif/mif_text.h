#pragma once

#include <pelor/base/error.h>
#include <pelor/base/text_scanner.h>
#include <pelor/mif/lexis.h>

#include <sstream>
#include <string>
#include <vector>

// A scanner on a MIF text, with what the readers reported collected instead of thrown.
struct Mif {
  explicit Mif(const std::string& text)
      : stream(text),
        guard([this](const Tobri::Error::Msg& message) { messages.emplace_back(message.what()); }) {
    in.Set(stream, "test.mif");
    in.Def(Pelor::MIF::Quotes());
    in.Def(Pelor::MIF::NoComments(), false);
    in.Def(Pelor::MIF::MIFSeparators());
  }

  // Reads what is left.
  std::string Rest() {
    std::string rest;
    for (; !in.AtEnd(); in.Consume(1)) rest += in.Window(1).front();
    return rest;
  }

  std::istringstream stream;
  Tobri::IxText in;
  std::vector<std::string> messages;
  Tobri::Error::ScopedHandler guard;
};

// Ten significant digits in general format, as the writer of pairs sets its stream.
template <class Writer>
std::string MifText(Writer&& writer) {
  std::ostringstream out;
  out.precision(10);
  writer(out);
  return out.str();
}
