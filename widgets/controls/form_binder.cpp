#include "widgets/controls/form_binder.h"

#include "widgets/controls/clock_format.h"
#include "widgets/controls/image_well_button.h"
#include "widgets/controls/long_text.h"
#include "widgets/controls/pop_up_button.h"
#include "widgets/controls/script_editor.h"
#include "widgets/controls/text.h"
#include "widgets/controls/time_field.h"
#include "widgets/style/fonts.h"

#include <QCheckBox>
#include <QDir>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSlider>

#include <limits>
#include <memory>

namespace frimbolate {

namespace {

/// The slider position of a value, clamped to the slider's range.
int sliderPosition(const QSlider& slider, double value) {
    if (!(value > slider.minimum()))
        return slider.minimum();
    return value < slider.maximum() ? static_cast<int>(value) : slider.maximum();
}

} // namespace

void FormBinder::connectTo(AppDelegate& delegate) { delegate_ = &delegate; }

std::string FormBinder::homeFolder() const {
    return homeFolder_.empty() ? QDir::homePath().toStdString() : homeFolder_;
}

void FormBinder::mirror() {
    if (!delegate_ || updating_)
        return;
    const QScopedValueRollback guard(updating_, true);
    const FormModel& form = delegate_->form();
    const std::string home = homeFolder();
    TextStyle style{home, localeClockFormat()};
    if (wallClock_)
        style.now = wallClock_();
    const FormPresentation presentation = present(form, style, lookUp_);
    for (const auto& update : updaters_)
        update(form, presentation);
}

void FormBinder::edit(const std::function<void(FormModel&)>& change, const Send& send) {
    if (!delegate_ || updating_)
        return;
    if (send) {
        finishTyping();
        delegate_->keepFormBeforeInput();
    }
    change(delegate_->form());
    if (send)
        send(*delegate_);
    mirror();
}

void FormBinder::finishTyping() {
    for (TimeField* field : pendingFields_)
        field->commit();
}

void FormBinder::addUpdater(std::function<void(const FormModel&)> updater) {
    updaters_.emplace_back([updater = std::move(updater)](
                               const FormModel& form, const FormPresentation&) { updater(form); });
}

void FormBinder::addUpdater(
    std::function<void(const FormModel&, const FormPresentation&)> updater) {
    updaters_.push_back(std::move(updater));
}

void FormBinder::bind(std::string_view outlet, QLineEdit* field, TextField FormModel::*member) {
    field->setObjectName(text(outlet));
    // The toolkit's default limit would truncate the text.
    field->setMaxLength(std::numeric_limits<int>::max());
    auto abbreviated = std::make_shared<AbbreviatedText>();
    addUpdater([field, member, abbreviated](const FormModel& form) {
        field->setVisible(!(form.*member).hidden);
        const QString wanted = text((form.*member).stringValue);
        // Typed text is left alone unless it is too long to lay out, such as a pasted one.
        if (wanted != abbreviated->expand(field->text()) || field->text().size() > 2 * longestLine)
            field->setText(abbreviated->abbreviate(wanted));
    });
    // textChanged, not textEdited: assistive tools set a text without typing it.
    connect(field, &QLineEdit::textChanged, this,
            [this, member, abbreviated](const QString& typed) {
                edit([&](FormModel& form) {
                    (form.*member).stringValue = abbreviated->expand(typed).toStdString();
                });
            });
}

void FormBinder::bind(std::string_view outlet, ScriptEditor* field, TextField FormModel::*member) {
    field->setObjectName(text(outlet));
    addUpdater([field, member](const FormModel& form) {
        const QString wanted = text((form.*member).stringValue);
        if (ScriptEditor::withPlainLineBreaks(wanted) != field->wholeText())
            field->setWholeText(wanted);
    });
    connect(field, &QPlainTextEdit::textChanged, this, [this, field, member] {
        edit([&](FormModel& form) {
            (form.*member).stringValue = field->wholeText().toStdString();
        });
    });
}

void FormBinder::bind(std::string_view outlet, PopUpButton* button, PopUp FormModel::*member,
                      const Send& send) {
    button->setObjectName(text(outlet));
    addUpdater([button, member](const FormModel& form) {
        const PopUp& popUp = form.*member;
        button->setDisabledItems(popUp.disabledItems);
        button->setCurrentIndex(popUp.selectedItem);
        button->setEnabled(popUp.enabled);
        if (popUp.width > 0)
            button->setFixedWidth(style::scaled(popUp.width));
        button->setVisible(!popUp.hidden);
    });
    // activated, not currentIndexChanged: choosing the same item once more asks once more.
    connect(button, &QComboBox::activated, this, [this, member, send](int index) {
        edit([&](FormModel& form) { (form.*member).selectedItem = index; }, send);
    });
}

void FormBinder::bind(std::string_view outlet, QCheckBox* box, CheckBox FormModel::*member,
                      const Send& send) {
    box->setObjectName(text(outlet));
    addUpdater([box, member](const FormModel& form) {
        const int state = (form.*member).state;
        box->setCheckState(state == CheckState::Off  ? Qt::Unchecked
                           : state == CheckState::On ? Qt::Checked
                                                     : Qt::PartiallyChecked);
        // The user toggles between on and off; only the model sets the mixed state.
        box->setTristate(box->checkState() == Qt::PartiallyChecked);
        box->setEnabled((form.*member).enabled);
    });
    // stateChanged, not clicked: assistive tools toggle a box without a click.
    connect(box, &QCheckBox::stateChanged, this, [this, member, send](int state) {
        const int value = state == Qt::Unchecked ? CheckState::Off
                          : state == Qt::Checked ? CheckState::On
                                                 : CheckState::Mixed;
        edit([&](FormModel& form) { (form.*member).state = value; }, send);
    });
}

void FormBinder::bind(std::string_view outlet, TimeField* field, DatePicker FormModel::*member) {
    field->setObjectName(text(outlet));
    addUpdater([field, member](const FormModel& form) {
        const DatePicker& picker = form.*member;
        field->setClock(localeClockFormat());
        const TimeOfDay time{picker.dateValue.hour, picker.dateValue.minute};
        if (time != field->time())
            field->setTime(time);
        field->setFixedWidth(style::scaled(picker.width));
        field->setVisible(!picker.hidden);
    });
    connect(field, &TimeField::timeRead, this, [this, member](TimeOfDay time) {
        edit([&](FormModel& form) {
            LocalDateTime date = (form.*member).dateValue;
            date.hour = time.hour;
            date.minute = time.minute;
            (form.*member).set(date);
        });
    });
    connect(field, &TimeField::textRejected, this, [this, member](const QString& typed) {
        edit([&](FormModel& form) { (form.*member).unreadableText = typed.toStdString(); });
    });
    connect(field, &TimeField::textEdited, this, [this, member] {
        edit([&](FormModel& form) { (form.*member).unreadableText.reset(); });
    });
    pendingFields_.push_back(field);
}

void FormBinder::bind(std::string_view outlet, QSlider* slider, Slider FormModel::*member,
                      const Send& send) {
    slider->setObjectName(text(outlet));
    addUpdater([slider, member](const FormModel& form) {
        slider->setValue(sliderPosition(*slider, (form.*member).value));
    });
    connect(slider, &QSlider::valueChanged, this, [this, member, send](int value) {
        edit([&](FormModel& form) { (form.*member).value = value; }, send);
    });
}

void FormBinder::bind(std::string_view outlet, QAbstractButton* button, Button FormModel::*member,
                      const Send& send) {
    button->setObjectName(text(outlet));
    addUpdater([button, member](const FormModel& form) {
        button->setVisible(!(form.*member).hidden);
        if (const std::string& tip = (form.*member).toolTip; !tip.empty())
            button->setToolTip(text(tip));
    });
    connect(button, &QAbstractButton::clicked, this, [this, send] { this->send(send); });
}

void FormBinder::bind(std::string_view outlet, ImageWellButton* well,
                      ImageWell FormModel::*member) {
    well->setObjectName(text(outlet));
    addUpdater([well, member](const FormModel& form) {
        well->setImage((form.*member).image);
        well->setPath(text((form.*member).toolTip));
        well->setVisible(!(form.*member).hidden && well->isUseful());
    });
}

void FormBinder::bind(std::string_view outlet, QWidget* marker, Marker FormModel::*member) {
    marker->setObjectName(text(outlet));
    addUpdater(
        [marker, member](const FormModel& form) { marker->setVisible(!(form.*member).hidden); });
}

void FormBinder::bind(std::string_view outlet, QWidget* box, Box FormModel::*member) {
    box->setObjectName(text(outlet));
    addUpdater([box, member](const FormModel& form) { box->setVisible(!(form.*member).hidden); });
}

} // namespace frimbolate
