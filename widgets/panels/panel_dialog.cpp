#include "widgets/panels/panel_dialog.h"

#include "widgets/controls/accessible_description.h"
#include "widgets/controls/wrapped_text.h"
#include "widgets/panels/panel_views.h"
#include "widgets/sheets/new_folder_sheet.h"
#include "widgets/style/fonts.h"
#include "widgets/style/style.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>

namespace frimbolate {
namespace {

// Pixels of the 1x layout.
constexpr int dialogWidth = 640, dialogHeight = 480, placesWidth = 152, margin = 24, dialogGap = 8;

QString existingFolder(const std::optional<std::string>& directory) {
    const QString wanted = directory ? QString::fromStdString(*directory) : QString();
    return QFileInfo(wanted).isDir() ? QDir::cleanPath(wanted) : QDir::homePath();
}

/// The message in one line: its first sentence, without parenthesised parts.
QString titleOf(const std::string& message) {
    QString title = QString::fromStdString(message).simplified();
    for (const char* end : {". ", " ("})
        title.truncate(title.indexOf(end) < 0 ? title.size() : title.indexOf(end));
    while (title.endsWith(':') || title.endsWith('.'))
        title.chop(1);
    return title;
}

} // namespace

PanelDialog::PanelDialog(QWidget* parent, const char* name, const std::string& message,
                         const std::optional<std::string>& directory)
    : QFileDialog(parent), nameField_(nullptr) {
    setObjectName(name);
    setWindowModality(Qt::WindowModal);
    setOption(DontUseNativeDialog);
    setOption(DontUseCustomDirectoryIcons);
    // Disables deleting, renaming and moving. New folders do not go through the toolkit.
    setOption(ReadOnly);
    sharedPlaces_ = sidebarUrls();
    sharedColumns_ = findChild<QTreeView*>("treeView")->header()->saveState();
    setDirectory(existingFolder(directory));
    nameField_ = findChild<QLineEdit*>("fileNameEdit");
    nameField_->setAccessibleName(tr("Name"));
    // As the layout's menu bar: the dialog's own grid has no free row at the top.
    layout()->setMenuBar(header(message));
    addRejectionLabel();
    setUpPanelViews(*this);
    setUpNavigation();
    setSidebarUrls(panelPlaces(this->directory().absolutePath()));
    resize(style::scaled(dialogWidth), style::scaled(dialogHeight));
}

PanelDialog::PanelDialog(const OpenPanel& panel, QWidget* parent)
    : PanelDialog(parent, "openPanel", panel.message, panel.directory) {
    open_ = panel;
    setAcceptMode(AcceptOpen);
    setFileMode(panel.canChooseFiles ? ExistingFile : Directory);
    setOption(ShowDirsOnly, !panel.canChooseFiles);
    offerNewFolder(panel.canCreateDirectories);
    allowTypes(panel.allowedFileTypes);
    setPrompt(panel.prompt);
    setTitle(titleOf(panel.message));
    setUpForm();
    suggest(QString::fromStdString(panel.suggestedName));
    connect(this, &QFileDialog::directoryEntered, nameField_, &QLineEdit::clear);
}

PanelDialog::PanelDialog(const SavePanel& panel, QWidget* parent)
    : PanelDialog(parent, "savePanel", panel.message, panel.directory) {
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    offerNewFolder(panel.canCreateDirectories);
    setPrompt(panel.prompt);
    setTitle((QString::fromStdString(panel.prompt) + ' ' +
              QString::fromStdString(panel.nameFieldStringValue))
                 .simplified());
    setUpForm();
    nameField_->setText(QString::fromStdString(panel.nameFieldStringValue));
    nameField_->selectAll();
    nameField_->setFocus();
}

PanelDialog::~PanelDialog() {
    // The toolkit's destructor stores these for all programs; this undoes the panel's changes.
    setSidebarUrls(sharedPlaces_);
    findChild<QTreeView*>("treeView")->header()->restoreState(sharedColumns_);
}

QWidget* PanelDialog::header(const std::string& message) {
    auto* result = new QWidget;
    auto* lines = new QVBoxLayout(result);
    lines->setContentsMargins(margin, margin, margin, 0);
    auto* text = new QLabel(QString::fromStdString(message));
    text->setObjectName("panelMessage");
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    lines->addWidget(text);
    return result;
}

void PanelDialog::addRejectionLabel() {
    rejectionLabel_ = new WrappedText({}, WrappedText::Tone::warning);
    rejectionLabel_->setObjectName("panelRejection");
    style::setFont(rejectionLabel_, style::FontRole::hint);
    rejectionLabel_->hide();
    connect(nameField_, &QLineEdit::textChanged, this, &PanelDialog::hideRejection);
}

void PanelDialog::setUpForm() {
    auto* grid = qobject_cast<QGridLayout*>(layout());
    grid->setContentsMargins(margin, margin / 2, margin, margin);
    grid->setSpacing(dialogGap);
    grid->setColumnStretch(1, 1);
    // The message says what can be chosen; the row of file types would only repeat it.
    for (const char* row : {"fileTypeLabel", "fileTypeCombo"})
        findChild<QWidget*>(row)->hide();
    setLabelText(FileName, tr("&Name:"));
    auto* box = findChild<QDialogButtonBox*>("buttonBox");
    for (QWidget* moved : {static_cast<QWidget*>(nameField_), static_cast<QWidget*>(box)})
        grid->removeWidget(moved);
    grid->addWidget(nameField_, 2, 1, 1, 2);
    grid->addWidget(rejectionLabel_, 3, 1, 1, 2);
    grid->addWidget(box, 4, 0, 1, 3);
    box->setOrientation(Qt::Horizontal);
    setSizeGripEnabled(false); // it would lie in the margin; the window's frame resizes as well
}

void PanelDialog::setUpNavigation() {
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(findChild<QListView*>("listView")),
          static_cast<QAbstractItemView*>(findChild<QTreeView*>("treeView"))}) {
        // The toolkit's handler enters a bundle where the panel chooses it.
        disconnect(view, &QAbstractItemView::activated, this, nullptr);
        connect(view, &QAbstractItemView::activated, this, &PanelDialog::activate);
        // While the user types a path, the toolkit selects the entries that begin like it, and
        // replaces the typed text by their names when the window loses the focus.
        disconnect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this, nullptr);
        connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this,
                &PanelDialog::currentChanged);
    }
    // The toolkit does not set the pop-up as buddy of its label.
    findChild<QLabel*>("lookInLabel")->setBuddy(findChild<QComboBox*>("lookInCombo"));
    findChild<QSplitter*>("splitter")
        ->setSizes({style::scaled(placesWidth), style::scaled(dialogWidth - placesWidth)});
}

