/// \file
/// Numbers to texts and back, the same on every machine and in every locale.
///
/// The program keeps many numbers as text: the text in an input box or a read-out is the store of its value, and a
/// later step reads the text back, rounded as shown there. These are the only ways in which it does so.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace moistair {

/// The number that the whole text is; no value (NaN) if it is none.
/// Blanks or line breaks around it, a sign, digits, one decimal point and an exponent are accepted, nothing else: no
/// hexadecimal, "nan", "inf" or group separators. A number too large for a double is none; one too small reads 0.
double strictNumber(std::string_view text);

/// The number that the text begins with, leading blanks skipped; 0 if it begins with none or overflows.
/// An exponent counts only if it is complete: "12e" gives 12.
double lenientNumber(std::string_view text);

/// At most 15 significant digits with a zero before the decimal point: "0.4911541", "1500", "1E-07". The exponent form
/// is used for magnitudes below 1e-4 and from 1e15. Empty for no value.
std::string numberText(double number);

/// How every property is shown: seven decimals of the 15-digit text, rounded half away from zero, no digit before the
/// point when the magnitude is below 1 ("75.0000000", ".0092932"), and never a negative zero.
/// Empty for exactly -1 and for no value.
std::string showValue(double number);

/// So many decimals with a zero before the point, rounded like those of `showValue`: "0.2386". Empty for no value.
std::string fixedDecimals(double number, int decimals);

/// Appends a number with up to fifteen decimals of its 15-digit text, rounded half away from zero; never a negative
/// zero. `zero`, nothing or "0", precedes the point when the magnitude is below 1. Nothing for no value.
void appendFixed(std::string& out, double number, int decimals, std::string_view zero);

/// The number rounded to so many decimals, up to fifteen, halves away from zero, as far as a double can be.
double roundedTo(double number, int decimals);

/// The number that its text of 15 significant digits is; no value for no value.
double fifteenDigits(double number);

/// A number as it is printed on the chart: 15 significant digits, a blank (or the minus sign) before it, a blank behind
/// it, no zero before a decimal point: " 100 ", " .015 ", "-.5 ".
std::string printedNumber(double number);

/// A number stored as text: what reads it back gets it rounded to 15 significant digits. The text of a number is made
/// when someone looks at it; searches that pass numbers on only pay for the rounding.
class NumberText {
public:
  NumberText() = default;
  explicit NumberText(std::string text) : text_(std::move(text)) {}

  /// Stores the number; one that has no value leaves the store as it was.
  void set(double number);
  void setText(std::string text);

  std::string text() const { return isNumber_ ? numberText(number_) : text_; }
  double strict() const { return isNumber_ ? rounded_ : strictNumber(text_); }
  double lenient() const { return isNumber_ ? rounded_ : lenientNumber(text_); }

private:
  bool isNumber_ = false;
  double number_ = 0, rounded_ = 0;
  std::string text_;
};

}  // namespace moistair
