#include "ui/widgets/panel_dialog.h"

#include "ui/widgets/look/fonts.h"
#include "ui/widgets/look/icons.h"
#include "ui/widgets/look/tokens.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>

namespace frimbolate {
namespace {

/// The longest file name that Linux and macOS file systems take, in bytes.
constexpr qsizetype longestName = 255;

// Pixels of the 1x layout.
constexpr int panelWidth = 640, panelHeight = 420, placesWidth = 112;

QString textOf(const std::string& text) { return QString::fromStdString(text); }

QString existingFolder(const std::optional<std::string>& directory) {
    const QString wanted = directory ? textOf(*directory) : QString();
    return QFileInfo(wanted).isDir() ? QDir::cleanPath(wanted) : QDir::homePath();
}

} // namespace

PanelDialog::PanelDialog(QWidget* parent, const char* name, const std::string& message,
                         const std::optional<std::string>& directory)
    : QFileDialog(parent) {
    setObjectName(name);
    setWindowModality(Qt::WindowModal);
    setOption(DontUseNativeDialog);
    setOption(DontUseCustomDirectoryIcons);
    setDirectory(existingFolder(directory));
    nameField_ = findChild<QLineEdit*>("fileNameEdit");
    nameField_->setAccessibleName(tr("Name"));
    // The dialog's pop-ups stand beside labels that do not say so.
    for (const char* row : {"lookIn", "fileType"})
        if (auto* label = findChild<QLabel*>(QString(row) + "Label"))
            label->setBuddy(findChild<QComboBox*>(QString(row) + "Combo"));
    // Above the rows of the dialog's own layout, which leaves no place for another.
    layout()->setMenuBar(header(message));
    setUpViews();
    resize(look::scaled(panelWidth), look::scaled(panelHeight));
}

PanelDialog::PanelDialog(const OpenPanel& panel, QWidget* parent)
    : PanelDialog(parent, "openPanel", panel.message, panel.directory) {
    open_ = panel;
    setAcceptMode(AcceptOpen);
    setFileMode(panel.canChooseFiles ? ExistingFile : Directory);
    setOption(ShowDirsOnly, !panel.canChooseFiles);
    setOption(ReadOnly, !panel.canCreateDirectories);
    if (auto* newFolder = findChild<QToolButton*>("newFolderButton"))
        newFolder->setVisible(panel.canCreateDirectories);
    allowTypes(panel.allowedFileTypes);
    setPrompt(panel.prompt);
    connect(this, &QFileDialog::directoryEntered, nameField_, &QLineEdit::clear);
}

PanelDialog::PanelDialog(const SavePanel& panel, QWidget* parent)
    : PanelDialog(parent, "savePanel", panel.message, panel.directory) {
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setOption(ReadOnly, !panel.canCreateDirectories);
    if (auto* newFolder = findChild<QToolButton*>("newFolderButton"))
        newFolder->setVisible(panel.canCreateDirectories);
    setPrompt(panel.prompt);
    nameField_->setText(textOf(panel.nameFieldStringValue));
    nameField_->selectAll();
    nameField_->setFocus();
}

QWidget* PanelDialog::header(const std::string& message) {
    auto* result = new QWidget;
    auto* lines = new QVBoxLayout(result);
    lines->setContentsMargins(12, 12, 12, 0);
    auto* text = new QLabel(textOf(message));
    text->setObjectName("panelMessage");
    refusal_ = new QLabel;
    refusal_->setObjectName("panelRefusal");
    refusal_->setAccessibleName(tr("Cannot be chosen"));
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, look::tokens(colours).warnText);
    refusal_->setPalette(colours);
    refusal_->hide();
    for (QLabel* label : {text, refusal_}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        lines->addWidget(label);
    }
    connect(nameField_, &QLineEdit::textChanged, refusal_, &QLabel::hide);
    return result;
}

void PanelDialog::setPrompt(const std::string& prompt) {
    // The dialog retitles and disables its own button as it sees fit; one it does not know of is
    // left alone.
    auto* box = findChild<QDialogButtonBox*>("buttonBox");
    box->setStandardButtons(QDialogButtonBox::NoButton);
    auto* cancel = box->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName("cancelButton");
    auto* button = box->addButton(textOf(prompt), QDialogButtonBox::AcceptRole);
    button->setObjectName("promptButton");
    button->setDefault(true);
    setWindowTitle(textOf(prompt));
    const bool needsName = !open_ || !open_->canChooseDirectories;
    const auto update = [this, button, needsName] {
        button->setEnabled(!needsName || !nameField_->text().isEmpty());
    };
    connect(nameField_, &QLineEdit::textChanged, button, update);
    update();
}

void PanelDialog::allowTypes(const std::vector<std::string>& extensions) {
    if (extensions.empty())
        return;
    QStringList patterns;
    for (const std::string& extension : extensions)
        patterns.append("*." + textOf(extension));
    setNameFilter(patterns.join(' '));
}

