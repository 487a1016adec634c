#include "widgets/pages/empty_list.h"

#include "widgets/controls/elided_label.h"
#include "widgets/style/fonts.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace frimbolate {

using style::scaled;

EmptyList::EmptyList(QWidget* parent)
    : QWidget(parent), line_(new ElidedLabel(Qt::ElideMiddle, this)), title_(new QLabel(this)),
      button_(new QPushButton(this)) {
    // Pixels of the 1x layout.
    constexpr int lineGap = 6, buttonGap = 14;
    title_->setObjectName("emptyListTitle");
    title_->setTextFormat(Qt::PlainText);
    style::setFont(title_, style::FontRole::sheetTitle);
    line_->setObjectName("emptyListLine");
    button_->setObjectName("emptyListButton");
    button_->setAccessibleName(tr("Show the list"));
    connect(button_, &QPushButton::clicked, this, &EmptyList::pressed);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(scaled(24), 0, scaled(24), 0);
    column->setSpacing(0);
    column->addStretch();
    column->addWidget(title_, 0, Qt::AlignHCenter);
    column->addSpacing(scaled(lineGap));
    column->addWidget(line_, 0, Qt::AlignHCenter);
    column->addSpacing(scaled(buttonGap));
    column->addWidget(button_, 0, Qt::AlignHCenter);
    column->addStretch();
}

void EmptyList::setWords(const QString& title, const QString& line, const QString& button,
                         bool isDefault) {
    const int most = width() - 2 * scaled(24);
    title_->setText(title_->fontMetrics().elidedText(title, Qt::ElideMiddle, most));
    title_->setToolTip(title_->text() == title ? QString() : title);
    line_->setWholeText(line);
    if (!button.isEmpty()) {
        button_->setText(button);
        button_->setAccessibleName(button);
    }
    button_->setDefault(isDefault);
    button_->setAutoDefault(false);
    button_->setVisible(!button.isEmpty());
}

} // namespace frimbolate
