#include "widgets/sheets/app_sheet.h"

#include "widgets/style/fonts.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace frimbolate {

AppSheet::AppSheet(const QString& outlet, int panelWidth, FormBinder& binder, QWidget& mainWindow,
                   FormBinder::Send close)
    : SheetDialog(outlet, panelWidth, &mainWindow), binder_(binder), close_(std::move(close)) {}

QLabel* AppSheet::addTitle(const QString& title) {
    auto* label = new QLabel(title, this);
    style::setFont(label, style::FontRole::sheetTitle);
    body()->addWidget(label);
    setWindowTitle(title);
    setAccessibleName(title);
    return label;
}

QPushButton* AppSheet::makeButton(const char* name, const QString& title,
                                  const FormBinder::Send& send) {
    auto* button = new QPushButton(title, this);
    button->setObjectName(name);
    button->setAccessibleName(title);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, send] { binder_.send(send); });
    return button;
}

} // namespace frimbolate
