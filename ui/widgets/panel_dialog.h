// A file panel: the toolkit's own file dialog, taught the rules of the program's panels.
//
// Three things the toolkit does not do by itself: a folder whose extension is among the allowed
// types (an application bundle) is chosen like a file, files and folders can be choosable at once,
// and a save panel asks before it replaces without waiting for the answer. A name that is not
// UTF-8 on disk cannot be handed on as text and is refused in the panel.
#pragma once

#include "ui/widgets/panel_rules.h"

#include <QFileDialog>

#include <optional>

class QLabel;
class QLineEdit;
class QModelIndex;

namespace frimbolate {

class PanelDialog : public QFileDialog {
    Q_OBJECT

  public:
    PanelDialog(const OpenPanel& panel, QWidget* parent);
    PanelDialog(const SavePanel& panel, QWidget* parent);

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
    void setPrompt(const std::string& prompt);
    void allowTypes(const std::vector<std::string>& extensions);
    void setUpViews();

    void activate(const QModelIndex& index);
    void currentChanged(const QModelIndex& index);
    void enter(const QString& folder);

    void acceptOpen(const QString& path);
    void acceptSave(const QString& path);
    void askToReplace(const QString& path);
    void choose(const QString& path);
    void refuse(const QString& reason);

    QString pathAt(const QModelIndex& index) const;
    QString typedPath() const;
    bool isBundle(const QString& path) const { return open_ && frimbolate::isBundle(*open_, path); }

    std::optional<OpenPanel> open_; ///< the rules of an open panel; none in a save panel
    QLineEdit* nameField_;
    QLabel* refusal_ = nullptr;
    std::optional<QString> chosenPath_;
    QString chosenName_;
};

} // namespace frimbolate
