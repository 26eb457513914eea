// Any bytes as a weather file: it is read or refused with words, and every row is one that can be counted.
#include "must.h"

#include "weather/bins.h"

using namespace moistair;
using fuzz::must;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto file = readWeather(fuzz::textOf(data, size));
  if (!file) {
    must(!file.error().words.empty());
    return 0;
  }
  Oddities oddities = file->oddities;
  const auto hours = hoursOf(*file, {.atm = 24.9, .ownPressure = size % 2 == 0}, oddities);
  countUnseen(hours, {}, oddities);
  double total = 0;
  for (const WeatherHour& hour : hours) {
    must(isTime(hour.time) && hour.time.hour < 24);
    must(hour.hours >= 0 && hasValue(hour.state.db) && hour.state.rh <= 100.0001);
    total += hour.hours;
  }
  double binned = 0;
  for (const Bin& bin : binsOf(hours, 5)) binned += bin.hours;
  must(binned - total < 1e-6 * (1 + total) && total - binned < 1e-6 * (1 + total));
  for (const DesignCondition& condition : file->design) must(!nameOf(condition).empty());
  for (const Oddity& oddity : oddities.all()) must(!wordsOf(oddity).empty());
  cellsOf(hours, {});
  percentilesOf(hours);
  readConditions(fuzz::textOf(data, size < 40 ? size : 40));
  return 0;
}
