/// \file
/// What things are called in a document's file.
#pragma once

#include <algorithm>
#include <array>
#include <string>

#include "model/document.h"

namespace moistair {

/// A value and its name in files.
template <class Value>
struct Name {
  Value value;
  const char* name;
};

inline constexpr std::array<Name<PressureUnit>, 4> unitnames = {{{PressureUnit::standard, "standard"},
                                                                 {PressureUnit::inhg, "inhg"},
                                                                 {PressureUnit::psi, "psi"},
                                                                 {PressureUnit::elevation, "elevation"}}};
inline constexpr std::array<Name<ChartType>, 2> typenames = {
    {{ChartType::standard, "standard"}, {ChartType::blank, "blank"}}};
inline constexpr std::array<Name<LineKind>, 4> linenames = {{{LineKind::relativehumidity, "rh"},
                                                             {LineKind::wetbulb, "wb"},
                                                             {LineKind::enthalpy, "h"},
                                                             {LineKind::specificvolume, "v"}}};

inline constexpr std::array<Name<Corner>, 4> cornernames = {{{Corner::upperleft, "upper left"},
                                                             {Corner::upperright, "upper right"},
                                                             {Corner::lowerleft, "lower left"},
                                                             {Corner::lowerright, "lower right"}}};

/// All of a state, in the order of the kinds with the vapour pressure behind them.
inline constexpr std::array<Name<double StatePoint::*>, 8> statenames = {{{&StatePoint::db, "db"},
                                                                          {&StatePoint::wb, "wb"},
                                                                          {&StatePoint::rh, "rh"},
                                                                          {&StatePoint::w, "w"},
                                                                          {&StatePoint::h, "h"},
                                                                          {&StatePoint::dp, "dp"},
                                                                          {&StatePoint::v, "v"},
                                                                          {&StatePoint::pv, "pv"}}};

/// What a column of the mixing window shows beyond what was typed.
inline constexpr std::array<Name<std::string AirStream::*>, 13> columnnames = {{{&AirStream::pressure, "pressure"},
                                                                                {&AirStream::db, "db"},
                                                                                {&AirStream::wb, "wb"},
                                                                                {&AirStream::rh, "rh"},
                                                                                {&AirStream::w, "w"},
                                                                                {&AirStream::h, "h"},
                                                                                {&AirStream::dp, "dp"},
                                                                                {&AirStream::v, "v"},
                                                                                {&AirStream::pv, "pv"},
                                                                                {&AirStream::pvsat, "pvsat"},
                                                                                {&AirStream::dryrate, "dryrate"},
                                                                                {&AirStream::vaporrate, "vaporrate"},
                                                                                {&AirStream::moistrate, "moistrate"}}};

template <class Value, std::size_t size>
const char* nameof(const std::array<Name<Value>, size>& names, Value value) {
  const auto same = [&](const Name<Value>& name) { return name.value == value; };
  return std::find_if(names.begin(), names.end(), same)->name;
}

inline bool haslimits(const Entry& entry) { return !std::holds_alternative<HeaderLine>(entry.content); }

}  // namespace moistair
