#include "widgets/sheets/new_folder_sheet.h"

#include "widgets/controls/accessible_description.h"
#include "widgets/controls/file_panel_rules.h"
#include "widgets/controls/wrapped_text.h"
#include "widgets/style/fonts.h"
#include "widgets/style/style.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace frimbolate {
namespace {

constexpr int sheetWidth = 440; // pixels of the 1x layout

} // namespace

NewFolderSheet::NewFolderSheet(const QString& folder, const QString& proposedName, QWidget* panel)
    : SheetDialog("newFolderSheet", sheetWidth, panel), folder_(folder) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("New folder"));
    setAccessibleName(windowTitle());
    auto* title = new QLabel(windowTitle(), this);
    style::setFont(title, style::FontRole::sheetTitle);
    body()->addWidget(title);
    body()->addSpacing(style::scaled(6));
    body()->addWidget(
        new WrappedText(tr("It is made in %1").arg(folder), WrappedText::Tone::hint, this));
    body()->addSpacing(style::scaled(16));
    addField(proposedName);
    body()->addSpacing(padding);
    addButtons();
}

void NewFolderSheet::addField(const QString& proposedName) {
    name_ = new QLineEdit(proposedName, this);
    name_->setObjectName("newFolderName");
    name_->setAccessibleName(tr("Name of the new folder"));
    name_->selectAll();
    name_->setFocus();
    rejectionLabel_ = new WrappedText({}, WrappedText::Tone::warning, this);
    rejectionLabel_->setObjectName("newFolderRefusal");
    rejectionLabel_->hide();
    style::setFont(rejectionLabel_, style::FontRole::hint);
    body()->addWidget(name_);
    body()->addSpacing(style::scaled(4));
    body()->addWidget(rejectionLabel_);
    connect(name_, &QLineEdit::textChanged, this, [this] {
        rejectionLabel_->hide();
        style::setFaulty(name_, false);
        updateAccessibleDescription(name_, {});
    });
}

void NewFolderSheet::addButtons() {
    auto* create = new QPushButton(tr("Create"), this);
    create->setDefault(true);
    connect(create, &QPushButton::clicked, this, &NewFolderSheet::accept);
    auto* cancel = new QPushButton(tr("Cancel"), this);
    cancel->setAutoDefault(false);
    connect(cancel, &QPushButton::clicked, this, &NewFolderSheet::reject);
    addButtonRow(nullptr, {cancel, create});
    const auto update = [this, create] { create->setEnabled(!name_->text().isEmpty()); };
    connect(name_, &QLineEdit::textChanged, create, update);
    update();
}

QString NewFolderSheet::path() const { return QDir(folder_).filePath(name_->text()); }

void NewFolderSheet::accept() {
    QString reason = newFolderRejectionReason(folder_, name_->text());
    if (reason.isEmpty() && QDir(folder_).mkdir(name_->text()))
        return SheetDialog::accept();
    if (reason.isEmpty())
        reason = tr("No folder can be made here.");
    rejectionLabel_->setText(reason);
    rejectionLabel_->show();
    style::setFaulty(name_, true);
    updateAccessibleDescription(name_, reason);
    name_->setFocus();
}

} // namespace frimbolate
