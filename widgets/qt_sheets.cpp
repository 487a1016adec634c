#include "widgets/qt_sheets.h"

#include "widgets/controls/text.h"
#include "widgets/main_window.h"
#include "widgets/sheets/command_sheet_view.h"
#include "widgets/sheets/preferences_sheet.h"
#include "widgets/sheets/sheet_queue.h"
#include "widgets/sheets/welcome_sheet.h"
#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"

#include <QAction>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace frimbolate {

namespace {

AppSheet* makeSheet(Sheet which, FormBinder& binder, MainWindow& window) {
    switch (which) {
    case Sheet::welcomeWindow:
        return new WelcomeSheet(binder, window);
    case Sheet::preferencesWindow:
        return new PreferencesSheet(binder, window);
    case Sheet::executeScriptWindow:
        break;
    }
    return new CommandSheetView(binder, window);
}

} // namespace

QtSheets::QtSheets(SheetQueue& queue, MainWindow& window) : queue_(queue), window_(window) {
    QObject::connect(window.aboutAction(), &QAction::triggered, &queue, [this] { showAbout(); });
}

AppSheet& QtSheets::sheet(Sheet which) {
    AppSheet*& built = sheets_[static_cast<std::size_t>(which)];
    if (!built)
        built = makeSheet(which, window_.formBinder(), window_);
    return *built;
}

void QtSheets::begin(Sheet which) {
    AppSheet& shown = sheet(which);
    // The sheet computes its size when it is shown, so its content must be current by then.
    window_.mirror();
    for (auto* button : shown.findChildren<QPushButton*>())
        if (button->isDefault())
            button->setFocus();
    queue_.present(&shown);
}

void QtSheets::end(Sheet which) { queue_.dismiss(&sheet(which)); }

void QtSheets::makeFirstResponder(Sheet which, std::string_view outlet) {
    if (auto* control = sheet(which).findChild<QWidget*>(text(outlet)))
        control->setFocus();
}

void QtSheets::showAbout() {
    auto* about = new SheetDialog("aboutWindow", 440, &window_);
    about->setAttribute(Qt::WA_DeleteOnClose);
    const QString title = QObject::tr("Frimbolate %1").arg(QCoreApplication::applicationVersion());
    about->setWindowTitle(title);
    about->setAccessibleName(title);
    auto* heading = new QLabel(title, about);
    style::setFont(heading, style::FontRole::sheetTitle);
    auto* words = new QLabel(QObject::tr("Creates and manages launchd launch agents."), about);
    words->setForegroundRole(QPalette::PlaceholderText);
    auto* close = new QPushButton(QObject::tr("Close"), about);
    close->setDefault(true);
    QObject::connect(close, &QPushButton::clicked, about, &QDialog::accept);
    auto* icon = new QLabel(about);
    const int side = style::scaled(64);
    icon->setPixmap(style::toolIcon("app").pixmap({side, side}, about->devicePixelRatioF()));
    auto* texts = new QGridLayout;
    texts->setHorizontalSpacing(style::scaled(16));
    texts->setVerticalSpacing(style::scaled(4));
    texts->setColumnStretch(1, 1);
    texts->addWidget(icon, 0, 0, 2, 1);
    texts->addWidget(heading, 0, 1, Qt::AlignBottom);
    texts->addWidget(words, 1, 1, Qt::AlignTop);
    about->body()->addLayout(texts);
    about->body()->addSpacing(style::scaled(24));
    about->addButtonRow(nullptr, {close});
    queue_.present(about);
}

} // namespace frimbolate
