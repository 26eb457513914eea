#include "comfort/settemperature.h"

#include <algorithm>
#include <cmath>

#include "engine/crossing.h"
#include "text/value.h"

namespace moistair {

namespace {

// The body of the model: set points [deg C], size, and how strongly it answers to warmth and cold.
constexpr double neutralSkin = 33.7, neutralCore = 36.8, neutralBody = 36.49;
constexpr double neutralBloodFlow = 6.3;  // L/h m2
constexpr double bodyMass = 69.9;         // kg
constexpr double bodyArea = 1.8258;       // m2
constexpr double dilation = 120, constriction = 0.5, sweating = 170;
constexpr double stefanBoltzmann = 5.6697e-8;
constexpr double torrPerKilopascal = 7.500617;
constexpr double wattsPerMet = 58.2;
constexpr int minutes = 60;

/// Saturation pressure over water [torr], as the model was fitted with.
double saturationTorr(double temperature) { return std::exp(18.6686 - 4030.183 / (temperature + 235)); }

/// Heat and vapor between the skin and the room, for one kind of clothing and air.
struct Surroundings {
  double clothing;         ///< resistance [m2 K/W]
  double area;             ///< of the clothed body over that of the bare one
  double convection;       ///< [W/m2 K]
  double lewis;            ///< evaporation over convection [K/torr]
  double vaporPermeation;  ///< clothing's for vapor over that for heat
};

/// What an hour has made of the body.
struct Body {
  double skin = neutralSkin, core = neutralCore;
  double bloodFlow = neutralBloodFlow;
  double skinShare = 0.1;  ///< of the body's mass
  double evaporation;      ///< from the skin [W/m2]
  double heat;             ///< made, shivering included [W/m2]
  double wettedness = 0.06;
  double dry = 0;          ///< heat that the skin gives off dry [W/m2]
  double radiation = 4.7;  ///< coefficient [W/m2 K]
  double clothing = 0;     ///< its temperature
  bool settled = true;     ///< whether clothing and radiation have come to a balance
};

double excess(double value, double neutral) { return std::max(value - neutral, 0.0); }

/// Radiation follows from the temperature of the clothing, which follows from radiation.
void settleClothing(Body& body, const StillBody& room, const Surroundings& around) {
  constexpr int mostSteps = 100;
  constexpr double settled = 0.01;
  for (int step = 0; step < mostSteps; ++step) {
    const double mean = (body.clothing + room.radiantTemperature) / 2 + 273.15;
    body.radiation = 4 * stefanBoltzmann * mean * mean * mean * 0.72;
    const double combined = body.radiation + around.convection;
    const double air = 1 / (around.area * combined);
    const double operative =
        (body.radiation * room.radiantTemperature + around.convection * room.airTemperature) / combined;
    const double clothing = (air * body.skin + around.clothing * operative) / (air + around.clothing);
    body.dry = (body.skin - operative) / (air + around.clothing);
    const bool done = std::abs(clothing - body.clothing) <= settled;
    body.clothing = clothing;
    if (done) return;
  }
  body.settled = false;
}

/// Sweat and what diffuses through the skin, up to what the air takes up.
void evaporate(Body& body, const StillBody& room, const Surroundings& around, double sweat, double mostWetted) {
  const double air = 1 / (around.lewis * around.area * around.convection);
  const double through = around.clothing / (around.lewis * around.vaporPermeation);
  const double most = (saturationTorr(body.skin) - room.vaporPressure * torrPerKilopascal) / (air + through);
  double share = sweat / most;
  body.wettedness = 0.06 + 0.94 * share;
  double diffusion = body.wettedness * most - sweat;
  if (body.wettedness > mostWetted) {
    body.wettedness = mostWetted;
    share = mostWetted / 0.94;
    sweat = share * most;
    diffusion = 0.06 * (1 - share) * most;
  }
  if (most < 0) {
    body.wettedness = mostWetted;
    sweat = diffusion = 0;
  }
  body.evaporation = sweat + diffusion;
}

void liveMinute(Body& body, const StillBody& room, const Surroundings& around, double mostWetted) {
  settleClothing(body, room, around);
  const double inward = (body.core - body.skin) * (5.28 + 1.163 * body.bloodFlow);
  const double breath = 0.0023 * body.heat * (44 - room.vaporPressure * torrPerKilopascal) +
                        0.0014 * body.heat * (34 - room.airTemperature);
  const double capacity = 0.97 * bodyMass * 60 / bodyArea;
  const double skinGain = inward - body.dry - body.evaporation;
  const double coreGain = body.heat - inward - breath;
  body.skin += skinGain / (capacity * body.skinShare);
  body.core += coreGain / (capacity * (1 - body.skinShare));
  const double mean = body.skinShare * body.skin + (1 - body.skinShare) * body.core;
  const double warmSkin = excess(body.skin, neutralSkin);
  const double coldSkin = excess(neutralSkin, body.skin);
  const double warmCore = excess(body.core, neutralCore);
  const double coldCore = excess(neutralCore, body.core);
  body.bloodFlow = std::clamp((neutralBloodFlow + dilation * warmCore) / (1 + constriction * coldSkin), 0.5, 90.0);
  const double sweat = std::min(sweating * excess(mean, neutralBody) * std::exp(warmSkin / 10.7), 500.0);
  evaporate(body, room, around, 0.68 * sweat, mostWetted);
  body.heat = room.met * wattsPerMet + 19.4 * coldSkin * coldCore;
  body.skinShare = 0.0417737 + 0.7451833 / (body.bloodFlow + 0.585417);
}

/// Heat that the skin would give off in the standard room of a temperature, less what it gives off [W/m2].
double shortfall(const Body& body, const StillBody& room, double lewis, double temperature) {
  const double convection = std::max(3.0, room.met < 0.85 ? 3.0 : 5.66 * std::pow(room.met - 0.85, 0.39));
  const double combined = convection + body.radiation;
  const double clo = 1.52 / (room.met + 0.6944) - 0.1835;
  const double clothing = 0.155 * clo;
  const double area = 1 + 0.25 * clo;
  const double efficiency = 1 / (1 + 0.155 * area * combined * clo);
  constexpr double permeation = 0.45;
  const double vapor =
      permeation * convection / combined * (1 - efficiency) / (convection / combined - efficiency * permeation);
  const double dry = 1 / (1 / (area * combined) + clothing);
  const double wet = 1 / (1 / (lewis * area * convection) + clothing / (lewis * vapor));
  const double given = body.dry + body.evaporation;
  return given - dry * (body.skin - temperature) -
         body.wettedness * wet * (saturationTorr(body.skin) - 0.5 * saturationTorr(temperature));
}

/// Where a function takes the value 0; no value if it has the same sign at both ends.
template <class Function>
double rootOf(const Function& function, double low, double high) {
  const double atLow = function(low);
  const double atHigh = function(high);
  return atLow <= 0 && atHigh >= 0 ? crossing(function, low, atLow, high, atHigh) : noValue;
}

}  // namespace

StillBody coolerBy(const StillBody& body, double effect) {
  StillBody cooler = body;
  cooler.airTemperature -= effect;
  cooler.radiantTemperature -= effect;
  cooler.vaporPressure *= saturationTorr(cooler.airTemperature) / saturationTorr(body.airTemperature);
  return cooler;
}

double standardEffectiveTemperature(const StillBody& room, double speed) {
  const double moving = std::max(speed, stillAir);
  const double atmospheres = 0.009869 * room.pressure;
  const double convection = std::max(3 * std::pow(atmospheres, 0.53), 8.600001 * std::pow(moving * atmospheres, 0.53));
  const Surroundings around{0.155 * room.clo, 1 + 0.15 * room.clo, convection, 2.2 / atmospheres,
                            room.clo > 0 ? 0.45 : 1.0};
  const double mostWetted = room.clo > 0 ? 0.59 * std::pow(moving, -0.08) : 0.38 * std::pow(moving, -0.29);
  Body body;
  body.evaporation = 0.1 * room.met;
  body.heat = room.met * wattsPerMet;
  const double operative =
      (body.radiation * room.radiantTemperature + convection * room.airTemperature) / (body.radiation + convection);
  const double outside = 1 / (around.area * (body.radiation + convection));
  body.clothing = operative + (body.skin - operative) * outside / (outside + around.clothing);
  for (int minute = 0; minute < minutes; ++minute) liveMinute(body, room, around, mostWetted);
  if (!body.settled) return noValue;
  return rootOf([&](double temperature) { return shortfall(body, room, around.lewis, temperature); }, -100, 100);
}

double coolingEffect(const StillBody& body, double speed) {
  const double felt = standardEffectiveTemperature(body, speed);
  const auto difference = [&](double effect) {
    return felt - standardEffectiveTemperature(coolerBy(body, effect), stillAir);
  };
  return rootOf(difference, 0, 40);
}

}  // namespace moistair
