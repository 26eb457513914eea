/// \file
/// The notes next to the boxes and lists of the strip.
#pragma once

#include <QMenu>
#include <QObject>
#include <array>

#include "advice/pairnotes.h"
#include "log/sessionlog.h"
#include "shell/chartcontroller.h"
#include "shell/statusline.h"
#include "shell/strip.h"

namespace moistair {

/// Marks the controls of the strip and keeps the status line: it watches the boxes and lists that decide nothing by
/// themselves, and gets the pair at every live resolution and everything else that changes. What it says comes
/// from plain functions; it changes nothing but by `useExact`.
///
/// The live row changes at keys only, but what its pair has does with the pressure, the lists and the chart. So the
/// pair is judged again whenever one of these is another one, on fields of its own, and a row that shows something else
/// than would now be found is reported.
class StripNotes final : public QObject {
public:
  StripNotes(Strip& strip, StatusLine& line, ChartController& chart, SessionLog& log);

  /// The pair in the boxes has been resolved again, or refused, and the live row is about to show it.
  void showPair(const Resolution& resolution);

  /// The same by "Locate point", which leaves the row as it is.
  void located(const Location& location);

  /// The row now shows the point that was located, or is empty.
  void rowShown();

  /// To be called after what changes the log; changes of the chart are heard.
  void follow();

  /// What a click in the status line does, for the keyboard.
  void fillMenu(QMenu& menu);

  /// Puts the exact dry and wet bulb of the remark into the boxes, as if they had been chosen and typed.
  void useExact();

private:
  /// What the resolution of the pair rests on besides the pair.
  struct PairContext {
    PairInput input;
    double atm;
    PlotArea area;
    bool hasCurrentChart;

    bool operator==(const PairContext&) const = default;
  };

  PairContext pairContext() const;
  void judge(const Resolution& resolution);
  void judgeAgain();
  std::string rowWords() const;
  void markLines();
  void announce();
  void announceEmpty();

  Strip& strip_;
  StatusLine& line_;
  const ChartController& chart_;
  SessionLog& log_;
  PairNotes pair_;
  Resolution resolution_;  ///< that they are of
  PairContext context_;    ///< and what it rests on
  double rowAtm_ = 0;      ///< pressure at which the row was worked out [in Hg]
  std::string rowWords_;   ///< of a row that is not of that resolution
  std::string lineWords_;  ///< of the boxes of lines
};

}  // namespace moistair
