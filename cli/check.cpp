#include "cli/check.h"

#include <utility>
#include <vector>

#include "advice/remark.h"
#include "cli/format.h"
#include "text/numberformat.h"

namespace moistair {

namespace {

void appendNumbers(std::string& out, const char* caption, const std::vector<double>& numbers) {
  std::vector<std::string> cells;
  for (const double number : numbers) appendAligned(cells.emplace_back(), tableValue(number), pointColumn);
  appendColumns(out, caption, cells);
}

void appendResiduals(std::string& out, const Check& check) {
  appendColumns(out, "", {"    Given", "    Found", "    Difference"});
  for (std::size_t i = 0; i < check.given.size(); ++i) {
    const double off = (*check.residuals)[i];
    const auto& [kind, value] = check.given[i];
    appendNumbers(out, propertyOf(kind).caption, {value, value + off, off});
  }
}

void appendAnswers(std::string& out, const std::vector<StatePoint>& states, double atm) {
  std::vector<std::string> heads;
  for (std::size_t i = 1; i <= states.size(); ++i) {
    heads.push_back("    Exact answer" + (states.size() > 1 ? ' ' + std::to_string(i) : ""));
  }
  appendColumns(out, "", heads);
  for (const Property& property : propertyTable) {
    std::vector<double> values;
    for (const StatePoint& state : states) values.push_back(valueOf(property, state, atm));
    appendNumbers(out, property.caption, values);
  }
}

}  // namespace

Check checkOf(const GivenPair& pair, double atm, const Resolution& resolution) {
  Check check{{pair.first, pair.second}, atm, {}, exactSolutions(pair.first, pair.second, atm)};
  auto& [first, second] = check.given;
  if (first.kind > second.kind) std::swap(first, second);
  if (resolution.resolved()) {
    check.residuals = {residual(first, resolution.point, atm), residual(second, resolution.point, atm)};
  }
  return check;
}

std::string checkTable(const Check& check) {
  std::string out;
  if (check.residuals) appendResiduals(out, check);
  if (check.solutions.states.empty()) {
    out += "No exact answer: " + whyNone(check.solutions) + '\n';
  } else {
    appendAnswers(out, check.solutions.states, check.atm);
  }
  return out;
}

Json stateJson(const StatePoint& point, double atm) {
  Json json;
  for (const Property& property : propertyTable) json[property.key] = jsonNumber(valueOf(property, point, atm));
  return json;
}

Json checkJson(const Check& check) {
  Json json{{"residuals", Json::object()}, {"answers", Json::array()}, {"reason", nullptr}};
  for (std::size_t i = 0; check.residuals && i < check.given.size(); ++i) {
    json["residuals"][nameOf(check.given[i].kind)] = jsonNumber((*check.residuals)[i]);
  }
  for (const StatePoint& state : check.solutions.states) json["answers"].push_back(stateJson(state, check.atm));
  if (check.solutions.states.empty()) json["reason"] = whyNone(check.solutions);
  return json;
}

void appendCells(std::string& out, const Check& check, void (*append)(std::string&, double), char delimiter) {
  for (std::size_t i = 0; i < check.given.size(); ++i) {
    out += delimiter;
    if (check.residuals) append(out, (*check.residuals)[i]);
  }
  out += delimiter + std::to_string(check.solutions.states.size());
}

}  // namespace moistair
