#include "sheet/options.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "text/numbertext.h"

namespace moistair {

namespace {

std::string lowered(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

}  // namespace

PageSize pageOf(const NamedPage& page, bool portrait) {
  const PageSize upright{page.width * pixelsPerInch, page.height * pixelsPerInch};
  return portrait ? upright : PageSize{upright.height, upright.width};
}

std::optional<PageSize> pageNamed(std::string_view text, bool portrait) {
  std::string name = lowered(text);
  for (const NamedPage& page : namedPages) {
    if (name == page.name) return pageOf(page, portrait);
  }
  double scale = 1;
  if (name.ends_with("in")) {
    scale = pixelsPerInch;
    name.resize(name.size() - 2);
  }
  const std::size_t cut = name.find('x');
  if (cut == std::string::npos) return std::nullopt;
  const PageSize size{strictNumber(name.substr(0, cut)) * scale, strictNumber(name.substr(cut + 1)) * scale};
  const auto fits = [](double side) { return side >= leastSide && side <= mostSide; };
  if (!fits(size.width) || !fits(size.height)) return std::nullopt;
  return size;
}

std::string sizeInWords() {
  return "two sides from " + numberText(leastSide) + " to " + numberText(mostSide) +
         " pixels, such as 1200x800, or in inches, such as 11x8.5in";
}

bool areSheetLimits(const ChartLimits& limits) {
  const auto isWhole = [](double number) { return std::abs(number - std::round(number)) < 1e-9; };
  const auto& [lowDb, highDb, lowHr, highHr] = limits;
  return isWhole(lowDb) && isWhole(highDb) && isWhole(1000 * lowHr) && isWhole(1000 * highHr) && lowDb < highDb &&
         lowHr < highHr && widestLimits.contain(lowDb, lowHr) && widestLimits.contain(highDb, highHr);
}

double lettersFor(const PageSize& page) {
  constexpr double smallest = 6;
  constexpr double largest = 12;
  return std::clamp(std::sqrt(page.width * page.height) / 93, smallest, largest);
}

double smallestFor(double letterSize) {
  constexpr double legible = 5.5 * pixelsPerInch / 72;
  constexpr double part = 0.7375;  // which is that of 7.5 points
  return std::min(legible, part * letterSize);
}

double mostLettersFor(const PageSize& page) {
  constexpr double across = 60;  // em
  constexpr double down = 42;
  return std::max(leastLetters, std::min(page.width / across, page.height / down));
}

}  // namespace moistair
