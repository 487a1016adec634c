// The lists of a file panel, which show and never change what is on the disk.
#pragma once

#include <QString>
#include <QUrl>

class QFileDialog;

namespace frimbolate {

/// Makes the views of the dialog look like the rest of the program, and takes from them every way
/// to delete, rename, move or copy an entry or a place of the side bar: keys, menus, editing in
/// place, dragging.
void setUpPanelViews(QFileDialog& dialog);

/// What the side bar offers: home, desktop, applications and LaunchAgents, as far as they exist.
/// \param folder where the panel starts; a LaunchAgents folder elsewhere than in the home is told
///        by it
QList<QUrl> panelPlaces(const QString& folder);

/// Lights the entry of that path in the folder shown, now or as soon as it is listed.
void lightEntry(QFileDialog& dialog, const QString& path);

} // namespace frimbolate
