// From names to indices, and the order of the steps.
#include <algorithm>
#include <functional>
#include <queue>
#include <string_view>

#include "process/system.h"
#include "text/words.h"

namespace moistair {

namespace {

constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

/// Steps by name.
class Names {
public:
  explicit Names(const std::vector<ProcessStep>& steps) {
    entries_.reserve(steps.size());
    for (std::size_t i = 0; i < steps.size(); ++i) entries_.push_back({steps[i].name, i});
    std::sort(entries_.begin(), entries_.end());
  }

  /// The first step of this name.
  std::size_t find(std::string_view name) const {
    const auto at = std::lower_bound(entries_.begin(), entries_.end(), std::pair(name, std::size_t{0}));
    return at != entries_.end() && at->first == name ? at->second : nowhere;
  }

private:
  std::vector<std::pair<std::string_view, std::size_t>> entries_;
};

class Compiler {
public:
  explicit Compiler(const AirSystem& system) : steps_(system.steps), names_(steps_) {}

  Compilation run() {
    CompiledSystem& out = compilation_.system;
    out.steps.resize(steps_.size());
    out.taken.assign(2 * steps_.size(), false);
    out.names.resize(2 * steps_.size());
    for (std::size_t i = 0; i < steps_.size(); ++i) nameStreams(i);
    for (std::size_t i = 0; i < steps_.size(); ++i) compileStep(i);
    return std::move(compilation_);
  }

private:
  void fail(std::size_t i, const Error& error) {
    Error placed = error.within(steps_[i].name);
    if (steps_[i].line > 0) placed = placed.within("line " + std::to_string(steps_[i].line));
    compilation_.errors.push_back(std::move(placed));
  }

  /// What a name that no step has may be meant to be. Each search looks at all steps, so there are only a few.
  std::string closestStep(std::string_view name) {
    constexpr int mostSearches = 20;
    ClosestWord closest(name);
    if (searches_++ < mostSearches) {
      for (const ProcessStep& step : steps_) closest.offer(step.name);
    }
    return closest.question();
  }

  void nameStreams(std::size_t i) {
    const ProcessStep& step = steps_[i];
    auto& names = compilation_.system.names;
    names[mainStream(i)] = step.name;
    if (const char* second = rowOf(step.kind).second) names[secondStream(i)] = step.name + "." + second;
    if (names_.find(step.name) != i) fail(i, {ErrorCode::duplicate, {}, "another step has this name"});
  }

  /// The stream of a name; what is wrong with it goes to the errors.
  std::size_t streamOf(std::size_t i, const std::string& name) {
    const std::size_t dot = name.rfind('.');
    const std::string_view base = std::string_view(name).substr(0, dot);
    const std::size_t step = names_.find(base);
    if (step == nowhere) {
      fail(i, {ErrorCode::unknownName, {}, "no step is named \"" + std::string(base) + "\"" + closestStep(base)});
      return nowhere;
    }
    if (dot == std::string::npos) return mainStream(step);
    if (compilation_.system.names[secondStream(step)] == name) return secondStream(step);
    const std::string second = compilation_.system.names[secondStream(step)];
    const std::string has = second.empty()
                                ? std::string(base) + " (" + nameOf(steps_[step].kind) + ") leaves one stream"
                                : "the second stream is " + second;
    fail(i, {ErrorCode::unknownName, {}, "there is no stream " + name + "; " + has});
    return nowhere;
  }

  void compileStep(std::size_t i) {
    const ProcessStep& step = steps_[i];
    CompiledStep& out = compilation_.system.steps[i];
    out.kind = step.kind;
    out.firstSource = compilation_.system.sources.size();
    for (const std::string& source : step.sources) takeSource(i, streamOf(i, source));
    out.sourceCount = compilation_.system.sources.size() - out.firstSource;
    checkSources(i);
    for (const Assignment& given : step.given) takeParameter(i, given);
    if (const Outcome outcome = checkGiven(step.kind, out.parameters.given()); !outcome) fail(i, outcome.error());
  }

  void takeSource(std::size_t i, std::size_t stream) {
    if (stream == nowhere) return;
    CompiledSystem& out = compilation_.system;
    if (out.taken[stream]) {
      fail(i, {ErrorCode::duplicate, {}, out.names[stream] + " is taken by another step already; divide it with part"});
    }
    out.taken[stream] = true;
    out.sources.push_back(stream);
  }

  void checkSources(std::size_t i) {
    const KindRow& row = rowOf(steps_[i].kind);
    const int count = static_cast<int>(steps_[i].sources.size());
    if (count >= row.leastSources && count <= row.mostSources) return;
    const char* least[] = {"no stream", "one stream", "two streams"};
    const std::string takes = (row.mostSources > 2 ? "at least " : "") + std::string(least[row.leastSources]);
    fail(i, {ErrorCode::unreadable, {}, std::string(row.name) + " takes " + takes + ", not " + std::to_string(count)});
  }