void PanelDialog::setUpViews() {
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(findChild<QListView*>("listView")),
          static_cast<QAbstractItemView*>(findChild<QTreeView*>("treeView"))}) {
        view->setAccessibleName(tr("Files and folders"));
        // Its entries ask their questions in nested event loops.
        view->setContextMenuPolicy(Qt::NoContextMenu);
        // The dialog would enter a bundle where the panel chooses it.
        disconnect(view, &QAbstractItemView::activated, this, nullptr);
        connect(view, &QAbstractItemView::activated, this, &PanelDialog::activate);
        // While a path is typed the dialog selects what begins like it, and takes these names for
        // the typed one whenever the window has lost the keyboard for a moment.
        disconnect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this, nullptr);
        connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this,
                &PanelDialog::currentChanged);
    }
    // Name and date; with the rest the columns would not fit into the panel.
    auto* columns = findChild<QTreeView*>("treeView")->header();
    columns->setStretchLastSection(false);
    columns->setSectionResizeMode(0, QHeaderView::Stretch);
    columns->setSectionResizeMode(3, QHeaderView::ResizeToContents);
    columns->hideSection(1);
    columns->hideSection(2);
    findChild<QSplitter*>("splitter")
        ->setSizes({look::scaled(placesWidth), look::scaled(panelWidth - placesWidth)});
}

QString PanelDialog::pathAt(const QModelIndex& index) const {
    return index.data(QFileSystemModel::FilePathRole).toString();
}

void PanelDialog::activate(const QModelIndex& index) {
    const QString path = pathAt(index);
    if (QFileInfo(path).isDir() && !isBundle(path))
        return enter(path);
    nameField_->setText(QFileInfo(path).fileName());
    accept();
}

void PanelDialog::currentChanged(const QModelIndex& index) {
    const QString path = pathAt(index);
    if (!index.isValid())
        return;
    // A folder that cannot be chosen is a place to enter and leaves the name as it is.
    const bool canBeChosen =
        !QFileInfo(path).isDir() || (open_ && (open_->canChooseDirectories || isBundle(path)));
    if (canBeChosen)
        nameField_->setText(QFileInfo(path).fileName());
}

void PanelDialog::enter(const QString& folder) {
    setDirectory(folder);
    if (open_)
        nameField_->clear();
}

QString PanelDialog::typedPath() const {
    QString name = nameField_->text();
    if (name == "~" || name.startsWith("~/"))
        name.replace(0, 1, QDir::homePath());
    return QDir::cleanPath(directory().absoluteFilePath(name));
}

void PanelDialog::accept() {
    const QString path = typedPath();
    open_ ? acceptOpen(path) : acceptSave(path);
}

void PanelDialog::acceptOpen(const QString& path) {
    if (QFileInfo(path).isDir() && !isBundle(path) && !open_->canChooseDirectories)
        return enter(path);
    const PanelChoice choice = tryToChoose(*open_, path);
    choice.refusal.isEmpty() ? choose(choice.path) : refuse(choice.refusal);
}

void PanelDialog::acceptSave(const QString& path) {
    const QFileInfo item(path);
    if (isUnreadableName(path))
        return refuse(tr("This name cannot be read as text. Give the item another name first."));
    if (nameField_->text().isEmpty())
        return;
    if (item.isDir())
        return enter(path);
    if (!item.dir().exists())
        return refuse(tr("The folder “%1” does not exist.").arg(item.path()));
    if (QFile::encodeName(item.fileName()).size() > longestName)
        return refuse(tr("The name is too long."));
    // A link that leads nowhere is there all the same.
    item.exists() || item.isSymLink() ? askToReplace(path) : choose(path);
}

void PanelDialog::askToReplace(const QString& path) {
    const QFileInfo item(path);
    auto* question =
        new QMessageBox(QMessageBox::NoIcon, windowTitle(),
                        tr("“%1” already exists. Do you want to replace it?").arg(item.fileName()),
                        QMessageBox::NoButton, this);
    const int iconSide = look::scaled(40);
    question->setIconPixmap(
        look::toolIcon("warning").pixmap(QSize(iconSide, iconSide), devicePixelRatioF()));
    question->setObjectName("replaceAlert");
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setWindowModality(Qt::WindowModal);
    question->setTextFormat(Qt::PlainText);
    question->setInformativeText(
        tr("What the file in “%1” holds now will be lost.").arg(item.dir().dirName()));
    auto* replace = question->addButton(tr("Replace"), QMessageBox::AcceptRole);
    auto* cancel = question->addButton(tr("Cancel"), QMessageBox::RejectRole);
    question->setDefaultButton(cancel);
    question->setEscapeButton(cancel);
    connect(replace, &QPushButton::clicked, this, [this, path] { choose(path); });
    question->open();
}

void PanelDialog::choose(const QString& path) {
    chosenPath_ = path;
    chosenName_ = QFileInfo(path).fileName();
    // Not the file dialog's own accept(): that one asks with a nested event loop.
    QDialog::accept();
}

void PanelDialog::refuse(const QString& reason) {
    refusal_->setText(reason);
    refusal_->show();
    nameField_->setFocus();
}

} // namespace frimbolate
