/// \file
/// A document as text: the content of a file.
///
/// The file is JSON that a person can read, one entry a line, with `format` at its top (documented in the manual,
/// document.html). Texts are kept as typed and states as they were shown; nothing is computed again, so what is read
/// draws as what was written, and writing what was read gives the same text. An entry names its limits and its pressure
/// only where they differ from those of the entry before.
///
/// Reading trusts nothing. A text that is no such document, at whatever place, gives a message and no document.
#pragma once

#include <string>
#include <string_view>

#include "model/document.h"
#include "text/error.h"

namespace moistair {

inline constexpr const char* documentEnding = ".moistair";

/// A file that is larger is no document of ours, and would take its time to be read [bytes].
inline constexpr std::size_t largestdocument = std::size_t{64} << 20;

/// The latest format. Beyond the first, the second has read-outs, the third exact states, entries of the previous chart
/// and a title block, the fourth names of a mixture's streams, air handlers, weather and zones. A document is written
/// in the first that can hold it, so that earlier versions of the program read what they know; all are read.
inline constexpr int documentFormat = 4;

std::string fileText(const Document& document);

/// The same for a file of unsaved work, which also says where the document belongs.
/// @param file path, any bytes; empty for a document without a file
std::string recoveryText(const Document& document, std::string_view file);

struct ReadDocument {
  Document document;
  std::string file;  ///< of unsaved work: where the document belongs
};

/// The error has the place and the reason: "entry 3, state, db: must be ...".
Result<ReadDocument> readDocument(std::string_view text);

}  // namespace moistair
