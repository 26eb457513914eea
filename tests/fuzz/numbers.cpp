// Any bytes as a number that somebody typed.
#include "must.h"

#include "text/numbertext.h"
#include "text/value.h"

using namespace moistair;
using fuzz::must;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::textof(data, size);
  const double strict = strictnumber(text);
  const double lenient = lenientnumber(text);
  must(hasvalue(lenient));
  if (!hasvalue(strict)) return 0;
  must(strict == lenient);
  const std::string shown = showvalue(strict);
  must(shown.empty() == (strict == -1));
  must(shown.empty() || hasvalue(strictnumber(shown)));
  const double stored = strictnumber(numbertext(strict));
  must(stored == fifteendigits(strict));
  must(numbertext(stored) == numbertext(strict));
  must(strictnumber(printednumber(strict)) == stored);
  must(hasvalue(strictnumber(fixeddecimals(strict, 4))));
  return 0;
}
