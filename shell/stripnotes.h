/// \file
/// What is said beside the boxes and lists of the strip.
#pragma once

#include <QMenu>
#include <QObject>
#include <array>

#include "document/chartcommands.h"
#include "session/pairnotes.h"
#include "session/sessionlog.h"
#include "shell/statusline.h"
#include "shell/strip.h"

namespace moistair {

/// Marks the controls of the strip and keeps the status line: it watches the boxes and lists that decide nothing by
/// themselves, and is told of the pair at every live resolution and of everything else that changes. What it says comes
/// from plain functions; it changes nothing but by `useexact`.
class StripNotes final : public QObject {
public:
  StripNotes(Strip& strip, StatusLine& line, const ChartCommands& chart, const SessionValues& values, SessionLog& log);

  /// The pair in the boxes has been resolved anew, or refused.
  void showpair(const PairNotes& notes);

  /// To be called after everything that may change the pressure in force, the chart or the log.
  void follow();

  /// What a click in the status line does, for the keyboard.
  void fillmenu(QMenu& menu);

  /// Puts the exact dry and wet bulb of the remark into the boxes, as if they had been chosen and typed.
  void useexact();

private:
  void marklines();
  void speak();
  void tellempty();

  Strip& strip_;
  StatusLine& line_;
  const ChartCommands& chart_;
  const SessionValues& values_;
  SessionLog& log_;
  PairNotes pair_;
  std::string linewords_;  ///< of the boxes of lines
};

}  // namespace moistair
