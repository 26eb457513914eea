#include "page.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

#include "advice/remark.h"
#include "cli/properties.h"
#include "engine/answers.h"
#include "engine/moistair.h"
#include "text/numbertext.h"

namespace moistair::validation {

namespace {

/// Decimals of a residual on the page, by kind.
constexpr std::array<int, kindcount> decimals = {2, 2, 2, 5, 3, 2, 3};

std::string signedtext(double number, int places) {
  const std::string text = fixeddecimals(number, places);
  return number > 0 && text.find_first_not_of("0.") != std::string::npos ? "+" + text : text;
}

std::string residualtext(const PairMeasure& pair, std::size_t i) {
  return signedtext(pair.largest[i].residual, decimals[static_cast<std::size_t>(pair.kinds[i])]);
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

std::string differencetext(const Comparison& row) { return signedtext(row.difference, 3); }

std::string cell(const std::string& text) {
  const bool number = !text.empty() && text.find_first_not_of("+-.0123456789") == std::string::npos;
  return (number ? "<td class=\"number\">" : "<td>") + text + "</td>";
}

std::string publishedtable(const std::vector<Comparison>& rows) {
  std::string out =
      "<tr><th>Quantity</th><th>At</th><th>Published</th><th>Moistair</th><th>Unit</th><th>Difference</th></tr>\n";
  for (const Comparison& row : rows) {
    const auto places = row.published.size() - row.published.find('.') - 1;
    const int shown = row.published.find('.') == std::string::npos ? 1 : static_cast<int>(places) + 1;
    out += "<tr>" + cell(row.caption) + cell(unbroken(row.condition)) + cell(row.published) +
           cell(fixeddecimals(row.model, shown)) + cell(row.unit) + "<td class=\"number\">" +
           unbroken(differencetext(row) + (row.inpercent ? " %" : " deg F")) + "</td></tr>\n";
  }
  return out;
}

/// "dew point: +2.31 at 43.1/36.6 deg F"
std::string misstext(const PairMeasure& pair, std::size_t i) {
  const Miss& miss = pair.largest[i];
  std::string text = residualtext(pair, i);
  if (text.find_first_not_of("-0.") == std::string::npos) return "0";
  if (!canbeseen(pair.kinds[i], miss.residual)) return text;
  return "<strong>" + text + "</strong> at " + fixeddecimals(miss.where.db, 1) + "/" + fixeddecimals(miss.where.wb, 1);
}

std::string pairname(const PairMeasure& pair) {
  return std::string(propertyname(pair.kinds[0])) + " and " + propertyname(pair.kinds[1]);
}

std::string pairstable(const std::vector<PairMeasure>& pairs) {
  std::string out =
      "<tr><th>Pair</th><th>Found, %</th><th>of these visibly off, %</th><th>Largest miss of the first</th>"
      "<th>of the second</th><th>With two solutions, %</th></tr>\n";
  for (const PairMeasure& pair : pairs) {
    const double found = 100 - pair.share(Outcome::notfound);
    const double off = found > 0 ? 100 * pair.share(Outcome::visiblyoff) / found : 0;
    const double ambiguous = 100.0 * pair.ambiguous / static_cast<double>(pair.trials.size());
    out += "<tr>" + cell(pairname(pair)) + cell(fixeddecimals(found, 1)) + cell(fixeddecimals(off, 1)) +
           cell(misstext(pair, 0)) + cell(misstext(pair, 1)) + cell(fixeddecimals(ambiguous, 1)) + "</tr>\n";
  }
  return out;
}

std::string largestof(const std::vector<Comparison>& rows) {
  const auto smaller = [](const Comparison& one, const Comparison& other) {
    return (one.inpercent ? std::abs(one.difference) : 0) < (other.inpercent ? std::abs(other.difference) : 0);
  };
  const Comparison& row = *std::max_element(rows.begin(), rows.end(), smaller);
  return differencetext(row) + " % (" + row.caption + ", " + row.condition + ")";
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
  const double atm = defaultpressure;
  return {atm, compare(figures), measurepairs(gridstates(atm), atm)};
}

std::string page(std::string text, const Sheet& sheet) {
  const double dry = 40;
  const double ratio = 0.00205;
  const Answers twins = answers({PropertyKind::db, dry}, {PropertyKind::w, ratio}, sheet.atm);
  replace(text, "published", publishedtable(sheet.published));
  replace(text, "sources", sources(sheet.published));
  replace(text, "largest", largestof(sheet.published));
  replace(text, "pairs", pairstable(sheet.pairs));
  replace(text, "states", std::to_string(sheet.pairs.front().trials.size()));
  replace(text, "pressure", numbertext(sheet.atm));
  replace(text, "lowertwin", fixeddecimals(twins.states.at(0).wb, 2));
  replace(text, "uppertwin", fixeddecimals(twins.states.at(1).wb, 2));
  return text;
}

std::string differences(const Sheet& sheet) {
  std::string out = "what,difference\n";
  for (const Comparison& row : sheet.published) {
    out += row.quantity + " " + row.condition + "," + fixeddecimals(row.difference, 3) + "\n";
  }
  for (const PairMeasure& pair : sheet.pairs) {
    const std::string name = std::string(nameof(pair.kinds[0])) + " " + nameof(pair.kinds[1]);
    out += name + " not found," + fixeddecimals(pair.share(Outcome::notfound), 1) + "\n";
    out += name + " visibly off," + fixeddecimals(pair.share(Outcome::visiblyoff), 1) + "\n";
    for (std::size_t i = 0; i < 2; ++i) {
      const auto kind = static_cast<std::size_t>(pair.kinds[i]);
      out += name + " miss of " + nameof(pair.kinds[i]) + "," +
             fixeddecimals(pair.largest[i].residual, decimals[kind]) + "\n";
    }
  }
  return out;
}

}  // namespace moistair::validation
