// The card of the form: name, target, action and schedule, each a row of a label, its control, what
// stands beside it, a mark where validation found a fault, a tip, and a line of plain words below.
#pragma once

#include "core/form_model.h"

#include <QWidget>

class QGridLayout;
class QLayout;

namespace frimbolate {

class ElidedLabel;
class FormBinder;
struct FormPresentation;
class ImageWellButton;
class PopUpButton;
class TimeField;

class FormCard : public QWidget {
    Q_OBJECT

  public:
    explicit FormCard(FormBinder& binder, QWidget* parent = nullptr);

    /// Where a person begins to type.
    QWidget* firstField() const { return firstField_; }
    /// The first control, from top to bottom, that bears the border of a fault; null for none.
    QWidget* firstFault() const;
    /// Where the script pop-over points to.
    QWidget* scriptButton() const { return scriptButton_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Row {
        ElidedLabel* hint = nullptr;
        QWidget* control = nullptr; ///< what the row's label belongs to
        QList<QWidget*> marked;     ///< what bears the border of a fault
    };
    enum { NameRow, TargetRow, ActionRow, ScheduleRow, RowCount };
    /// The columns of a row and the gaps between them.
    enum { Label, Control, WellGap, Well, ScriptGap, Script, MarkerGap, MarkerColumn, TipGap, Tip };

    /// The label and the hint of a row. A control is named to assistive tools by the label beside
    /// it, so all that a row holds are children of the card itself.
    void addRow(int row, const QString& label, QWidget* control, QList<QWidget*> marked);
    void addToRow(int row, int column, QWidget* widget);
    void addToRow(int row, int column, QLayout* line);
    void addMarker(int row, std::string_view outlet, Marker FormModel::*member);
    void addTip(int row, std::string_view outlet, Button FormModel::*member);

    void addNameRow();
    void addTargetRow();
    void addActionRow();
    void addScheduleRow();
    void setUpTimePicker();

    void pressTargetWell();
    void pressWatchPathWell();
    void showTarget(const FormModel& form);
    void showHints(const FormPresentation& presentation);

    FormBinder& binder_;
    QGridLayout* grid_;
    QWidget* firstField_ = nullptr;
    Row rows_[RowCount];
    PopUpButton* targetButton_ = nullptr;
    ImageWellButton* targetWell_ = nullptr;
    ImageWellButton* watchPathWell_ = nullptr;
    QWidget* scriptButton_ = nullptr;
    TimeField* timePicker_ = nullptr;
};

} // namespace frimbolate