  void takeParameter(std::size_t i, const Assignment& given) {
    CompiledSystem& out = compilation_.system;
    Parameters& parameters = out.steps[i].parameters;
    if (parameters.has(given.parameter)) fail(i, {ErrorCode::duplicate, nameOf(given.parameter), "is given twice"});
    parameters.set(given.parameter, given.value);
    if (rowOf(given.parameter).quantity == Quantity::stream) {
      const std::size_t stream = streamOf(i, given.stream);
      if (stream != nowhere) out.steps[i].indirect = static_cast<int>(stream);
    } else if (given.unknown) {
      if (rowOf(given.parameter).quantity == Quantity::word) {
        fail(i, {ErrorCode::unreadable, nameOf(given.parameter), "is a word and cannot be unknown"});
      }
      out.unknowns.push_back({i, given.parameter});
    } else if (const Outcome outcome = checkValue(given.parameter, given.value); !outcome) {
      fail(i, outcome.error());
    }
  }

  const std::vector<ProcessStep>& steps_;
  Names names_;
  int searches_ = 0;
  Compilation compilation_;
};

/// The streams that a step needs to be known.
template <class Take>
void forSources(const CompiledSystem& system, std::size_t step, const Take& take) {
  const CompiledStep& compiled = system.steps[step];
  for (std::size_t i = 0; i < compiled.sourceCount; ++i) take(system.sources[compiled.firstSource + i]);
  if (compiled.indirect >= 0) take(static_cast<std::size_t>(compiled.indirect));
}

/// The first source of a step that comes from a step not yet in the order; nowhere if all do.
std::size_t missingSource(const CompiledSystem& system, const std::vector<bool>& done, std::size_t step) {
  std::size_t missing = nowhere;
  forSources(system, step, [&](std::size_t stream) {
    if (missing == nowhere && !done[stream / 2]) missing = stream;
  });
  return missing;
}

/// Of the circle that a step waits for, the step written first.
std::size_t startOfCircle(const CompiledSystem& system, const std::vector<bool>& done, std::size_t step) {
  std::vector<bool> seen(system.steps.size(), false);
  while (!seen[step]) {
    seen[step] = true;
    step = missingSource(system, done, step) / 2;
  }
  std::size_t first = step;
  for (std::size_t at = missingSource(system, done, step) / 2; at != step; at = missingSource(system, done, at) / 2) {
    first = std::min(first, at);
  }
  return first;
}

/// Each step after those it takes from, else as written; where only circles are left, one is cut open.
void orderSteps(CompiledSystem& system) {
  const std::size_t count = system.steps.size();
  std::vector<std::vector<std::size_t>> takers(count);
  std::vector<std::size_t> waitsFor(count, 0);
  for (std::size_t i = 0; i < count; ++i) {
    forSources(system, i, [&](std::size_t stream) {
      takers[stream / 2].push_back(i);
      ++waitsFor[i];
    });
  }
  std::priority_queue<std::size_t, std::vector<std::size_t>, std::greater<>> ready;
  for (std::size_t i = 0; i < count; ++i) {
    if (waitsFor[i] == 0) ready.push(i);
  }
  std::vector<bool> done(count, false);
  const auto place = [&](std::size_t step) {
    done[step] = true;
    system.order.push_back(step);
    for (const std::size_t taker : takers[step]) {
      if (--waitsFor[taker] == 0 && !done[taker]) ready.push(taker);
    }
  };
  for (std::size_t first = 0; system.order.size() < count;) {
    if (!ready.empty()) {
      const std::size_t step = ready.top();
      ready.pop();
      place(step);
      continue;
    }
    while (done[first]) ++first;
    const std::size_t step = startOfCircle(system, done, first);
    forSources(system, step, [&](std::size_t stream) {
      if (!done[stream / 2]) system.tears.push_back(stream);
    });
    place(step);
  }
}

}  // namespace

Compilation compile(const AirSystem& system) {
  Compilation compilation = Compiler(system).run();
  if (compilation.errors.empty()) orderSteps(compilation.system);
  return compilation;
}

std::string circleWords(const CompiledSystem& system) {
  if (system.tears.empty()) return {};
  const std::size_t target = system.tears.front() / 2;  // whose air a step takes before it is known
  std::vector<std::size_t> taker(system.steps.size(), nowhere);
  std::vector<std::size_t> stack{target};
  while (!stack.empty() && taker[target] == nowhere) {
    const std::size_t step = stack.back();
    stack.pop_back();
    forSources(system, step, [&](std::size_t stream) {
      if (taker[stream / 2] != nowhere) return;
      taker[stream / 2] = step;
      stack.push_back(stream / 2);
    });
  }
  std::vector<std::size_t> circle{target};  // against the flow
  for (std::size_t at = taker[target]; at != target && at != nowhere; at = taker[at]) circle.push_back(at);
  constexpr std::size_t mostNamed = 12;
  const std::size_t named = std::min(circle.size(), mostNamed);
  std::string words = system.names[mainStream(target)] + " takes ";
  for (std::size_t i = 1; i < named; ++i)
    words += system.names[mainStream(circle[circle.size() - i])] + ", which takes ";
  if (named < circle.size()) words += std::to_string(circle.size() - named) + " more, which take ";
  return words + system.names[mainStream(target)];
}

}  // namespace moistair
