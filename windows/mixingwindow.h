/// \file
/// The mixing window.
///
/// A table of three columns: two streams, typed and resolved live, and their mixture. There is no calculate button:
/// every change of a selection or a box resolves its stream and mixes again. The window lays out controls and calls the
/// procedures of its room; what belongs to the main window it reports by signals. The main window opens a new one each
/// time, after the question about the screen's size, and destroys it when it is left.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "advice/streamnotes.h"
#include "chart/chartframe.h"
#include "engine/mixingproblem.h"
#include "model/givenvalues.h"
#include "toolkit/controls.h"
#include "toolkit/dialog.h"
#include "toolkit/listbox.h"
#include "toolkit/messageline.h"
#include "windows/notes.h"

namespace moistair {

/// How the mixing line gets on the chart.
struct MixingChart {
  std::function<LimitTexts()> limits;  ///< texts of the lists, at the moment they are asked for
  /// Draws the line of a problem between limits, or returns the message for what was rejected.
  std::function<const char*(const MixingProblem& problem, const ChartLimits& limits)> draw;
  std::vector<MarkedPoint> points;  ///< on the chart, to be taken as streams
};

/// The streams of the last problem, as they were typed; none before the first.
using LastStreams = std::optional<std::array<AirStream, 2>>;

class MixingWindow final : public Dialog {
  Q_OBJECT

public:
  /// @param pressure cannot change while the main window takes no input
  /// @param last outlives the window, which fills it in when asked to and leaves its own problem there
  MixingWindow(MixingPressure pressure, MixingChart chart, LastStreams& last, QWidget* main);

  /// What became of the data, until the next change.
  void answer(const QString& words);

Q_SIGNALS:
  /// "Save data": the block wants to be appended to the log, and the window stays open.
  void saveChosen(const std::vector<std::string>& block);
  /// The mixing line is on the chart, and the window is to be left.
  void drawn();
  /// The window is to be left, with the problem gone.
  void left();

protected:
  void leave() override;

private:
  struct Inputs : PairBoxes {
    QLineEdit* flow;
  };
  using Readouts = std::array<QLabel*, readoutCount>;  ///< null where the stream has an input instead

  QLayout* makeTable(ControlMaker& maker);
  void makeInputs(ControlMaker& maker, QGridLayout& grid, std::size_t stream);
  void makeReadouts(ControlMaker& maker, QGridLayout& grid);
  QLabel* addReadout(ControlMaker& maker, QGridLayout& grid, const char* name, std::size_t row, std::size_t column);
  QLayout* makeNotes();
  QLayout* makeButtons(ControlMaker& maker);
  QLayout* makeTakeButtons();
  QPushButton* makePointButton();

  void connectInputs(std::size_t stream);
  void onChange(std::size_t stream);
  void showProblem();
  void readInputs(MixingProblem& problem, std::size_t stream) const;
  void judge(std::size_t stream);
  void showNotes(const MixingProblem& problem, std::size_t stream, const Resolution& resolution);
  void useExact(std::size_t stream);
  void showNotes();
  void useExactMixture();
  void fill(const std::array<AirStream, 2>& streams);
  void fillPair(std::size_t number, const AirStream& stream);
  void remember();
  void onSave();
  void onDraw();

  MixingChart chart_;
  LastStreams& last_;
  MixingProblem problem_;
  ChartLimits limits_;  ///< as last read; a list's text that is no number leaves its limit as it was
  std::array<Inputs, 2> inputs_{};
  std::array<Readouts, 3> readouts_{};  ///< of the streams and the mixture
  QLabel* pressureCaption_ = nullptr;
  QPushButton* saveButton_ = nullptr;
  MessageLine* answer_ = nullptr;
  std::array<StreamNotes, 2> notes_;
  std::array<MessageLine*, 2> notesLines_{};  ///< below the table
  MessageLine* mixtureLine_ = nullptr;        ///< below them, about the mixed stream
};

}  // namespace moistair
