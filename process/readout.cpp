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
  readout.lbh = stream.flowKnown() ? stream.flow : novalue;
  readout.acfm = acfmOfDryFlow(readout.lbh, readout.v);
  readout.scfm = readout.lbh / lbhPerScfm;
  if (wetBulbs.two()) {
    readout.wetBulb = WetBulbRemark::twoExist;
    readout.wetBulbOverIce = wetBulbs.overIce;
  } else if (!hasvalue(readout.wb)) {
    readout.wetBulb = WetBulbRemark::noneExists;
  }
  return readout;
}

}  // namespace moistair
