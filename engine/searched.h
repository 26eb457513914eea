/// \file
/// The property functions as a search sees them: one variable, all else bound.
///
/// Each is an object that has worked out what its variable does not touch, in the order of moistair.h, and so gives the
/// same bits. `window` is its forecast for `bracketsearch`: about where it takes a target, from near values and slopes,
/// and without a promise. None comes where the forecast would not hold: at pressures next to boiling or absurd, for
/// arguments no air has, and close to the step at a wet bulb of 32 deg F.
#pragma once

#include <limits>

#include "engine/saturation.h"

namespace moistair {

/// A stretch of a search variable about the place where a function takes a target. Inside the bracket and outside the
/// window the function is monotonic and keeps to its side of the target, step of a probe included. An end is infinite
/// where the target is out of reach on that side. No value where nothing can be said.
struct Window {
  double low = novalue;
  double high = novalue;
  bool rises = true;
};

inline constexpr double beyond = std::numeric_limits<double>::infinity();

/// Window of the wet bulb at which psychro_pv1 takes pv, so wide that it changes by a little more than the tolerance.
Window wetbulbwindow(double db, double atm, double pv, double tolerance);

/// Window of the vapour pressure at which psychro_dp takes dp.
Window vaporpressurewindow(double dp, double tolerance);

/// Window of the dry bulb at which psychro_pvs takes ps.
Window saturationwindow(double ps, double tolerance);

/// Properties as functions of the wet bulb. `plainly` is the same property, nothing worked out beforehand.
struct PvOfWb {
  double db, atm;

  PvOfWb(double fixeddb, double pressure) : db(fixeddb), atm(pressure) {}
  double operator()(double wb) const { return vaporpressureof(db, wb, atm, pvsat(wb)); }
  double plainly(double wb) const { return psychro_pv1(db, wb, atm); }
  Window window(double value, double tolerance) const { return wetbulbwindow(db, atm, value, tolerance); }
};

struct RhOfWb {
  PvOfWb pv;
  double ps;

  RhOfWb(double db, double atm) : pv(db, atm), ps(pvsat(db)) {}
  double operator()(double wb) const { return humidityof(pv(wb), ps); }
  double plainly(double wb) const { return psychro_rh(pv.db, wb, pv.atm); }
  Window window(double rh, double tolerance) const { return pv.window(rh * ps / 100, tolerance * ps / 100); }
};

struct WOfWb {
  PvOfWb pv;

  WOfWb(double db, double atm) : pv(db, atm) {}
  double operator()(double wb) const { return ratioof(pv(wb), pv.atm); }
  double plainly(double wb) const { return psychro_w(pv.db, wb, pv.atm); }
  bool steady() const { return pv.atm >= 4; }  ///< no water of up to 120 deg F boils
  Window window(double w, double tolerance) const {
    if (!steady()) return {};
    const double scale = pv.atm / (massratio + w);
    return pv.window(w * scale, tolerance * scale * massratio / (massratio + w));
  }
};

struct VOfWb {
  WOfWb w;
  double factor;

  VOfWb(double db, double atm) : w(db, atm), factor(volumefactor(db)) {}
  double operator()(double wb) const { return volumeof(factor, w(wb), w.pv.atm); }
  double plainly(double wb) const { return psychro_v(w.pv.db, wb, w.pv.atm); }
  double ratioat(double v) const { return (v * w.pv.atm / factor - 1) * (grainsAsRoomy / grainsPerPound); }
  Window window(double v, double tolerance) const {
    return w.window(ratioat(v), tolerance * w.pv.atm / factor * (grainsAsRoomy / grainsPerPound));
  }
};

/// Properties as functions of the dry bulb at a wet bulb.
struct PvOfDb {
  double wb, atm;
  double ps;

  PvOfDb(double fixedwb, double pressure) : wb(fixedwb), atm(pressure), ps(pvsat(wb)) {}
  double operator()(double db) const { return vaporpressureof(db, wb, atm, ps); }
  double plainly(double db) const { return psychro_pv1(db, wb, atm); }
  Window window(double pv, double tolerance) const;
};

struct RhOfDb {
  PvOfDb pv;

  RhOfDb(double wb, double atm) : pv(wb, atm) {}
  double operator()(double db) const { return humidityof(pv(db), pvsat(db)); }
  double plainly(double db) const { return psychro_rh(db, pv.wb, pv.atm); }
  Window window(double rh, double tolerance) const;
};

struct WOfDb {
  PvOfDb pv;

  WOfDb(double wb, double atm) : pv(wb, atm) {}
  double operator()(double db) const { return ratioof(pv(db), pv.atm); }
  double plainly(double db) const { return psychro_w(db, pv.wb, pv.atm); }
  Window window(double w, double tolerance) const;
};

struct HOfDb {
  WOfDb w;

  HOfDb(double wb, double atm) : w(wb, atm) {}
  double operator()(double db) const { return enthalpyof(db, w(db)); }
  double plainly(double db) const { return psychro_h(db, w.pv.wb, w.pv.atm); }
  Window window(double h, double tolerance) const;
};

struct VOfDb {
  WOfDb w;

  VOfDb(double wb, double atm) : w(wb, atm) {}
  double operator()(double db) const { return volumeof(volumefactor(db), w(db), w.pv.atm); }
  double plainly(double db) const { return psychro_v(db, w.pv.wb, w.pv.atm); }
  Window window(double v, double tolerance) const;
};

/// psychro_wrh as a function of the dry bulb.
struct WrhOfDb {
  double rh, atm;

  WrhOfDb(double fixedrh, double pressure) : rh(fixedrh), atm(pressure) {}
  double operator()(double db) const { return ratioofrh(pvsat(db), rh, atm); }
  double plainly(double db) const { return psychro_wrh(db, rh, atm); }
  Window window(double w, double tolerance) const;
};

/// psychro_dp as a function of the vapour pressure, which nothing else touches.
struct DpOfPv {
  DpOfPv(double, double) {}
  double operator()(double pv) const { return psychro_dp(pv); }
  double plainly(double pv) const { return psychro_dp(pv); }
  Window window(double dp, double tolerance) const { return vaporpressurewindow(dp, tolerance); }
};

}  // namespace moistair
