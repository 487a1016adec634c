// Keeps the controls and the form model alike, both ways.
//
// A control is bound once, to the member of the model that bears its name. What a person does in
// it changes that member and sends the control's one action; then every control is mirrored from
// the model anew. So no control knows another, and none of them remembers a rule.
#pragma once

#include "core/form_presentation.h"
#include "ui/app_delegate.h"

#include <QObject>

#include <functional>
#include <string_view>
#include <vector>

class QAbstractButton;
class QCheckBox;
class QLineEdit;
class QSlider;
class QWidget;

namespace frimbolate {

class ImageWellButton;
class PopUpButton;
class ScriptEditor;
class TimeField;

class FormBinder : public QObject {
    Q_OBJECT

  public:
    /// What a control sends; empty where it only changes the model.
    using Send = std::function<void(AppDelegate&)>;

    /// From here on what a person does reaches the model. The delegate must outlive the binder.
    void connectTo(AppDelegate& delegate);

    /// Makes everything that is bound show the model as it is now.
    void mirror();
    /// Does what a control does: changes the model, sends the action, mirrors. Nothing happens
    /// before connectTo(), nor while the mirror itself moves the controls. Before an action is sent
    /// finishTyping() is called.
    void edit(const std::function<void(FormModel&)>& change, const Send& send = {});
    void send(const Send& send) {
        edit([](FormModel&) {}, send);
    }

    /// Reads what was typed into a field that reads its text only when it is left.
    void finishTyping();

    /// Runs at each mirroring, in the order of the bindings.
    void addUpdater(std::function<void(const FormModel&)> updater);
    /// The same for what shows more than the model holds. That is made once for each mirroring.
    void addUpdater(std::function<void(const FormModel&, const FormPresentation&)> updater);

    // Each gives the control its outlet's name. A text is only set where it differs, so that caret
    // and undo survive the mirroring.
    void bind(std::string_view outlet, QLineEdit* field, TextField FormModel::*member);
    void bind(std::string_view outlet, ScriptEditor* field, TextField FormModel::*member);
    void bind(std::string_view outlet, PopUpButton* button, PopUp FormModel::*member,
              const Send& send = {});
    void bind(std::string_view outlet, QCheckBox* box, CheckBox FormModel::*member,
              const Send& send = {});
    void bind(std::string_view outlet, TimeField* field, DatePicker FormModel::*member);
    void bind(std::string_view outlet, QSlider* slider, Slider FormModel::*member,
              const Send& send);
    void bind(std::string_view outlet, QAbstractButton* button, Button FormModel::*member,
              const Send& send);
    void bind(std::string_view outlet, ImageWellButton* well, ImageWell FormModel::*member);
    void bind(std::string_view outlet, QWidget* marker, Marker FormModel::*member);
    void bind(std::string_view outlet, QWidget* box, Box FormModel::*member);

  private:
    AppDelegate* delegate_ = nullptr;
    bool mirroring_ = false;
    std::vector<std::function<void(const FormModel&, const FormPresentation&)>> updaters_;
    std::vector<TimeField*> pendingFields_; ///< owned by the window
};

} // namespace frimbolate
