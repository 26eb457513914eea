#include "model/airhandlerdrag.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "process/units.h"
#include "text/numbertext.h"

namespace moistair {

namespace {

constexpr ParameterSet stateProperties =
    setOf(Parameter::db, Parameter::wb, Parameter::rh, Parameter::w, Parameter::h, Parameter::dp, Parameter::v);
constexpr ParameterSet flowParameters = setOf(Parameter::acfm, Parameter::scfm, Parameter::lbh, Parameter::share);

/// A number as a person would type it: no more digits than a drag can mean.
std::string typedNumber(double number) {
  const double digits = number == 0 ? 0 : 5 - std::floor(std::log10(std::abs(number)));
  const double unit = std::pow(10, std::clamp(digits, -8.0, 9.0));
  return numberText(std::round(number * unit) / unit);
}

/// The parameters of a set that a line gives as numbers.
std::vector<Parameter> numbersOf(const TypedLine& typed, ParameterSet among) {
  std::vector<Parameter> parameters;
  for (const auto& [name, text] : typed.values) {
    const auto parameter = parameterNamed(name);
    if (parameter && contains(among, *parameter) && text != "?") parameters.push_back(*parameter);
  }
  return parameters;
}

/// A system with the line of each step.
class Mover {
public:
  Mover(const SolvedAirHandler& solved, const std::vector<std::string>& lines)
      : solved_(solved.system), system_(solved.system.system), points_(solved.points), lines_(lines) {}

  std::optional<TypedLine> typed(std::size_t step) const {
    if (step >= solved_.written.steps.size()) return std::nullopt;
    const auto line = static_cast<std::size_t>(solved_.written.steps[step].line);
    return line >= 1 && line <= lines_.size() ? typedLine(lines_[line - 1]) : std::nullopt;
  }

  /// What of a step a drag of its state writes; empty for one that cannot be moved.
  std::vector<Parameter> writable(std::size_t step) const {
    const auto line = typed(step);
    if (!line || !solved_.hasResult(step)) return {};
    constexpr ParameterSet heater = setOf(Parameter::db, Parameter::rh, Parameter::dt, Parameter::btuh);
    constexpr ParameterSet coil =
        setOf(Parameter::adp, Parameter::bf, Parameter::shr, Parameter::total, Parameter::sensible) | stateProperties;
    switch (system_.steps[step].kind) {
      case StepKind::air: return points_.at(step) ? std::vector<Parameter>{} : numbersOf(*line, stateProperties);
      case StepKind::heat:
      case StepKind::cool: return numbersOf(*line, heater);
      case StepKind::coil: return numbersOf(*line, coil);
      default: return {};
    }
  }

  /// The source of a mixing box whose flow a drag writes: a stream that is given a flow; -1 for none.
  int adjustable(std::size_t step) const {
    const CompiledStep& mix = system_.steps[step];
    if (mix.kind != StepKind::mix || mix.sourceCount != 2 || !solved_.hasResult(step)) return -1;
    for (std::size_t i = 0; i < 2; ++i) {
      const std::size_t source = system_.sources[mix.firstSource + i];
      const auto line = typed(source / 2);
      const bool main = source % 2 == 0;
      if (line && main && numbersOf(*line, flowParameters).size() == 1) return static_cast<int>(i);
    }
    return -1;
  }

  Result<std::vector<std::string>> toPlace(std::size_t step, const AirState& place) const {
    const auto parameters = writable(step);
    if (system_.steps[step].kind == StepKind::mix) return alongLine(step, place);
    if (parameters.empty()) return notMovable(step);
    StepResult result;
    if (system_.steps[step].kind == StepKind::air) {
      result.leaving.state = place;
    } else {
      const Result<StepResult> run = runAt(step, place);
      if (!run) return run.error().within(system_.names[mainStream(step)]);
      result = *run;
    }
    TypedLine line = *typed(step);
    for (const Parameter parameter : parameters) {
      const double value = parameter == Parameter::dt
                               ? riseOf(step, result)
                               : outcomeOf(parameter, system_.steps[step].kind, result, solved_.site);
      if (auto written = write(line, parameter, value); !written) {
        return written.error().within(line.name);
      } else {
        line = *written;
      }
    }
    return withLine(lines_, lineNumber(step), line);
  }

private:
  std::size_t lineNumber(std::size_t step) const {
    return static_cast<std::size_t>(solved_.written.steps[step].line) - 1;
  }

  /// The change of temperature as its parameter counts it: of a cooler positive as a fall.
  double riseOf(std::size_t step, const StepResult& result) const {
    const Stream& entering = solved_.solution.streams[system_.sources[system_.steps[step].firstSource]];
    const double rise = result.leaving.state.db - entering.state.db;
    return rowOf(system_.steps[step].kind).removesHeat ? -rise : rise;
  }

