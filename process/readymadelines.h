/// \file
/// How the lines of ready-made systems are written.
///
/// Each writer puts the equipment in the order in which the air passes it and leaves unknown what is not given. What is
/// asked for becomes goals; with as many goals as unknowns the system is determined, otherwise the keys that are
/// missing or too many are named.
#pragma once

#include <string>
#include <vector>

#include "process/readymade.h"

namespace moistair {

struct LineRequest {
  const ReadymadeKeys& keys;
  const Site& site;
  const Way& way;
  bool hours = false;                  ///< equipment that is not needed passes the air
  bool partLoad = false;               ///< at part load, with what was sized
  const DesignState* sized = nullptr;  ///< of the full load
};

Result<std::string> writeHandler(const LineRequest& request);      ///< single-zone, reheat, bypass, recovery, winter
Result<std::string> writeEvaporative(const LineRequest& request);  ///< evaporative
Result<std::string> writeZones(const LineRequest& request);        ///< vav
Result<std::string> writeRoom(const LineRequest& request);         ///< room

inline constexpr ParameterSet stateKeys =
    setOf(Parameter::db, Parameter::wb, Parameter::rh, Parameter::w, Parameter::h, Parameter::dp, Parameter::v);
inline constexpr ParameterSet flowKeys = setOf(Parameter::acfm, Parameter::scfm, Parameter::lbh);
inline constexpr ParameterSet loadKeys =
    setOf(Parameter::sensible, Parameter::latent, Parameter::total, Parameter::shr, Parameter::water, Parameter::hg);
inline constexpr ParameterSet fanKeys =
    setOf(Parameter::inwg, Parameter::eff, Parameter::bhp, Parameter::dt, Parameter::motorEff, Parameter::motor);
inline constexpr ParameterSet coilPair =
    setOf(Parameter::adp, Parameter::bf, Parameter::db, Parameter::wb, Parameter::rh, Parameter::w, Parameter::dp,
          Parameter::shr, Parameter::total, Parameter::sensible);
inline constexpr ParameterSet coilOptions = setOf(Parameter::condensate, Parameter::waterDt);

/// Values that leave each step as it finds the air.
inline constexpr const char* coilOff = "db=300,rh=100,idle=pass";
inline constexpr const char* heaterOff = "db=-60,idle=pass";
inline constexpr const char* steamOff = "w=0,idle=pass";
inline constexpr const char* washerOff = "rh=0,idle=pass";

/// "db=55.25", with as many digits as give the same double.
std::string assigned(Parameter parameter, double value);
/// Two lists of parameters as one.
std::string joined(const std::string& one, const std::string& other);

/// Lines, and what is open in them.
class LineWriter {
public:
  explicit LineWriter(const LineRequest& request) : request_(request) {}

  /// Adds a step and makes its stream the one that the next step takes.
  void step(const std::string& name, const std::string& kindAndSources, const std::string& parameters);
  /// Adds a step that takes the current stream.
  void onward(const std::string& name, const char* kind, const std::string& parameters);
  /// Adds a goal for each parameter of a list "db=78,rh=50".
  void goal(const std::string& stream, const std::string& parameters, const std::string& keys);
  void goalsOf(const std::string& stream, const std::string& group, ParameterSet of);
  /// Notes an unknown, by the key that would give it.
  void unknown(const std::string& key) { unknowns_.push_back(key); }

  /// A parameter that is unknown: "db=?".
  std::string open(const std::string& group, Parameter parameter);
  /// What is given of a coil, filled up to two; `given` is appended to.
  std::string coilText(std::vector<Parameter>& open) const;
  /// The supply fan, if there is one where `place` says.
  void fan(const std::string& name, const char* place);
  /// Goals on the supply air: its state, its difference to the room (`cooler`: below it), its flow.
  Outcome supplyGoals(const std::string& stream, bool cooler);

  std::size_t unknownCount() const { return unknowns_.size(); }
  std::size_t goalCount() const { return goalKeys_.size(); }
  const std::string& air() const { return air_; }
  void setAir(const std::string& stream) { air_ = stream; }

  /// The whole text, or which keys are missing or too many.
  Result<std::string> finish() const;

private:
  const LineRequest& request_;
  std::string lines_, goalLines_, air_;
  std::vector<std::string> unknowns_, goalKeys_;
};

}  // namespace moistair
