// Any bytes as a number that somebody typed.
#include "must.h"

#include "text/numbertext.h"
#include "text/value.h"

using namespace moistair;
using fuzz::must;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::textOf(data, size);
  const double strict = strictNumber(text);
  const double lenient = lenientNumber(text);
  must(hasValue(lenient));
  if (!hasValue(strict)) return 0;
  must(strict == lenient);
  const std::string shown = showValue(strict);
  must(shown.empty() == (strict == -1));
  must(shown.empty() || hasValue(strictNumber(shown)));
  const double stored = strictNumber(numberText(strict));
  must(stored == fifteenDigits(strict));
  must(numberText(stored) == numberText(strict));
  must(strictNumber(printedNumber(strict)) == stored);
  must(hasValue(strictNumber(fixedDecimals(strict, 4))));
  return 0;
}
