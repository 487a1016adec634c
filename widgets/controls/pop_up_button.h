// A pop-up button: one choice of a short list. The model stores the index of the choice.
#pragma once

#include "core/pop_up_items.h"

#include <QComboBox>

#include <set>
#include <span>

namespace frimbolate {

class PopUpButton : public QComboBox {
    Q_OBJECT

  public:
    /// A separator takes an index of its own, so the items after it keep their indexes. The items
    /// are copied.
    explicit PopUpButton(std::span<const PopUpItem> items, QWidget* parent = nullptr);

    /// These items are greyed out and cannot be chosen.
    void setDisabledItems(const std::set<int>& indexes);

    /// Replaces the selected item's title on the closed button; empty shows that title.
    void setShownTitle(const QString& title);
    const QString& shownTitle() const { return shownTitle_; }

    /// Names a button that has no visible label. Assistive tools use the shown item as the name of
    /// a pop-up and take its purpose from its label only, so it gets a hidden label.
    void setUnlabelledName(const QString& name);

    /// The list, which the toolkit makes when it is first asked for. Ask here rather than through
    /// the base class: then what is selected in the list is chosen at once.
    QAbstractItemView* view();
    void hidePopup() override;

  protected:
    void childEvent(QChildEvent* event) override;
    void changeEvent(QEvent* event) override;
    void initStyleOption(QStyleOptionComboBox* option) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    /// Whether the list has been made; most starts need none.
    bool hasList() const;
    /// Connects the list once it is made.
    void followList();
    /// Selects the current item in the closed list.
    void selectCurrentInList();
    /// Assistive tools choose by selecting in the closed list; users cannot do that.
    void chooseSelectedInList();

    /// An item that means "nothing chosen" has the colour of placeholder text.
    void colourPlaceholders();
    bool showsPlaceholder() const;

    QString shownTitle_;
    std::set<int> placeholders_;
    std::set<int> disabledItems_;
    bool followsList_ = false;
};

} // namespace frimbolate
