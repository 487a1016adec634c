#include "ui/widgets/pop_up_button.h"

#include "ui/widgets/text.h"

#include <QKeyEvent>
#include <QStandardItemModel>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

namespace frimbolate {

PopUpButton::PopUpButton(std::span<const PopUpItem> items, QWidget* parent) : QComboBox(parent) {
    for (const PopUpItem& item : items)
        if (item.kind == PopUpItem::Kind::Separator)
            insertSeparator(count());
        else
            addItem(text(item.title));
    setMaxVisibleItems(count());
}

void PopUpButton::setDisabledItems(const std::set<int>& indexes) {
    if (indexes == disabledItems_)
        return;
    auto* list = qobject_cast<QStandardItemModel*>(model());
    for (const int index : disabledItems_)
        list->item(index)->setEnabled(true);
    for (const int index : indexes)
        list->item(index)->setEnabled(false);
    disabledItems_ = indexes;
}

void PopUpButton::setShownTitle(const QString& title) {
    if (title == shownTitle_)
        return;
    shownTitle_ = title;
    update();
}

void PopUpButton::initStyleOption(QStyleOptionComboBox* option) const {
    QComboBox::initStyleOption(option);
    if (!shownTitle_.isEmpty())
        option->currentText = shownTitle_;
}

void PopUpButton::keyPressEvent(QKeyEvent* event) {
    // Stepping through the items one by one would send the action of each, and some of them ask
    // for a file; so the arrows open the list, in which one is chosen.
    if ((event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) && !event->modifiers())
        showPopup();
    else
        QComboBox::keyPressEvent(event);
}

// A turn of the wheel over the form must not choose anything either.
void PopUpButton::wheelEvent(QWheelEvent* event) { event->ignore(); }

} // namespace frimbolate
