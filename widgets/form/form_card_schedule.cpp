// The last row of the form card, whose controls change with the kind of schedule.
#include "widgets/form/form_card.h"

#include "widgets/controls/clock_format.h"
#include "widgets/controls/form_binder.h"
#include "widgets/controls/pop_up_button.h"
#include "widgets/controls/text.h"
#include "widgets/controls/time_field.h"
#include "widgets/style/fonts.h"

#include <QHBoxLayout>
#include <QLineEdit>

namespace frimbolate {

using style::scaled;

namespace {

constexpr int partGap = 5;
constexpr int partHeight = 32;

} // namespace

void FormCard::addScheduleRow() {
    auto* line = new QHBoxLayout;
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(scaled(partGap));

    auto* schedule = new PopUpButton(agentScheduleTypeItems(), this);
    schedule->setPlaceholderText(tr("No schedule"));
    binder_.bind("agentScheduleTypeButton", schedule, &FormModel::agentScheduleTypeButton,
                 &AppDelegate::chooseAgentSchedule);

    auto* dayBox = new QWidget(this);
    auto* dayLine = new QHBoxLayout(dayBox);
    dayLine->setContentsMargins(0, 0, 0, 0);
    auto* day = new QLineEdit(dayBox);
    day->setAlignment(Qt::AlignCenter);
    day->setFixedWidth(scaled(51));
    day->setPlaceholderText(tr("Day"));
    day->setAccessibleName(tr("Day of the month"));
    dayLine->addWidget(day);
    binder_.bind("onMonthTextBox", dayBox, &FormModel::onMonthTextBox);
    binder_.bind("onMonthTextField", day, &FormModel::onMonthTextField);

    timePicker_ = new TimeField(this);
    setUpTimePicker();

    auto* interval = new QLineEdit(this);
    interval->setFixedWidth(scaled(52));
    interval->setAccessibleName(tr("Interval"));
    binder_.bind("agentIntervalField", interval, &FormModel::agentIntervalField);
    auto* unit = new PopUpButton(agentIntervalTypeItems(), this);
    unit->setFixedWidth(scaled(89));
    unit->setUnlabelledName(tr("Unit of the interval"));
    binder_.bind("agentIntervalTypeButton", unit, &FormModel::agentIntervalTypeButton);

    for (QWidget* part : QList<QWidget*>{schedule, dayBox, timePicker_, interval, unit}) {
        part->setFixedHeight(scaled(partHeight));
        line->addWidget(part);
    }
    day->setFixedHeight(scaled(partHeight));
    line->addStretch();

    // Only the typed fields of a schedule can be faulty.
    addRow(ScheduleRow, tr("&Schedule"), schedule, {day, interval});
    addToRow(ScheduleRow, Control, line);
    addMarker(ScheduleRow, "scheduleErrorImageWell", &FormModel::scheduleErrorImageWell);
    addTip(ScheduleRow, "agentScheduleTipButton", &FormModel::agentScheduleTipButton);
}

void FormCard::setUpTimePicker() {
    timePicker_->setAccessibleName(tr("Time of day"));
    binder_.bind("agentScheduleDatePicker", timePicker_, &FormModel::agentScheduleDatePicker);
    binder_.addUpdater([this](const FormModel& form) {
        // "07:30 AM" and the steppers do not fit into the narrow picker together.
        const bool isFull = localeClockFormat() == ClockFormat::TwelveHours &&
                            form.agentScheduleDatePicker.width <= narrowDatePickerWidth;
        timePicker_->setButtonSymbols(isFull ? QAbstractSpinBox::NoButtons
                                             : QAbstractSpinBox::UpDownArrows);
    });
}

} // namespace frimbolate
