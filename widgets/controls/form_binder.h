// Binds the controls to the form model, in both directions.
//
// A control is bound once, to the model's member of the same name. Input in the control changes
// that member and sends the control's one action; then all controls are updated from the model. So
// no control knows another, and none holds a rule.
#pragma once

#ifndef Q_MOC_RUN // which cannot parse the concepts of the standard library
#include "core/form_presentation.h"
#endif
#include "ui/app_delegate.h"

#include <QObject>

#include <functional>
#include <string>
#include <string_view>
#include <utility>
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
    /// The action that a control sends; empty if it only changes the model.
    using Send = std::function<void(AppDelegate&)>;

    /// From here on input reaches the model. The delegate is not owned and must outlive the binder.
    void connectTo(AppDelegate& delegate);

    /// The clock by which the presentation gets the next run; without one it has none.
    void setWallClock(std::function<WallClock()> clock) { wallClock_ = std::move(clock); }
    /// What the presentation asks about the paths of the form; without it none is looked at.
    void setPathLookup(PathLookup lookUp) { lookUp_ = std::move(lookUp); }
    bool looksUpPaths() const { return static_cast<bool>(lookUp_); }
    /// For an updater that shows more than model and presentation; null before connectTo().
    AppDelegate* delegate() const { return delegate_; }
    /// Sets the folder that "~" stands for. Without a call it is that of the environment.
    void setHomeFolder(std::string folder) { homeFolder_ = std::move(folder); }
    std::string homeFolder() const;

    /// Runs all updaters with the current model. No effect before connectTo() and while running.
    void mirror();
    /// Handles input: changes the model, sends the action, runs the updaters. No effect before
    /// connectTo() and while the updaters run, as they move the controls. Calls finishTyping()
    /// before an action is sent.
    void edit(const std::function<void(FormModel&)>& change, const Send& send = {});
    void send(const Send& send) {
        edit([](FormModel&) {}, send);
    }

    /// Commits the pending texts of the time fields, which otherwise commit when they lose focus.
    void finishTyping();

    /// Runs at each mirror(), in the order of registration. What the updater captures must outlive
    /// the binder or its last mirror().
    void addUpdater(std::function<void(const FormModel&)> updater);
    /// The same with the presentation derived from the model, computed once for each mirror().
    void addUpdater(std::function<void(const FormModel&, const FormPresentation&)> updater);

    // Each sets the control's object name to the outlet. The control is not owned and must live as
    // long as the binder is used. A text is set only if it differs, to keep caret and undo history.
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
    bool updating_ = false;
    std::function<WallClock()> wallClock_;
    PathLookup lookUp_;
    std::string homeFolder_; ///< empty for that of the environment
    std::vector<std::function<void(const FormModel&, const FormPresentation&)>> updaters_;
    std::vector<TimeField*> pendingFields_; ///< owned by the window
};

} // namespace frimbolate
