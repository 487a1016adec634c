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
    connect(this, &QComboBox::currentIndexChanged, this, &PopUpButton::selectWhatIsChosen);
    selectWhatIsChosen();
    // Later, for keys and mouse select an item before it becomes the current one.
    connect(view()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &PopUpButton::chooseWhatWasSelected, Qt::QueuedConnection);
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
    const bool wasOpen = view()->isVisible();
    QComboBox::hidePopup();
    // What was lit and not chosen must not count as selected. Later, for a key or click that
    // chooses hides the list before it takes what is lit.
    if (wasOpen)
        QMetaObject::invokeMethod(this, &PopUpButton::selectWhatIsChosen, Qt::QueuedConnection);
}

void PopUpButton::selectWhatIsChosen() {
    if (!view()->isVisible())
        view()->setCurrentIndex(model()->index(currentIndex(), modelColumn()));
}

void PopUpButton::chooseWhatWasSelected() {
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
    // Nobody tells a pop-up that the mouse has left it while its list was open.
    if (!rect().contains(mapFromGlobal(QCursor::pos())))
        option->state &= ~QStyle::State_MouseOver;
    if (!shownTitle_.isEmpty())
        option->currentText = shownTitle_;
    if (showsPlaceholder())
        option->palette.setBrush(QPalette::ButtonText, palette().placeholderText());
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
