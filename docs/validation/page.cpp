#include "page.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

#include "advice/remark.h"
#include "cli/properties.h"
#include "engine/exactsolutions.h"
#include "engine/moistair.h"
#include "text/numbertext.h"

namespace moistair::validation {

namespace {

/// Decimals of a residual on the page, by kind.
constexpr std::array<int, kindCount> decimals = {2, 2, 2, 5, 3, 2, 3};

std::string signedText(double number, int places) {
  const std::string text = fixedDecimals(number, places);
  return number > 0 && text.find_first_not_of("0.") != std::string::npos ? "+" + text : text;
}

std::string residualText(const PairMeasure& pair, std::size_t i) {
  return signedText(pair.largest[i].residual, decimals[static_cast<std::size_t>(pair.kinds[i])]);
}

/// The text in one piece, wherever a line is broken.
std::string unbroken(std::string text) {
  for (std::size_t at = text.find(' '); at != std::string::npos; at = text.find(' ', at)) text.replace(at, 1, "&nbsp;");
  return text;
}

/// The sources of all figures, each once.
std::string sources(const std::vector<Comparison>& rows) {
  std::string out;
  for (const Comparison& row : rows) {
    if (out.find(row.source) == std::string::npos) out += (out.empty() ? "" : "; ") + row.source;
  }
  return out;
}

std::string differenceText(const Comparison& row) { return signedText(row.difference, 3); }

std::string cell(const std::string& text) {
  const bool number = !text.empty() && text.find_first_not_of("+-.0123456789") == std::string::npos;
  return (number ? "<td class=\"number\">" : "<td>") + text + "</td>";
}

std::string publishedTable(const std::vector<Comparison>& rows) {
  std::string out =
      "<tr><th>Quantity</th><th>At</th><th>Published</th><th>Moistair</th><th>Unit</th><th>Difference</th></tr>\n";
  for (const Comparison& row : rows) {
    const auto places = row.published.size() - row.published.find('.') - 1;
    const int shown = row.published.find('.') == std::string::npos ? 1 : static_cast<int>(places) + 1;
    out += "<tr>" + cell(row.caption) + cell(unbroken(row.condition)) + cell(row.published) +
           cell(fixedDecimals(row.model, shown)) + cell(row.unit) + "<td class=\"number\">" +
           unbroken(differenceText(row) + (row.inPercent ? " %" : " deg F")) + "</td></tr>\n";
  }
  return out;
}

/// "dew point: +2.31 at 43.1/36.6 deg F"
std::string largestResidualText(const PairMeasure& pair, std::size_t i) {
  const Residual& residual = pair.largest[i];
  std::string text = residualText(pair, i);
  if (text.find_first_not_of("-0.") == std::string::npos) return "0";
  if (!canBeSeen(pair.kinds[i], residual.residual)) return text;
  return "<strong>" + text + "</strong> at " + fixedDecimals(residual.where.db, 1) + "/" +
         fixedDecimals(residual.where.wb, 1);
}

std::string pairName(const PairMeasure& pair) {
  return std::string(propertyName(pair.kinds[0])) + " and " + propertyName(pair.kinds[1]);
}

std::string pairsTable(const std::vector<PairMeasure>& pairs) {
  std::string out =
      "<tr><th>Pair</th><th>Found, %</th><th>of these visibly off, %</th><th>Largest miss of the first</th>"
      "<th>of the second</th><th>With two solutions, %</th></tr>\n";
  for (const PairMeasure& pair : pairs) {
    const double found = 100 - pair.share(Outcome::notFound);
    const double off = found > 0 ? 100 * pair.share(Outcome::visiblyOff) / found : 0;
    const double ambiguous = 100.0 * pair.ambiguous / static_cast<double>(pair.trials.size());
    out += "<tr>" + cell(pairName(pair)) + cell(fixedDecimals(found, 1)) + cell(fixedDecimals(off, 1)) +
           cell(largestResidualText(pair, 0)) + cell(largestResidualText(pair, 1)) + cell(fixedDecimals(ambiguous, 1)) +
           "</tr>\n";
  }
  return out;
}

std::string largestOf(const std::vector<Comparison>& rows) {
  const auto smaller = [](const Comparison& one, const Comparison& other) {
    return (one.inPercent ? std::abs(one.difference) : 0) < (other.inPercent ? std::abs(other.difference) : 0);
  };
  const Comparison& row = *std::max_element(rows.begin(), rows.end(), smaller);
  return differenceText(row) + " % (" + row.caption + ", " + row.condition + ")";
}

void replace(std::string& text, const std::string& name, const std::string& by) {
  const std::string mark = "@" + name + "@";
  const std::size_t at = text.find(mark);
  if (at == std::string::npos) throw std::runtime_error("the page has no place for " + mark);
  for (std::size_t next = at; next != std::string::npos; next = text.find(mark, next + by.size())) {
    text.replace(next, mark.size(), by);
  }
}

}  // namespace

Sheet worksheet(std::string_view figures) {
  const double atm = defaultPressure;
  return {atm, compare(figures), measurePairs(gridStates(atm), atm)};
}

std::string page(std::string text, const Sheet& sheet) {
  const double dry = 40;
  const double ratio = 0.00205;
  const ExactSolutions twins = exactSolutions({PropertyKind::db, dry}, {PropertyKind::w, ratio}, sheet.atm);
  replace(text, "published", publishedTable(sheet.published));
  replace(text, "sources", sources(sheet.published));
  replace(text, "largest", largestOf(sheet.published));
  replace(text, "pairs", pairsTable(sheet.pairs));
  replace(text, "states", std::to_string(sheet.pairs.front().trials.size()));
  replace(text, "pressure", numberText(sheet.atm));
  replace(text, "lowertwin", fixedDecimals(twins.states.at(0).wb, 2));
  replace(text, "uppertwin", fixedDecimals(twins.states.at(1).wb, 2));
  return text;
}

std::string differences(const Sheet& sheet) {
  std::string out = "what,difference\n";
  for (const Comparison& row : sheet.published) {
    out += row.quantity + " " + row.condition + "," + fixedDecimals(row.difference, 3) + "\n";
  }
  for (const PairMeasure& pair : sheet.pairs) {
    const std::string name = std::string(nameOf(pair.kinds[0])) + " " + nameOf(pair.kinds[1]);
    out += name + " not found," + fixedDecimals(pair.share(Outcome::notFound), 1) + "\n";
    out += name + " visibly off," + fixedDecimals(pair.share(Outcome::visiblyOff), 1) + "\n";
    for (std::size_t i = 0; i < 2; ++i) {
      const auto kind = static_cast<std::size_t>(pair.kinds[i]);
      out += name + " miss of " + nameOf(pair.kinds[i]) + "," +
             fixedDecimals(pair.largest[i].residual, decimals[kind]) + "\n";
    }
  }
  return out;
}

}  // namespace moistair::validation
