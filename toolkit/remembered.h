/// \file
/// What the program remembers of how its user works, from one session to the next.
///
/// Conveniences only: the folder of the last file, the options of the last sheet, where the table is. Nothing that a
/// digit depends on, and nothing that is chosen before its user chooses it. Kept in the user's settings folder by
/// QSettings, which writes a new file and moves it there; where that cannot be written, nothing is remembered and all
/// works.
#pragma once

#include <QString>
#include <QVariant>

namespace moistair {

/// Names of what is remembered.
namespace memory {
inline constexpr const char* folder = "folder";               ///< of the last file [path]
inline constexpr const char* elevation = "elevation";         ///< last set, as typed [ft]
inline constexpr const char* tableColumns = "table/columns";  ///< as EntriesPanel::columnArrangement
inline constexpr const char* docks = "docks";                 ///< places of docks, as QMainWindow::saveState
inline constexpr const char* view = "view";                   ///< whether the chart is shown as a sheet
inline constexpr const char* sheet = "sheet";                 ///< options of the last sheet
}  // namespace memory

/// Null if it was never remembered.
QVariant remembered(const char* name);

void remember(const char* name, const QVariant& value);

/// Everything as it was before the first session.
void forgetAll();

}  // namespace moistair
