/// \file
/// What was typed in the boxes of the pair, while a place chosen on the chart is in them.
#pragma once

#include <QObject>
#include <array>
#include <optional>

#include "shell/strip.h"

namespace moistair {

/// A click on the chart replaces both lists and both values. What a person had put there can be put back while the
/// place is in the boxes: by `putBack`, or by Ctrl+Z in one of the two boxes. A second click keeps what was there
/// before the first.
class TypedPair final : public QObject {
  Q_OBJECT

public:
  explicit TypedPair(Strip& strip);

  /// Puts a place of the chart into the boxes.
  void take(const QString& dryBulb, const QString& ratio);

  void putBack();

  /// What can be put back, in words; empty for nothing.
  QString words() const;

Q_SIGNALS:
  void changed();  ///< what can be put back

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  struct Side {
    QString kind, value;

    bool operator==(const Side&) const = default;
  };
  using Sides = std::array<Side, 2>;

  Sides sides() const;
  void put(const Sides& sides);

  Strip& strip_;
  std::optional<Sides> taken_;     ///< from the chart
  std::optional<Sides> replaced_;  ///< by it
};

}  // namespace moistair
