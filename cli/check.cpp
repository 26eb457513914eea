#include "cli/check.h"

#include <utility>
#include <vector>

#include "advice/remark.h"
#include "cli/format.h"
#include "text/numberformat.h"

namespace moistair {

namespace {

void appendnumbers(std::string& out, const char* caption, const std::vector<double>& numbers) {
  std::vector<std::string> cells;
  for (const double number : numbers) appendaligned(cells.emplace_back(), tableValue(number), pointcolumn);
  appendcolumns(out, caption, cells);
}

void appendresiduals(std::string& out, const Check& check) {
  appendcolumns(out, "", {"    Given", "    Found", "    Difference"});
  for (std::size_t i = 0; i < check.given.size(); ++i) {
    const double off = (*check.residuals)[i];
    const auto& [kind, value] = check.given[i];
    appendnumbers(out, propertyOf(kind).caption, {value, value + off, off});
  }
}

void appendanswers(std::string& out, const std::vector<StatePoint>& states, double atm) {
  std::vector<std::string> heads;
  for (std::size_t i = 1; i <= states.size(); ++i) {
    heads.push_back("    Exact answer" + (states.size() > 1 ? ' ' + std::to_string(i) : ""));
  }
  appendcolumns(out, "", heads);
  for (const Property& property : propertyTable) {
    std::vector<double> values;
    for (const StatePoint& state : states) values.push_back(valueOf(property, state, atm));
    appendnumbers(out, property.caption, values);
  }
}

}  // namespace

Check checkof(const GivenPair& pair, double atm, const Resolution& resolution) {
  Check check{{pair.first, pair.second}, atm, {}, answers(pair.first, pair.second, atm)};
  auto& [first, second] = check.given;
  if (first.kind > second.kind) std::swap(first, second);
  if (resolution.resolved()) {
    check.residuals = {residual(first, resolution.point, atm), residual(second, resolution.point, atm)};
  }
  return check;
}

std::string checktable(const Check& check) {
  std::string out;
  if (check.residuals) appendresiduals(out, check);
  if (check.answers.states.empty()) {
    out += "No exact answer: " + whynone(check.answers) + '\n';
  } else {
    appendanswers(out, check.answers.states, check.atm);
  }
  return out;
}

Json statejson(const StatePoint& point, double atm) {
  Json json;
  for (const Property& property : propertyTable) json[property.key] = jsonnumber(valueOf(property, point, atm));
  return json;
}

Json checkjson(const Check& check) {
  Json json{{"residuals", Json::object()}, {"answers", Json::array()}, {"reason", nullptr}};
  for (std::size_t i = 0; check.residuals && i < check.given.size(); ++i) {
    json["residuals"][nameof(check.given[i].kind)] = jsonnumber((*check.residuals)[i]);
  }
  for (const StatePoint& state : check.answers.states) json["answers"].push_back(statejson(state, check.atm));
  if (check.answers.states.empty()) json["reason"] = whynone(check.answers);
  return json;
}

void appendcells(std::string& out, const Check& check, void (*append)(std::string&, double), char delimiter) {
  for (std::size_t i = 0; i < check.given.size(); ++i) {
    out += delimiter;
    if (check.residuals) append(out, (*check.residuals)[i]);
  }
  out += delimiter + std::to_string(check.answers.states.size());
}

}  // namespace moistair
