/// \file
/// Ready-made systems: an air handler and its room written as steps and goals from a few keys.
///
/// An engineer who wants to know what equipment a room needs gives keys such as room.db=75 or outdoor.acfm=1000. Each
/// system is a row of one table that says which groups of keys it takes, so that a command line and a form can be made
/// of the same data. Parameters of steps are keys under their own names, with their units and ranges (kinds.h); what is
/// not given is unknown. The system is written as text (systemtext.h), so that it can be kept and changed.
///
/// A system can run in several ways: as asked, with the room's humidity left to itself, or with the equipment off. The
/// text of each way has the same steps in the same order where a table of hours is run (`forHours`).
#pragma once

#include <array>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "process/goalproblem.h"
#include "process/systemtext.h"

namespace moistair {

/// A key that is no parameter of a step: one of some words, or names.
struct WordKey {
  const char* name = nullptr;
  std::array<const char*, 3> words{};  ///< none: any names, separated by commas
  const char* meaning = nullptr;
};

/// Keys with the same word before the dot.
struct KeyGroup {
  const char* name;                ///< "room"; empty for keys without a dot, and for a zone's own
  const char* meaning;             ///< a line for a heading
  ParameterSet parameters;         ///< keys that are parameters of steps
  std::optional<StepKind> kind{};  ///< those that this kind takes have to be a set that it takes
  bool ofZone = false;             ///< given for each zone, with its name in front
  WordKey word{};
};

struct LineRequest;  // readymadelines.h

struct ReadymadeRow {
  const char* name;
  const char* meaning;
  const char* example;  ///< keys of a plausible case
  std::span<const KeyGroup* const> groups;
  Result<std::string> (*write)(const LineRequest&);
};

std::span<const ReadymadeRow> readymadeRows();
const ReadymadeRow* readymadeNamed(std::string_view name);  ///< null for a name that there is not

/// A key as it is typed.
struct KeyRow {
  std::string name;  ///< "room.db", "East.part.sensible"
  const KeyGroup* group;
  std::string zone;                    ///< whose it is; empty for the others
  std::optional<Parameter> parameter;  ///< none for a word
  std::string meaning;                 ///< "dry bulb [deg F]"
};

/// All keys of a system, for a list or a form.
std::vector<KeyRow> keysOf(const ReadymadeRow& system, const std::vector<std::string>& zones);

/// What was given.
class ReadymadeKeys {
public:
  explicit ReadymadeKeys(const ReadymadeRow& system) : system_(&system) {}

  const ReadymadeRow& system() const { return *system_; }
  const std::vector<std::string>& zones() const { return zones_; }

  bool has(const std::string& key) const { return values_.contains(key); }
  double number(const std::string& key) const;  ///< in the base unit; no value if it is not given
  std::string word(const std::string& key) const;
  bool hasAny(const std::string& group) const;  ///< whether a key of "room" or "East.part" is given

  /// The parameters of a group that are given, of some.
  ParameterSet given(const std::string& group, ParameterSet of) const;
  /// The same as they were typed: "db=24C,rh=50".
  std::string typed(const std::string& group, ParameterSet of) const;

private:
  friend class KeyReader;
  struct Value {
    std::string typed;
    std::optional<Assignment> number;
  };

  const ReadymadeRow* system_;
  std::vector<std::string> zones_;
  std::map<std::string, Value> values_;
};

struct ReadKeys {
  ReadymadeKeys keys;
  std::vector<Error> errors;  ///< all mistakes, each with its key as the place
};

/// Reads words such as "room.db=75". Mistakes: unknown and repeated keys, values that cannot be read or are out of
/// range, groups that do not make a step.
ReadKeys readKeys(const ReadymadeRow& system, const std::vector<std::string>& words);

/// What a system holds at its goals.
enum class Held : std::uint8_t {
  all,
  temperature,  ///< the room's humidity is left to itself
  dryBulb,      ///< of the room alone, with the flow that was sized: the supply air's state is left to itself, too
  nothing,      ///< coils and humidifiers are off, and the air flows as it was sized
};

/// A way in which a system runs.
struct Way {
  Held held = Held::all;
  std::vector<bool> atMinimum;  ///< by zone: whether its flow is the smallest one and its air reheated

  auto operator<=>(const Way&) const = default;
};

/// "design", "humidity floats", "supply floats", "room floats"; with the zones that are at their smallest flow.
std::string wordsOf(const Way& way, const ReadymadeKeys& keys);

/// A property of a stream or a result of a step, by its name and as a goal counts it; no value for a name that there is
/// not.
double valueOf(const CompiledSystem& system, const Solution& solution, const std::string& stream, Parameter parameter,
               const Site& site);

/// A system with its solution.
struct DesignState {
  SystemText text;
  CompiledSystem system;
  GoalProblem problem;
  std::vector<GoalSolution> found;  ///< the first is the one to use

  double value(const std::string& stream, Parameter parameter, const Site& site) const {
    return found.empty() ? noValue : valueOf(system, found.front().solution, stream, parameter, site);
  }
};

/// Reads, compiles and prepares lines; the first mistake if they have some.
Result<DesignState> preparedState(const std::string& lines);

/// What a ready-made system came to.
struct Design {
  DesignState state;
  Way way;
  std::vector<std::string> remarks;  ///< "No reheat is needed: ..."
  std::vector<Error> errors;         ///< empty if it was solved
};

/// Writes, sizes and solves ready-made systems.
class Designer {
public:
  Designer(ReadymadeKeys keys, const Site& site) : keys_(std::move(keys)), site_(site) {}

  /// Solves as asked, at full load and then, if keys of a part load are given, at that.
  Design design();

  /// For a table, after `design`: has equipment that switches off pass the air, and leaves the steps the same in all
  /// ways. With the equipment off the air flows as in the design.
  void forHours() { hours_ = true; }

  /// The lines of a way, or why the keys do not make a system.
  Result<std::string> textOf(const Way& way) const;

  /// What to try after a way was solved, or was not; none if it is good, or nothing is left.
  /// @param system with the values that were solved with
  /// @param solved null where there is no solution
  std::optional<Way> after(const Way& way, const CompiledSystem& system, const Solution* solved,
                           const Site& site) const;

  const ReadymadeKeys& keys() const { return keys_; }

private:
  Design solveWays();
  Design accept(Design design, const std::vector<Error>& firstErrors) const;
  double smallestFlow(const std::string& zone, const CompiledSystem& system, const Solution* solved,
                      const Site& site) const;
  std::optional<Way> zonesAfter(const Way& way, const CompiledSystem& system, const Solution* solved,
                                const Site& site) const;
  bool hasReheat() const;
  std::string sizedWords() const;

  ReadymadeKeys keys_;
  Site site_;
  bool hours_ = false;
  bool partLoad_ = false;             ///< what was sized runs at part load
  std::optional<DesignState> sized_;  ///< at full load
};

}  // namespace moistair