  Error notMovable(std::size_t step) const {
    return {ErrorCode::unsupported, system_.names[mainStream(step)], "this state follows from others"};
  }

  static Result<TypedLine> write(const TypedLine& line, Parameter parameter, double value) {
    if (!hasValue(value)) return Error{ErrorCode::noResult, nameOf(parameter), "has no value there"};
    return withValue(line, parameter, typedNumber(value));
  }

  /// The step run with the place in place of its parameters.
  Result<StepResult> runAt(std::size_t step, const AirState& place) const {
    const CompiledStep& compiled = system_.steps[step];
    Parameters parameters;
    parameters.set(Parameter::db, place.db);
    if (compiled.kind == StepKind::coil) parameters.set(Parameter::w, place.w);
    const Stream& source = solved_.solution.streams[system_.sources[compiled.firstSource]];
    return runStep(compiled.kind, {{&source, 1}, nullptr, parameters, solved_.site, static_cast<int>(step)});
  }

  /// The mixed state goes where the place is nearest to its line, lengths measured as enthalpies are: by db and 1061 w.
  Result<std::vector<std::string>> alongLine(std::size_t step, const AirState& place) const {
    const int which = adjustable(step);
    if (which < 0) return notMovable(step);
    const CompiledStep& mix = system_.steps[step];
    const std::size_t moved = system_.sources[mix.firstSource + static_cast<std::size_t>(which)];
    const std::size_t other = system_.sources[mix.firstSource + static_cast<std::size_t>(1 - which)];
    const Stream& from = solved_.solution.streams[other];
    const Stream& to = solved_.solution.streams[moved];
    constexpr double scale = 1061 / 0.24;  // deg F to the lb/lb at one enthalpy
    const double db = to.state.db - from.state.db, w = (to.state.w - from.state.w) * scale;
    const double share = ((place.db - from.state.db) * db + (place.w - from.state.w) * scale * w) / (db * db + w * w);
    if (!(share > 0 && share < 1)) {
      return Error{ErrorCode::outOfRange, system_.names[mainStream(step)], "a mixture is between its two streams"};
    }
    const double flow = from.flow * share / (1 - share);
    TypedLine line = *typed(moved / 2);
    const Parameter parameter = numbersOf(line, flowParameters).front();
    const double now = solved_.written.steps[moved / 2].given.empty() ? noValue : given(moved / 2, parameter);
    auto written = write(line, parameter, now * flow / to.flow);
    if (!written) return written.error().within(line.name);
    return withLine(lines_, lineNumber(moved / 2), *written);
  }

  double given(std::size_t step, Parameter parameter) const {
    for (const Assignment& assignment : solved_.written.steps[step].given) {
      if (assignment.parameter == parameter) return assignment.value;
    }
    return noValue;
  }

  const SolvedSystem& solved_;
  const CompiledSystem& system_;
  const std::vector<std::optional<std::size_t>>& points_;
  const std::vector<std::string>& lines_;
};

}  // namespace

bool isMovable(const SolvedAirHandler& solved, const std::vector<std::string>& lines, std::size_t stream) {
  if (stream % 2 != 0 || stream / 2 >= solved.system.system.steps.size()) return false;
  const Mover mover(solved, lines);
  return !mover.writable(stream / 2).empty() || mover.adjustable(stream / 2) >= 0;
}

Result<std::vector<std::string>> movedState(const SolvedAirHandler& solved, std::vector<std::string> lines,
                                            std::size_t stream, const AirState& place) {
  if (!isMovable(solved, lines, stream)) {
    return Error{ErrorCode::unsupported, {}, "this state follows from others and cannot be moved"};
  }
  return Mover(solved, lines).toPlace(stream / 2, place);
}

SolvedAirHandler triedAirHandler(const Document& document, const std::vector<std::string>& lines,
                                 const std::pair<std::size_t, MarkedPoint>* point, const SolvedAirHandler& near) {
  Document tried;  // what the lines can refer to
  for (std::size_t i = 0; i < document.entries.size(); ++i) {
    if (!std::holds_alternative<MarkedPoint>(document.entries[i].content)) continue;
    tried.entries.push_back(document.entries[i]);
    if (point != nullptr && point->first == i) tried.entries.back().content = point->second;
  }
  const auto place = airHandlerPlace(document);
  const Setting setting = place ? document.entries[*place].setting : Setting{{}, document.pressure};
  tried.entries.push_back({setting, AirHandler{lines}});
  return *solvedAirHandler(tried, &near);
}

}  // namespace moistair
