// A field for a time of day, into which a time is typed as free text.
//
// Tab and the first click select the whole time, a second click places the cursor. The click after
// a text was read, or a time set, is a first one again. A typed text is pending until commit()
// reads it: on Return, when another control gets the keyboard, and when the field is hidden.
// Commands do not take the keyboard, so the code that runs one calls commit() first. A menu or
// another program that has the keyboard for a while changes no pending text.
//
// Arrow keys, steppers and, while the field has the keyboard, the wheel step the part under the
// cursor; where the whole time is selected, and after a pending text was read, the hours.
#pragma once

#include "core/time_of_day.h"

#include <QAbstractSpinBox>

namespace frimbolate {

class TimeField : public QAbstractSpinBox {
    Q_OBJECT

  public:
    explicit TimeField(QWidget* parent = nullptr);
    ~TimeField() override;

    /// The last time that was set, read or stepped to.
    TimeOfDay time() const { return time_; }
    /// Shows a time in place of whatever the field holds. Emits nothing.
    void setTime(TimeOfDay time);
    /// How times are shown; a pending text stays as it is.
    void setClock(ClockFormat clock);

    /// Reads a pending text and shows the time that it means, or else the one from before.
    /// \return whether there is nothing unreadable to tell
    bool commit();

    void stepBy(int steps) override;

  signals:
    /// A text was read or a part stepped; the time may be the same as before.
    void timeRead(TimeOfDay time);
    /// A text was given up because it means no time. The time is the one from before.
    void textRejected(const QString& text);
    /// The text is being changed, by the user or an assistive tool.
    void textEdited();

  protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    QString shownTime() const;
    bool isPending() const;
    bool isWholeSelected() const;
    /// Whether the window gives the keys to the field, or will when it gets the keyboard again.
    bool isWhereTyped() const;
    void showTime();
    void takeText();
    void readInPassing();
    void followFocus(const QWidget* focused);

    TimeOfDay time_;
    ClockFormat clock_ = ClockFormat::TwentyFourHours;
    bool showsTime_ = false; ///< while the field itself sets its text
    bool isNew_ = false;     ///< a press into the text selects the whole while it is selected
    bool isPressed_ = false; ///< that press is still held
    bool isLeft_ = true;     ///< another control had the keyboard since the field had it
};

} // namespace frimbolate
