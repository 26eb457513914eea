/// \file
/// The property functions as a search sees them: one variable, all else bound.
///
/// Each is an object that has worked out what its variable does not touch, in the order of moistair.h, and so gives the
/// same bits. `window` is its forecast for `bracketSearch`: about where it takes a target, from near values and slopes,
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
  double low = noValue;
  double high = noValue;
  bool rises = true;
};

inline constexpr double beyond = std::numeric_limits<double>::infinity();

/// Window of the wet bulb at which psychro_pv1 takes pv, so wide that it changes by a little more than the tolerance.
Window wetBulbWindow(double db, double atm, double pv, double tolerance);

/// Window of the vapor pressure at which psychro_dp takes dp.
Window vaporPressureWindow(double dp, double tolerance);

/// Window of the dry bulb at which psychro_pvs takes ps.
Window saturationWindow(double ps, double tolerance);

/// Properties as functions of the wet bulb. `directly` is the same property, nothing worked out beforehand.
struct PvOfWb {
  double db, atm;

  PvOfWb(double fixedDb, double pressure) : db(fixedDb), atm(pressure) {}
  double operator()(double wb) const { return vaporPressureOf(db, wb, atm, pvsAt(wb)); }
  double directly(double wb) const { return psychro_pv1(db, wb, atm); }
  Window window(double value, double tolerance) const { return wetBulbWindow(db, atm, value, tolerance); }
};

struct RhOfWb {
  PvOfWb pv;
  double ps;

  RhOfWb(double db, double atm) : pv(db, atm), ps(pvsAt(db)) {}
  double operator()(double wb) const { return humidityOf(pv(wb), ps); }
  double directly(double wb) const { return psychro_rh(pv.db, wb, pv.atm); }
  Window window(double rh, double tolerance) const { return pv.window(rh * ps / 100, tolerance * ps / 100); }
};

struct WOfWb {
  PvOfWb pv;

  WOfWb(double db, double atm) : pv(db, atm) {}
  double operator()(double wb) const { return ratioOf(pv(wb), pv.atm); }
  double directly(double wb) const { return psychro_w(pv.db, wb, pv.atm); }
  bool steady() const { return pv.atm >= 4; }  ///< no water of up to 120 deg F boils
  Window window(double w, double tolerance) const {
    if (!steady()) return {};
    const double scale = pv.atm / (massRatio + w);
    return pv.window(w * scale, tolerance * scale * massRatio / (massRatio + w));
  }
};

struct VOfWb {
  WOfWb w;
  double factor;

  VOfWb(double db, double atm) : w(db, atm), factor(volumeFactor(db)) {}
  double operator()(double wb) const { return volumeOf(factor, w(wb), w.pv.atm); }
  double directly(double wb) const { return psychro_v(w.pv.db, wb, w.pv.atm); }
  double ratioAt(double v) const { return (v * w.pv.atm / factor - 1) * (grainsAsRoomy / grainsPerPound); }
  Window window(double v, double tolerance) const {
    return w.window(ratioAt(v), tolerance * w.pv.atm / factor * (grainsAsRoomy / grainsPerPound));
  }
};

/// Properties as functions of the dry bulb at a wet bulb.
struct PvOfDb {
  double wb, atm;
  double ps;

  PvOfDb(double fixedWb, double pressure) : wb(fixedWb), atm(pressure), ps(pvsAt(wb)) {}
  double operator()(double db) const { return vaporPressureOf(db, wb, atm, ps); }
  double directly(double db) const { return psychro_pv1(db, wb, atm); }
  Window window(double pv, double tolerance) const;
};

struct RhOfDb {
  PvOfDb pv;

  RhOfDb(double wb, double atm) : pv(wb, atm) {}
  double operator()(double db) const { return humidityOf(pv(db), pvsAt(db)); }
  double directly(double db) const { return psychro_rh(db, pv.wb, pv.atm); }
  Window window(double rh, double tolerance) const;
};

struct WOfDb {
  PvOfDb pv;

  WOfDb(double wb, double atm) : pv(wb, atm) {}
  double operator()(double db) const { return ratioOf(pv(db), pv.atm); }
  double directly(double db) const { return psychro_w(db, pv.wb, pv.atm); }
  Window window(double w, double tolerance) const;
};

struct HOfDb {
  WOfDb w;

  HOfDb(double wb, double atm) : w(wb, atm) {}
  double operator()(double db) const { return enthalpyOf(db, w(db)); }
  double directly(double db) const { return psychro_h(db, w.pv.wb, w.pv.atm); }
  Window window(double h, double tolerance) const;
};

struct VOfDb {
  WOfDb w;

  VOfDb(double wb, double atm) : w(wb, atm) {}
  double operator()(double db) const { return volumeOf(volumeFactor(db), w(db), w.pv.atm); }
  double directly(double db) const { return psychro_v(db, w.pv.wb, w.pv.atm); }
  Window window(double v, double tolerance) const;
};

/// psychro_wrh as a function of the dry bulb.
struct WrhOfDb {
  double rh, atm;

  WrhOfDb(double fixedRh, double pressure) : rh(fixedRh), atm(pressure) {}
  double operator()(double db) const { return ratioOfRh(pvsAt(db), rh, atm); }
  double directly(double db) const { return psychro_wrh(db, rh, atm); }
  Window window(double w, double tolerance) const;
};

/// psychro_dp as a function of the vapor pressure, which nothing else touches.
struct DpOfPv {
  DpOfPv(double, double) {}
  double operator()(double pv) const { return psychro_dp(pv); }
  double directly(double pv) const { return psychro_dp(pv); }
  Window window(double dp, double tolerance) const { return vaporPressureWindow(dp, tolerance); }
};

}  // namespace moistair
