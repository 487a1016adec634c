// A file panel: the toolkit's file dialog with the rules of the program's panels.
//
// It adds to the toolkit's dialog: an application bundle is chosen like a file, files and folders
// can be choosable at once, and a save panel asks before it replaces, without blocking for the
// answer. A name that is not UTF-8 on disk cannot be represented as text; the panel rejects it.
//
// It removes from the toolkit's dialog every way to delete, rename or move. The only change that a
// panel makes on the disk is a new folder, if it offers one.
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

    /// The chosen path, absolute; nothing until the panel was accepted.
    const std::optional<QString>& chosenPath() const { return chosenPath_; }
    /// The name of the chosen file; empty until the panel was accepted.
    const QString& chosenName() const { return chosenName_; }

  public slots:
    void accept() override;

  private:
    PanelDialog(QWidget* parent, const char* name, const std::string& message,
                const std::optional<std::string>& directory);
    QWidget* header(const std::string& message);
    void addRejectionLabel();
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
    void hideRejection();

    QString pathAt(const QModelIndex& index) const;
    QString typedPath() const;
    bool isBundle(const QString& path) const { return open_ && frimbolate::isBundle(*open_, path); }

    std::optional<OpenPanel> open_; ///< the rules of an open panel; none in a save panel
    QLineEdit* nameField_;
    WrappedText* rejectionLabel_ = nullptr;
    std::optional<QString> chosenPath_;
    QString chosenName_;
    /// Settings that the toolkit shares among all programs that use its dialog; restored at the
    /// end.
    QList<QUrl> sharedPlaces_;
    QByteArray sharedColumns_;
    SheetQueue sheets_{*this}; ///< alerts and sheets on the panel itself
    QtAlerts alerts_{sheets_, *this};
};

} // namespace frimbolate
