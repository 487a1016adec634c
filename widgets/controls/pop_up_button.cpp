#include "widgets/controls/pop_up_button.h"

#include "widgets/controls/long_text.h"
#include "widgets/controls/text.h"

#include <QAbstractItemView>
#include <QCursor>
#include <QKeyEvent>
#include <QLabel>
#include <QStandardItemModel>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

namespace frimbolate {

PopUpButton::PopUpButton(std::span<const PopUpItem> items, QWidget* parent) : QComboBox(parent) {
    for (const PopUpItem& item : items) {
        if (item.isPlaceholder)
            placeholders_.insert(count());
        if (item.kind == PopUpItem::Kind::Separator)
            insertSeparator(count());
        else
            addItem(text(item.title));
    }
    colourPlaceholders();
    setMaxVisibleItems(count());
    connect(this, &QComboBox::currentIndexChanged, this, &PopUpButton::selectCurrentInList);
}

QAbstractItemView* PopUpButton::view() {
    QAbstractItemView* list = QComboBox::view();
    followList();
    return list;
}

bool PopUpButton::hasList() const { return findChild<QAbstractItemView*>() != nullptr; }

void PopUpButton::followList() {
    if (followsList_ || !hasList())
        return;
    followsList_ = true;
    const QItemSelectionModel* selection = QComboBox::view()->selectionModel();
    // An assistive tool may have selected an item of the list that it has just had made.
    if (selection->hasSelection())
        chooseSelectedInList();
    else
        selectCurrentInList();
    // Queued: keys and mouse select an item before it becomes the current one.
    connect(selection, &QItemSelectionModel::selectionChanged, this,
            &PopUpButton::chooseSelectedInList, Qt::QueuedConnection);
}

void PopUpButton::childEvent(QChildEvent* event) {
    QComboBox::childEvent(event);
    // The toolkit itself makes the list when it opens it or when an assistive tool looks at it.
    // Queued: the child is still under construction.
    if (event->added() && !followsList_)
        QMetaObject::invokeMethod(this, &PopUpButton::followList, Qt::QueuedConnection);
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
    const QString shown = labelText(title, Qt::ElideRight);
    if (shown == shownTitle_)
        return;
    shownTitle_ = shown;
    update();
}

void PopUpButton::setUnlabelledName(const QString& name) {
    setAccessibleName(name);
    auto* label = new QLabel(name, parentWidget());
    label->setBuddy(this);
    label->hide();
}

void PopUpButton::colourPlaceholders() {
    for (const int index : placeholders_)
        setItemData(index, palette().placeholderText(), Qt::ForegroundRole);
}

bool PopUpButton::showsPlaceholder() const {
    return shownTitle_.isEmpty() && placeholders_.contains(currentIndex());
}

void PopUpButton::changeEvent(QEvent* event) {
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        colourPlaceholders();
}

void PopUpButton::hidePopup() {
    const bool wasOpen = hasList() && view()->isVisible();
    QComboBox::hidePopup();
    // A highlighted item that was not chosen must not stay selected. Queued: a key or click that
    // chooses hides the list before it takes the highlighted item.
    if (wasOpen)
        QMetaObject::invokeMethod(this, &PopUpButton::selectCurrentInList, Qt::QueuedConnection);
}

void PopUpButton::selectCurrentInList() {
    if (hasList() && !view()->isVisible())
        view()->setCurrentIndex(model()->index(currentIndex(), modelColumn()));
}

void PopUpButton::chooseSelectedInList() {
    const QModelIndexList selected = view()->selectionModel()->selectedIndexes();
    const QModelIndex item = selected.isEmpty() ? QModelIndex() : selected.first();
    if (!item.isValid() || item == view()->currentIndex() || !isEnabled() ||
        !(item.flags() & Qt::ItemIsEnabled))
        return;
    hidePopup();
    setCurrentIndex(item.row());
    view()->setCurrentIndex(item);
    emit activated(item.row());
}

void PopUpButton::initStyleOption(QStyleOptionComboBox* option) const {
    QComboBox::initStyleOption(option);
    // No leave event arrives while the list is open.
    if (!rect().contains(mapFromGlobal(QCursor::pos())))
        option->state &= ~QStyle::State_MouseOver;
    if (!shownTitle_.isEmpty())
        option->currentText = shownTitle_;
    if (showsPlaceholder())
        option->palette.setBrush(QPalette::ButtonText, palette().placeholderText());
}

void PopUpButton::keyPressEvent(QKeyEvent* event) {
    // Stepping through the items would send the action of each, and some of them open a file
    // panel. So the arrow keys open the list.
    if ((event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) && !event->modifiers())
        showPopup();
    else
        QComboBox::keyPressEvent(event);
}

// Scrolling over the form must not change a choice.
void PopUpButton::wheelEvent(QWheelEvent* event) { event->ignore(); }

} // namespace frimbolate
