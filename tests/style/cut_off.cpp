#include "tests/style/cut_off.h"

#include "widgets/controls/elided_label.h"
#include "widgets/controls/wrapped_text.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFontMetricsF>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QStyleOptionComboBox>
#include <QStyleOptionSpinBox>
#include <QToolButton>

#include <cmath>

namespace frimbolate::test {

namespace {

/// The width of the text alone, rounded up to whole pixels.
int widthOf(const QWidget& widget, QString text) {
    return static_cast<int>(
        std::ceil(QFontMetricsF(widget.font()).horizontalAdvance(text.remove(QLatin1Char('&')))));
}

bool isCutOff(const QLabel& label) {
    if (qobject_cast<const ElidedLabel*>(&label))
        return widthOf(label, label.text()) > label.width() && label.toolTip() != label.text();
    if (label.wordWrap())
        return label.heightForWidth(label.width()) > label.height();
    return label.sizeHint().width() > label.width() || label.sizeHint().height() > label.height();
}

bool isCutOff(const WrappedText& text) {
    const bool scrolls = text.verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff;
    const QWidget* lines = text.viewport();
    return text.document()->idealWidth() > lines->width() ||
           (!scrolls && text.heightForWidth(lines->width()) > lines->height());
}

bool isCutOff(const QAbstractButton& button) {
    if (button.text().isEmpty())
        return false;
    if (qobject_cast<const QToolButton*>(&button)) // with a margin of two pixels on each side
        return widthOf(button, button.text()) > button.width() - 4;
    return button.sizeHint().width() > button.width();
}

bool isCutOff(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    const QRect field = box.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                    QStyle::SC_ComboBoxEditField, &box);
    for (int item = 0; item < box.count(); ++item)
        if (widthOf(box, box.itemText(item)) > field.width())
            return true;
    return false;
}

bool isCutOff(const QAbstractSpinBox& box) {
    const auto* field = box.findChild<QLineEdit*>();
    constexpr int clear = 4; // the line edit's margins; pixels
    return widthOf(box, field->text()) > field->width() - clear;
}

bool isCutOff(const QLineEdit& field) {
    // A text that is too long scrolls; a placeholder does not.
    return widthOf(field, field.placeholderText()) > field.width() - 8;
}

bool isTextCutOff(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return isCutOff(*label);
    if (const auto* text = qobject_cast<const WrappedText*>(&widget))
        return isCutOff(*text);
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return isCutOff(*button);
    if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        return isCutOff(*box);
    if (const auto* box = qobject_cast<const QAbstractSpinBox*>(&widget))
        return isCutOff(*box);
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget))
        return isCutOff(*field);
    return false;
}

/// Whether every ancestor of the widget, up to its window, contains its whole rectangle.
bool isWhole(const QWidget& widget) {
    QRect place = widget.rect();
    for (const QWidget* inner = &widget; !inner->isWindow(); inner = inner->parentWidget()) {
        place.translate(inner->pos());
        const QWidget* around = inner->parentWidget();
        if (qobject_cast<const QAbstractScrollArea*>(around->parentWidget()))
            return true; // the rest can be scrolled to
        if (!around->rect().contains(place))
            return false;
    }
    return true;
}

QString described(const QWidget& widget) {
    return QStringLiteral("%1 '%2' '%3' %4x%5, wants %6x%7")
        .arg(widget.metaObject()->className(), widget.objectName(), widget.accessibleName())
        .arg(widget.width())
        .arg(widget.height())
        .arg(widget.sizeHint().width())
        .arg(widget.sizeHint().height());
}

} // namespace

QStringList cutOff(const QWidget& root) {
    QStringList found;
    QList<const QWidget*> all = {&root};
    for (const QWidget* widget : root.findChildren<QWidget*>())
        all.append(widget);
    for (const QWidget* widget : all) {
        if (!widget->isVisible())
            continue;
        if (isTextCutOff(*widget))
            found.append("text: " + described(*widget));
        if (!isWhole(*widget))
            found.append("place: " + described(*widget));
    }
    return found;
}

} // namespace frimbolate::test
