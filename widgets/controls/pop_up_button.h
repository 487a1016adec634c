// A pop-up button: one choice of a short list, whose indexes mean something.
#pragma once

#include "core/pop_up_items.h"

#include <QComboBox>

#include <set>
#include <span>

namespace frimbolate {

class PopUpButton : public QComboBox {
    Q_OBJECT

  public:
    /// Separators take an index of their own, so that the items behind them keep their numbers.
    explicit PopUpButton(std::span<const PopUpItem> items, QWidget* parent = nullptr);

    /// Greyed out in the list and not to be chosen.
    void setDisabledItems(const std::set<int>& indexes);

    /// Shown on the closed button in place of the selected item's title; empty = that title.
    void setShownTitle(const QString& title);
    const QString& shownTitle() const { return shownTitle_; }

    /// Names a button that no label in sight belongs to. Assistive tools take the shown item for
    /// the name of a pop-up, and what it is for from its label alone; so it gets one out of sight.
    void setUnlabelledName(const QString& name);

    void hidePopup() override;

  protected:
    void changeEvent(QEvent* event) override;
    void initStyleOption(QStyleOptionComboBox* option) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    /// In the list, while it is closed.
    void selectWhatIsChosen();
    /// Assistive tools choose by selecting in the list, which a person only does by choosing.
    void chooseWhatWasSelected();

    /// An item that stands for nothing chosen has the colour of a field's placeholder.
    void colourPlaceholders();
    bool showsPlaceholder() const;

    QString shownTitle_;
    std::set<int> placeholders_;
    std::set<int> disabledItems_;
};

} // namespace frimbolate
