// A field for a time of day, typed as free text.
//
// Tab and the first click select the whole time, a second click places the cursor. After a text was
// read or a time set, the next click counts as the first. A typed text is pending until commit()
// reads it: on Return, when another control gets the focus, and when the field is hidden. Commands
// do not take the focus, so the code that runs one calls commit() first. A pending text survives a
// menu or another program taking the focus for a while.
//
// Arrow keys, steppers and, while the field has the focus, the wheel step the part under the
// cursor; if the whole time is selected, or a pending text was read first, they step the hours.
#pragma once

#include "core/time_of_day.h"

#include <QAbstractSpinBox>

namespace frimbolate {

class TimeField : public QAbstractSpinBox {
    Q_OBJECT

  public:
    explicit TimeField(QWidget* parent = nullptr);
    ~TimeField() override;

    /// The last time set, read or stepped to.
    TimeOfDay time() const { return time_; }
    /// Shows a time and discards a pending text. Emits nothing.
    void setTime(TimeOfDay time);
    /// Sets the format of the shown time; a pending text is unchanged.
    void setClock(ClockFormat clock);

    /// Parses a pending text and shows its time, or the previous time if it is unreadable.
    /// \return false if textRejected() was emitted
    bool commit();

    void stepBy(int steps) override;

  signals:
    /// A text was read or a part stepped; the time may be the same as before.
    void timeRead(TimeOfDay time);
    /// A text was discarded because it is no time. The time is unchanged.
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
    /// Whether the field is the window's focus widget, even while the window itself is inactive.
    bool ownsWindowFocus() const;
    void showTime();
    void handleTextChanged();
    void readPendingText();
    void followFocus(const QWidget* focused);

    TimeOfDay time_;
    ClockFormat clock_ = ClockFormat::TwentyFourHours;
    bool showsTime_ = false; ///< while the field itself sets its text
    bool isNew_ = false;     ///< the next press into the text keeps the whole time selected
    bool isPressed_ = false; ///< that press is still held
    bool isLeft_ = true;     ///< another control had the focus since the field had it
};

} // namespace frimbolate