void PanelDialog::setTitle(const QString& title) {
    setWindowTitle(title);
    setAccessibleName(title);
}

void PanelDialog::setPrompt(const std::string& prompt) {
    // The toolkit retitles and disables its own button; it leaves an added button alone.
    auto* box = findChild<QDialogButtonBox*>("buttonBox");
    box->setStandardButtons(QDialogButtonBox::NoButton);
    auto* cancel = box->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName("cancelButton");
    auto* button = box->addButton(QString::fromStdString(prompt), QDialogButtonBox::AcceptRole);
    button->setObjectName("promptButton");
    button->setDefault(true);
    const bool needsName = !open_ || !open_->canChooseDirectories;
    const auto update = [this, button, needsName] {
        button->setEnabled(!needsName || !nameField_->text().isEmpty());
    };
    connect(nameField_, &QLineEdit::textChanged, button, update);
    update();
}

void PanelDialog::offerNewFolder(bool offers) {
    auto* theirs = findChild<QToolButton*>("newFolderButton");
    theirs->hide();
    if (!offers)
        return;
    // The toolkit's button creates the folder before the user has named it.
    auto* ours = new QToolButton(this);
    ours->setObjectName("newFolder");
    ours->setIcon(theirs->icon());
    ours->setIconSize(theirs->iconSize());
    ours->setAutoRaise(true);
    ours->setFocusPolicy(theirs->focusPolicy());
    ours->setToolTip(tr("New folder"));
    ours->setAccessibleName(tr("New folder"));
    delete layout()->replaceWidget(theirs, ours);
    setTabOrder(findChild<QToolButton*>("toParentButton"), ours);
    connect(ours, &QToolButton::clicked, this, &PanelDialog::askForNewFolder);
}

