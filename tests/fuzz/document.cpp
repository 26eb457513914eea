// Any bytes as a file: a document, or a message that says why not. What is read is written so that it reads the same,
// and its changes can be taken back.
#include "must.h"

#include "model/documentfile.h"
#include "model/history.h"
#include "model/table.h"
#include "text/utf8.h"

using namespace moistair;
using fuzz::must;

namespace {

void checkfault(const std::string& fault) { must(!fault.empty() && fault.size() < 300); }

void checkchanges(const Document& document, const std::string& text) {
  History history(document);
  history.carryout(clearing(history.document()));
  if (!history.document().entries.empty()) history.carryout(deletion(history.document(), {0}));
  history.carryout(repressuring(history.document(), {}));
  while (!history.undoname().empty()) history.undo();
  must(filetext(history.document()) == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto read = readdocument(fuzz::textof(data, size));
  if (!read) {
    checkfault(read.error().text());
    return 0;
  }
  const std::string text = filetext(read->document);
  must(isutf8(text));
  const auto again = readdocument(text);
  must(again && again->document.entries == read->document.entries);
  must(filetext(*again.document) == text);
  must(readdocument(recoverytext(read->document, read->file))->file == read->file);
  tabletext(tablerows(read->document), ',');
  checkchanges(read->document, text);
  return 0;
}
