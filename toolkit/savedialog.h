/// \file
/// The save dialog.
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <optional>

namespace moistair {

/// What one use of the save dialog shows.
struct SaveRequest {
  QString title;
  QStringList filters;  ///< in the form of QFileDialog; the first is selected
  QString path = {};    ///< to begin with; that of the last use if there is none
};

/// The system's save dialog, one for all uses: it opens with the name of its last use. It asks before overwriting,
/// stays open until the folder exists and adds no ending of its own.
class SaveDialog {
public:
  /// The path chosen, none if the user canceled.
  std::optional<QString> ask(QWidget* parent, const SaveRequest& request);

  const QString& lastFilter() const { return filter_; }  ///< filter when the last path was chosen

private:
  QString path_;
  QString filter_;
};

/// Gives a name chosen in the dialog its ending, if it has none of these: the first. The dialog has not asked about the
/// name so made, so a file of that name is asked about here; none if it is to stay.
std::optional<QString> completeName(QWidget* parent, const QString& title, QString path, const QStringList& endings);

}  // namespace moistair
