// Every control of the window, the drawer, the pop-over and the sheets, as plain data.
//
// This is the only state of the editor: rules change it, and the window shows it. Each member is a
// control and bears the name of its outlet.
#pragma once

#include "core/agent_form.h"
#include "core/form_widths.h"

#include <optional>
#include <set>
#include <string>

namespace frimbolate {

/// The platform's check-box states. Only the globbing box counts Mixed as on.
namespace CheckState {
enum : int { Mixed = -1, Off = 0, On = 1 };
}

struct TextField {
    std::string stringValue;
    bool hidden = false;
    friend bool operator==(const TextField&, const TextField&) = default;
};

struct PopUp {
    int selectedItem = 0; ///< item index, -1 for no selection
    bool enabled = true;
    bool hidden = false;
    int width = 0; ///< points; 0 where the layout decides
    std::set<int> disabledItems;
    friend bool operator==(const PopUp&, const PopUp&) = default;
};

struct CheckBox {
    int state = CheckState::Off;
    bool enabled = true;
    friend bool operator==(const CheckBox&, const CheckBox&) = default;
};

struct DatePicker {
    LocalDateTime dateValue;
    bool hidden = false;
    int width = normalDatePickerWidth; ///< points
    /// The text typed last, where it is no time; dateValue then keeps the last valid time. set()
    /// and hide() reset it.
    std::optional<std::string> unreadableText;

    void set(const LocalDateTime& date) { dateValue = date, unreadableText.reset(); }
    void hide() { hidden = true, unreadableText.reset(); }
    friend bool operator==(const DatePicker&, const DatePicker&) = default;
};

struct Box {
    bool hidden = false;
    friend bool operator==(const Box&, const Box&) = default;
};

struct Button {
    bool hidden = false;
    std::string toolTip;
    friend bool operator==(const Button&, const Button&) = default;
};

struct Slider {
    double value = 0.0;
    friend bool operator==(const Slider&, const Slider&) = default;
};

/// An image by reference, so that the rules need no pixels: a named resource of the program, or the
/// icon that the desktop shows for a path.
struct Image {
    enum class Kind { None, Resource, FileIcon };
    Kind kind = Kind::None;
    std::string name; ///< resource name or path

    static Image none() { return {}; }
    static Image resource(std::string name) { return {Kind::Resource, std::move(name)}; }
    static Image iconForFile(std::string path) { return {Kind::FileIcon, std::move(path)}; }
    friend bool operator==(const Image&, const Image&) = default;
};

struct ImageWell {
    Image image;
    std::string toolTip; ///< the only copy of the chosen path; empty = nothing chosen
    bool hidden = false;

    void clear() { image = Image::none(), toolTip.clear(); }
    friend bool operator==(const ImageWell&, const ImageWell&) = default;
};

/// An error marker beside a row. Only validation shows it.
struct Marker {
    bool hidden = true;
    friend bool operator==(const Marker&, const Marker&) = default;
};

struct PopOver {
    bool shown = false;
    bool animates = false;
    enum class Behavior { ApplicationDefined = 0, Transient = 1 } behavior = {};
    friend bool operator==(const PopOver&, const PopOver&) = default;
};

struct Size {
    int width = 0;
    int height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

struct Drawer {
    bool open = false;
    int edge = 2; ///< 2 = the right edge of the window
    Size contentSize, minContentSize, maxContentSize;
    friend bool operator==(const Drawer&, const Drawer&) = default;
};

struct ToolbarItem {
    /// The action that the next click sends.
    enum class Action { openAdvancedDrawer, closeAdvancedDrawer } action = {};
    friend bool operator==(const ToolbarItem&, const ToolbarItem&) = default;
};

struct Toolbar {
    bool allowsUserCustomization = true;
    int sizeMode = 0; ///< 0 = the platform's default, 1 = regular
    friend bool operator==(const Toolbar&, const Toolbar&) = default;
};

struct MenuItem {
    bool enabled = true;
    friend bool operator==(const MenuItem&, const MenuItem&) = default;
};

struct TextView {
    std::string string;
    bool editable = false;
    friend bool operator==(const TextView&, const TextView&) = default;
};

/// The button that copies the command of the command sheet.
struct CopyButton {
    bool hasCopied = false; ///< whether the command shown now was put on the pasteboard
    friend bool operator==(const CopyButton&, const CopyButton&) = default;
};

struct Window {
    bool visible = false;
    friend bool operator==(const Window&, const Window&) = default;
};

struct FormModel {
    Window mainWindow;
    Toolbar mainWindowToolbar;
    ToolbarItem advancedToolbarItem;
    MenuItem preferencesMenuItem;

    // The form
    TextField agentNameTextField;
    PopUp agentTargetButton;
    ImageWell agentTargetImageWell;
    Button showPopOverScriptButton;
    PopUp agentActionButton;
    ImageWell agentWatchPathImageWell;
    PopUp agentScheduleTypeButton;
    DatePicker agentScheduleDatePicker;
    TextField agentIntervalField;
    PopUp agentIntervalTypeButton;
    Box onMonthTextBox;
    TextField onMonthTextField;
    Marker nameErrorImageWell, targetErrorImageWell, actionErrorImageWell, scheduleErrorImageWell;

    // The script pop-over
    PopOver popoverScriptObject;
    TextField scriptPopOverScriptField;
    PopUp scriptPopOverLanguageButton;

    // The advanced drawer
    Drawer advancedDrawer;
    PopUp priorityLevelButton;
    Slider niceLevelSlider;
    TextField niceLevelTextField;
    TextField standardInPathField, standardOutPathField, standardErrorPathField;
    TextField workingDirectoryField, rootDirectoryField, queueDirectoryField;
    CheckBox enableGlobbingCheckbox;
    CheckBox alsoRunAtLoadCheckbox, alsoRunVolumeCheckbox, alsoRunPathChangeCheckbox;
    ImageWell alsoRunPathChangeImageWell;
    CheckBox allowSuccessfulExitCheckbox;

    // The tips
    Button agentNameTipButton, agentTargetTipButton, agentActionTipButton, agentScheduleTipButton;
    Button advancedDrawerTipButton;

    // The welcome sheet
    CheckBox showWelcomeCheckbox{CheckState::On};

    // The preferences sheet
    CheckBox showWelcomeWindowCheckbox, autoCopyScriptCheckbox, warnSuccessfulExitCheckbox;
    PopUp globalGlobbingCheckbox, globalPriorityCheckbox;

    // The command sheet
    TextView actionScriptTextView;
    CopyButton copyCommandButton;
    CheckBox autoCopyScriptsCheckbox2;
    friend bool operator==(const FormModel&, const FormModel&) = default;
};

/// The record of the agent that the controls show.
AgentForm agentForm(const FormModel& model);

} // namespace frimbolate
