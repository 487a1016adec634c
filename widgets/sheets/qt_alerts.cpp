#include "widgets/sheets/qt_alerts.h"

#include "widgets/controls/scroll_keys.h"
#include "widgets/controls/wrapped_text.h"
#include "widgets/sheets/sheet_queue.h"
#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace frimbolate {
namespace {

constexpr int usualWidth = 440;
constexpr int wideWidth = 560;
/// The width of the form less the sheet's shadow; pixels of the 1x layout.
constexpr int widestWidth = 616;
/// A higher sheet, its shadow included, would extend below the form; pixels of the 1x layout.
constexpr int greatestAlertHeight = 348;
constexpr int alertIconSide = 40;
constexpr int alertIconGap = 16;
constexpr int titleGap = 6;

/// A trailing line break would show as an empty line above the buttons.
QString withoutLastBreak(const std::string& text) {
    QString result = QString::fromStdString(text);
    if (result.endsWith('\n'))
        result.chop(1);
    return result;
}

WrappedText* makeText(const char* name, const std::string& text, WrappedText::Tone tone,
                      style::FontRole role) {
    auto* result = new WrappedText(withoutLastBreak(text), tone);
    result->setObjectName(name);
    style::setFont(result, role);
    if (text.empty())
        result->hide();
    return result;
}

/// The button that Escape presses: "Cancel", which changes nothing, or an only button.
std::optional<int> escapeAnswer(const std::vector<std::string>& buttons) {
    const auto cancel = std::ranges::find(buttons, "Cancel");
    if (cancel != buttons.end())
        return AlertAnswer::First + static_cast<int>(cancel - buttons.begin());
    return buttons.size() == 1 ? std::optional<int>(AlertAnswer::First) : std::nullopt;
}

QLabel* warningSign() {
    auto* result = new QLabel;
    result->setPixmap(style::toolIcon("warning").pixmap(QSize(alertIconSide, alertIconSide),
                                                        qApp->devicePixelRatio()));
    result->setFixedSize(alertIconSide, alertIconSide);
    result->setAccessibleName(QLabel::tr("Warning"));
    return result;
}

} // namespace

AlertDialog::AlertDialog(const Alert& alert, QWidget* mainWindow)
    : SheetDialog("sheetAlert", usualWidth, mainWindow),
      escapeAnswer_(escapeAnswer(alert.buttons)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QString::fromStdString(alert.messageText));
    setAccessibleName(QString::fromStdString(alert.messageText));
    setAccessibleDescription(QString::fromStdString(alert.informativeText));
    auto* content = new QHBoxLayout;
    content->setSpacing(alertIconGap);
    content->addWidget(warningSign(), 0, Qt::AlignTop);
    content->addWidget(texts(alert), 1);
    body()->addLayout(content);
    body()->addSpacing(padding);
    addButtons(alert);
    for (const int width : {wideWidth, widestWidth})
        if (excessHeight() > 0)
            setPanelWidth(width);
    if (excessHeight() > 0)
        makeTextScroll();
}

QWidget* AlertDialog::texts(const Alert& alert) {
    auto* result = new QWidget;
    auto* layout = new QVBoxLayout(result);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(titleGap);
    layout->addWidget(makeText("messageText", alert.messageText, WrappedText::Tone::plain,
                               style::FontRole::sheetTitle));
    layout->addWidget(makeText("informativeText", alert.informativeText, WrappedText::Tone::hint,
                               style::FontRole::control));
    if (alert.showsSuppressionButton) {
        suppressionButton_ = new QCheckBox(tr("Do not show this message again"));
        suppressionButton_->setObjectName("suppressionButton");
        layout->addSpacing(8);
        layout->addWidget(suppressionButton_);
    }
    layout->addStretch();
    return result;
}

int AlertDialog::excessHeight() const {
    const int margins = height() - panelRect().height();
    return layout()->totalHeightForWidth(width()) - margins - style::scaled(greatestAlertHeight);
}

void AlertDialog::makeTextScroll() {
    const int textWidth = panelRect().width() - 2 * padding - alertIconSide - alertIconGap;
    const auto needed = [textWidth](const WrappedText* text) {
        return text->isHidden() ? 0 : text->heightForWidth(textWidth);
    };
    WrappedText* longest = std::ranges::max(findChildren<WrappedText*>(), {}, needed);
    longest->scrollWithin(needed(longest) - excessHeight());
    for (auto* button : findChildren<QAbstractButton*>())
        button->installEventFilter(new ScrollKeys(longest));
}

void AlertDialog::addButtons(const Alert& alert) {
    QList<QPushButton*> buttons;
    for (const std::string& title : alert.buttons) {
        auto* button = new QPushButton(QString::fromStdString(title).replace('&', "&&"), this);
        const int answer = AlertAnswer::First + static_cast<int>(buttons.size());
        connect(button, &QPushButton::clicked, this, [this, answer] { done(answer); });
        buttons.append(button);
    }
    QPushButton* first = buttons.first();
    std::ranges::reverse(buttons); // the default button lies in the corner
    addButtonRow(nullptr, buttons);
    first->setDefault(true);
    first->setFocus();
}

AlertOutcome AlertDialog::outcome() const {
    return {result(), suppressionButton_ && suppressionButton_->isChecked() ? 1 : 0};
}

void AlertDialog::reject() {
    if (escapeAnswer_)
        done(*escapeAnswer_);
}

void AlertDialog::showEvent(QShowEvent* event) {
    SheetDialog::showEvent(event);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void QtAlerts::show(const Alert& alert, Completion completion) {
    auto* dialog = new AlertDialog(alert, &mainWindow_);
    QObject::connect(dialog, &QDialog::finished, &queue_,
                     [&queue = queue_, dialog, completion = std::move(completion)] {
                         queue.complete([completion, outcome = dialog->outcome()] {
                             if (completion)
                                 completion(outcome);
                         });
                     });
    queue_.present(dialog);
}

} // namespace frimbolate
