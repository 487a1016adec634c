// The form card with the rows name, target, action and schedule. A row holds a label, its control,
// controls beside it, a marker for a validation fault, a tip button, and a hint below.
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
    /// The binder must outlive the card.
    explicit FormCard(FormBinder& binder, QWidget* parent = nullptr);

    /// The field that has the focus at first.
    QWidget* firstField() const { return firstField_; }
    /// The topmost control that is marked as faulty; null if none is.
    QWidget* firstFault() const;
    /// The anchor of the script pop-over.
    QWidget* scriptButton() const { return scriptButton_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Row {
        ElidedLabel* hint = nullptr;
        QWidget* control = nullptr; ///< the buddy of the row's label
        QList<QWidget*> marked;     ///< the controls that get the border of a fault
    };
    enum { NameRow, TargetRow, ActionRow, ScheduleRow, RowCount };
    /// The columns of a row and the gaps between them.
    enum { Label, Control, WellGap, Well, ScriptGap, Script, MarkerGap, MarkerColumn, TipGap, Tip };

    /// Adds the label and the hint of a row. Assistive tools take a control's name from a sibling
    /// label, so everything in a row is a direct child of the card.
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
