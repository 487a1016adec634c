// A file panel: the toolkit's own file dialog, taught the rules of the program's panels.
//
// What the toolkit does not do by itself: an application bundle is chosen like a file, files and
// folders can be choosable at once, and a save panel asks before it replaces without waiting for
// the answer. A name that is not UTF-8 on disk cannot be handed on as text and is refused in the
// panel.
//
// What it does and a panel of the program must not: delete, rename, move. The one change that a
// panel makes is the new folder, where it offers one.
#pragma once

#include "widgets/controls/file_panel_rules.h"
#include "widgets/sheets/qt_alerts.h"
#include "widgets/sheets/sheet_queue.h"

#include <QFileDialog>
#include <QUrl>

#include <optional>

class QLineEdit;
class QModelIndex;

namespace frimbolate {

class WrappedText;

class PanelDialog : public QFileDialog {
    Q_OBJECT

  public:
    PanelDialog(const OpenPanel& panel, QWidget* parent);
    PanelDialog(const SavePanel& panel, QWidget* parent);
    ~PanelDialog() override;

    /// The path chosen, absolute; nothing until the panel was accepted.
    const std::optional<QString>& chosenPath() const { return chosenPath_; }
    /// The file name as it stood in the name field when the panel was accepted.
    const QString& chosenName() const { return chosenName_; }

  public slots:
    void accept() override;

  private:
    PanelDialog(QWidget* parent, const char* name, const std::string& message,
                const std::optional<std::string>& directory);
    QWidget* header(const std::string& message);
    void addRefusal();
    void setUpForm();
    void setUpNavigation();
    void setPrompt(const std::string& prompt);
    void setTitle(const QString& title);
    void allowTypes(const std::vector<std::string>& extensions);
    void offerNewFolder(bool offers);

    void activate(const QModelIndex& index);
    void currentChanged(const QModelIndex& index);
    void enter(const QString& folder);
    void suggest(const QString& name);
    void askForNewFolder();
    void newFolderMade(const QString& path);

    void acceptOpen(const QString& path);
    void acceptSave(const QString& path);
    void askToReplace(const QString& path);
    void choose(const QString& path);
    void showRejection(const QString& reason);
    void withdrawRefusal();

    QString pathAt(const QModelIndex& index) const;
    QString typedPath() const;
    bool isBundle(const QString& path) const { return open_ && frimbolate::isBundle(*open_, path); }

    std::optional<OpenPanel> open_; ///< the rules of an open panel; none in a save panel
    QLineEdit* nameField_;
    WrappedText* rejectionLabel_ = nullptr;
    std::optional<QString> chosenPath_;
    QString chosenName_;
    /// What the toolkit shares among all programs that use its panels.
    QList<QUrl> sharedPlaces_;
    QByteArray sharedColumns_;
    SheetQueue sheets_{*this}; ///< what is shown on the panel itself
    QtAlerts alerts_{sheets_, *this};
};

} // namespace frimbolate
