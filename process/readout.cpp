#include "process/readout.h"

namespace moistair {

StreamReadout readoutOf(const Stream& stream, const Site& site) {
  const AirState& state = stream.state;
  const WetBulbs wetBulbs = site.air->wetBulbs(state.db, state.w, site.atm);
  StreamReadout readout{};
  readout.db = state.db;
  readout.wb = wetBulbs.shown();
  readout.rh = site.relativeHumidity(state);
  readout.w = state.w;
  readout.h = site.enthalpy(state);
  readout.dp = site.air->dewPoint(state.w, site.atm);
  readout.v = site.volume(state);
  readout.grains = state.w * 7000;
  readout.lbh = stream.flowKnown() ? stream.flow : noValue;
  readout.acfm = acfmOfDryFlow(readout.lbh, readout.v);
  readout.scfm = readout.lbh / lbhPerScfm;
  if (wetBulbs.two()) {
    readout.wetBulb = WetBulbRemark::twoExist;
    readout.wetBulbOverIce = wetBulbs.overIce;
  } else if (!hasValue(readout.wb)) {
    readout.wetBulb = WetBulbRemark::noneExists;
  }
  return readout;
}

double outcomeOf(Parameter parameter, StepKind kind, const StepResult& result, const Site& site) {
  using enum Parameter;
  const Stream& leaving = result.leaving;
  const AirState& state = leaving.state;
  const double sign = rowOf(kind).removesHeat ? -1 : 1;
  switch (parameter) {
    case db: return state.db;
    case wb: return site.air->wetBulbs(state.db, state.w, site.atm).shown();
    case rh: return site.relativeHumidity(state);
    case w: return state.w;
    case h: return site.enthalpy(state);
    case dp: return site.air->dewPoint(state.w, site.atm);
    case v: return site.volume(state);
    case lbh: return leaving.flowKnown() ? leaving.flow : noValue;
    case scfm: return leaving.flowKnown() ? leaving.flow / lbhPerScfm : noValue;
    case acfm: return leaving.flowKnown() ? acfmOfDryFlow(leaving.flow, site.volume(state)) : noValue;
    case total:
    case btuh: return sign * result.total;
    case sensible: return sign * result.sensible;
    case latent: return sign * result.latent;
    case water: return result.water;
    case shr: return result.shr;
    case adp: return result.adp;
    case bf: return result.bf;
    case bhp: return result.power;
    case eff: return result.effectiveness;
    case share: return result.share;
    default: return noValue;
  }
}

}  // namespace moistair
