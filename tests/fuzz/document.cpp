// Any bytes as a file: a document, or a message that says why not. What is read is written so that it reads the same,
// and its changes can be taken back.
#include "must.h"

#include "model/airhandler.h"
#include "model/documentfile.h"
#include "model/history.h"
#include "model/table.h"
#include "text/utf8.h"

using namespace moistair;
using fuzz::must;

namespace {

void checkFault(const std::string& fault) { must(!fault.empty() && fault.size() < 300); }

void checkChanges(const Document& document, const std::string& text) {
  History history(document);
  history.carryOut(clearing(history.document()));
  if (!history.document().entries.empty()) history.carryOut(deletion(history.document(), {0}));
  history.carryOut(pressureChange(history.document(), {}));
  while (!history.undoName().empty()) history.undo();
  must(fileText(history.document()) == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto read = readDocument(fuzz::textOf(data, size));
  if (!read) {
    checkFault(read.error().text());
    return 0;
  }
  const std::string text = fileText(read->document);
  must(isUtf8(text));
  const auto again = readDocument(text);
  must(again && again->document.entries == read->document.entries);
  must(fileText(*again.document) == text);
  must(readDocument(recoveryText(read->document, read->file))->file == read->file);
  tableText(tableRows(read->document), ',');
  AirHandlerCache().of(read->document);
  checkChanges(read->document, text);
  return 0;
}