void PanelDialog::allowTypes(const std::vector<std::string>& extensions) {
    if (extensions.empty())
        return;
    QStringList patterns;
    for (const std::string& extension : extensions)
        patterns.append("*." + QString::fromStdString(extension));
    setNameFilter(patterns.join(' '));
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
    // A folder that cannot be chosen can only be entered; it leaves the typed name unchanged.
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

void PanelDialog::suggest(const QString& name) {
    if (name.isEmpty() || !directory().exists(name))
        return;
    highlightEntry(*this, directory().filePath(name));
    nameField_->setText(name);
    nameField_->selectAll();
    nameField_->setFocus();
}

void PanelDialog::askForNewFolder() {
    const QString proposed = open_ ? QString::fromStdString(open_->suggestedName) : QString();
    auto* sheet = new NewFolderSheet(directory().absolutePath(),
                                     proposed.isEmpty() ? tr("New folder") : proposed, this);
    connect(sheet, &QDialog::accepted, &sheets_, [this, sheet] {
        sheets_.complete([this, path = sheet->path()] { newFolderMade(path); });
    });
    sheets_.present(sheet);
}

void PanelDialog::newFolderMade(const QString& path) {
    if (!open_ || !open_->canChooseDirectories)
        return enter(path);
    suggest(QFileInfo(path).fileName());
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
    const PanelSelection choice = validateSelection(*open_, path);
    choice.rejectionReason.isEmpty() ? choose(choice.path) : showRejection(choice.rejectionReason);
}

void PanelDialog::acceptSave(const QString& path) {
    const QFileInfo item(path);
    if (isUnreadableName(path))
        return showRejection(
            tr("This name cannot be read as text. Give the item another name first."));
    if (nameField_->text().isEmpty())
        return;
    if (item.isDir())
        return enter(path);
    if (!item.dir().exists())
        return showRejection(tr("The folder “%1” does not exist.").arg(item.path()));
    if (isTooLong(item.fileName()))
        return showRejection(tr("The name is too long."));
    // exists() is false for a dangling link, which occupies the name all the same.
    item.exists() || item.isSymLink() ? askToReplace(path) : choose(path);
}

void PanelDialog::askToReplace(const QString& path) {
    const QFileInfo item(path);
    const QString message = tr("“%1” already exists. Do you want to replace it?");
    const QString lost = tr("What the file in “%1” holds now will be lost.");
    // The default button is the one that loses no data.
    alerts_.show({message.arg(item.fileName()).toStdString(),
                  lost.arg(item.dir().dirName()).toStdString(),
                  {tr("Cancel").toStdString(), tr("Replace").toStdString()}},
                 [this, path](AlertOutcome outcome) {
                     if (outcome.answer == AlertAnswer::Second)
                         choose(path);
                 });
}

void PanelDialog::choose(const QString& path) {
    chosenPath_ = path;
    chosenName_ = QFileInfo(path).fileName();
    // Not QFileDialog::accept(): it asks in a nested event loop.
    QDialog::accept(); // NOLINT(bugprone-parent-virtual-call)
}

void PanelDialog::showRejection(const QString& reason) {
    rejectionLabel_->setText(reason);
    rejectionLabel_->show();
    style::setFaulty(nameField_, true);
    updateAccessibleDescription(nameField_, reason);
    nameField_->setFocus();
}

void PanelDialog::hideRejection() {
    rejectionLabel_->hide();
    style::setFaulty(nameField_, false);
    updateAccessibleDescription(nameField_, {});
}

} // namespace frimbolate
