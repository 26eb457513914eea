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

inline constexpr std::array<Name<PressureUnit>, 4> unitNames = {{{PressureUnit::standard, "standard"},
                                                                 {PressureUnit::inhg, "inhg"},
                                                                 {PressureUnit::psi, "psi"},
                                                                 {PressureUnit::elevation, "elevation"}}};
inline constexpr std::array<Name<ChartType>, 2> typeNames = {
    {{ChartType::standard, "standard"}, {ChartType::blank, "blank"}}};
inline constexpr std::array<Name<LineKind>, 4> lineNames = [] {
  std::array<Name<LineKind>, 4> names{};
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto kind = static_cast<LineKind>(i);
    names[i] = {kind, nameOf(propertyOf(kind))};
  }
  return names;
}();

inline constexpr std::array<Name<LabelCorner>, 4> labelCornerNames = {{{LabelCorner::upperLeft, "upper left"},
                                                                       {LabelCorner::upperRight, "upper right"},
                                                                       {LabelCorner::lowerLeft, "lower left"},
                                                                       {LabelCorner::lowerRight, "lower right"}}};

/// What a column of the mixing window shows beyond what was typed: its pressure, its state and the rows behind it.
inline constexpr std::array<Name<std::string AirStream::*>, readoutCount - 1> columnNames = [] {
  std::array<Name<std::string AirStream::*>, readoutCount - 1> names{};
  for (std::size_t i = 0; i < names.size(); ++i) names[i] = {readoutRows[i + 1].text, readoutRows[i + 1].key};
  for (std::size_t i = 0; i < heldCount; ++i) names[i + 1] = {propertyTable[i].text, propertyTable[i].key};
  return names;
}();

template <class Value, std::size_t size>
const char* nameOf(const std::array<Name<Value>, size>& names, Value value) {
  const auto same = [&](const Name<Value>& name) { return name.value == value; };
  return std::find_if(names.begin(), names.end(), same)->name;
}

inline bool hasLimits(const Entry& entry) { return !std::holds_alternative<HeaderLine>(entry.content); }

}  // namespace moistair
