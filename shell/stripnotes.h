/// \file
/// What is said beside the boxes and lists of the strip.
#pragma once

#include <QMenu>
#include <QObject>
#include <array>
#include <functional>

#include "advice/pairnotes.h"
#include "log/sessionlog.h"
#include "model/chartcommands.h"
#include "shell/statusline.h"
#include "shell/strip.h"

namespace moistair {

/// Marks the controls of the strip and keeps the status line: it watches the boxes and lists that decide nothing by
/// themselves, and is told of the pair at every live resolution and of everything else that changes. What it says comes
/// from plain functions; it changes nothing but by `useexact`.
///
/// The live row changes at keys only, but what its pair has does with the pressure, the lists and the chart. So the
/// pair is judged anew whenever one of these is another one, on fields of its own, and a row that shows something else
/// than would now be found is told.
class StripNotes final : public QObject {
public:
  /// @param area what the range finders look at: the limits in the lists on the chart last drawn
  StripNotes(Strip& strip, StatusLine& line, const ChartCommands& chart, const SessionValues& values, SessionLog& log,
             std::function<PlotArea()> area);

  /// The pair in the boxes has been resolved anew, or refused, and the live row is about to show it.
  void showpair(const Resolution& resolution);

  /// The same by "Locate point", which leaves the row as it is.
  void located(const Location& location);

  /// The row now shows the point that was located, or is empty.
  void rowshown();

  /// To be called after everything that may change the pressure in force, the chart or the log.
  void follow();

  /// What a click in the status line does, for the keyboard.
  void fillmenu(QMenu& menu);

  /// Puts the exact dry and wet bulb of the remark into the boxes, as if they had been chosen and typed.
  void useexact();

private:
  /// What the resolution of the pair rests on besides the pair.
  struct Ground {
    PairInput input;
    double atm;
    PlotArea area;
    bool chartstands;

    bool operator==(const Ground&) const = default;
  };

  Ground ground() const;
  void judge(const Resolution& resolution);
  void judgeanew();
  std::string rowwords() const;
  void marklines();
  void speak();
  void tellempty();

  Strip& strip_;
  StatusLine& line_;
  const ChartCommands& chart_;
  const SessionValues& values_;
  SessionLog& log_;
  std::function<PlotArea()> area_;
  PairNotes pair_;
  Resolution resolution_;  ///< that they are of
  Ground ground_;          ///< and what it rests on
  double rowatm_ = 0;      ///< pressure at which the row was worked out [in Hg]
  std::string rowwords_;   ///< of a row that is not of that resolution
  std::string linewords_;  ///< of the boxes of lines
};

}  // namespace moistair
