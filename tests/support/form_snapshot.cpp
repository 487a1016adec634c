#include "tests/support/form_snapshot.h"

#include <gtest/gtest.h>

namespace frimbolate::test {

namespace {

template <typename Model, typename Visit>
void visitForm(Model& form, Visit& visit) {
    visit("agentNameTextField", form.agentNameTextField);
    visit("agentTargetButton", form.agentTargetButton);
    visit("agentTargetImageWell", form.agentTargetImageWell);
    visit("showPopOverScriptButton", form.showPopOverScriptButton);
    visit("agentActionButton", form.agentActionButton);
    visit("agentWatchPathImageWell", form.agentWatchPathImageWell);
    visit("agentScheduleTypeButton", form.agentScheduleTypeButton);
    visit("agentScheduleDatePicker", form.agentScheduleDatePicker);
    visit("agentIntervalField", form.agentIntervalField);
    visit("agentIntervalTypeButton", form.agentIntervalTypeButton);
    visit("onMonthTextBox", form.onMonthTextBox);
    visit("onMonthTextField", form.onMonthTextField);
    visit("nameErrorImageWell", form.nameErrorImageWell);
    visit("targetErrorImageWell", form.targetErrorImageWell);
    visit("actionErrorImageWell", form.actionErrorImageWell);
    visit("scheduleErrorImageWell", form.scheduleErrorImageWell);
    visit("popoverScriptObject", form.popoverScriptObject);
    visit("scriptPopOverScriptField", form.scriptPopOverScriptField);
    visit("scriptPopOverLanguageButton", form.scriptPopOverLanguageButton);
}

template <typename Model, typename Visit>
void visitDrawer(Model& form, Visit& visit) {
    visit("advancedDrawer", form.advancedDrawer);
    visit("priorityLevelButton", form.priorityLevelButton);
    visit("niceLevelSlider", form.niceLevelSlider);
    visit("niceLevelTextField", form.niceLevelTextField);
    visit("standardInPathField", form.standardInPathField);
    visit("standardOutPathField", form.standardOutPathField);
    visit("standardErrorPathField", form.standardErrorPathField);
    visit("workingDirectoryField", form.workingDirectoryField);
    visit("rootDirectoryField", form.rootDirectoryField);
    visit("queueDirectoryField", form.queueDirectoryField);
    visit("enableGlobbingCheckbox", form.enableGlobbingCheckbox);
    visit("alsoRunAtLoadCheckbox", form.alsoRunAtLoadCheckbox);
    visit("alsoRunVolumeCheckbox", form.alsoRunVolumeCheckbox);
    visit("alsoRunPathChangeCheckbox", form.alsoRunPathChangeCheckbox);
    visit("alsoRunPathChangeImageWell", form.alsoRunPathChangeImageWell);
    visit("allowSuccessfulExitCheckbox", form.allowSuccessfulExitCheckbox);
}

template <typename Model, typename Visit>
void visitRest(Model& form, Visit& visit) {
    visit("mainWindow", form.mainWindow);
    visit("mainWindowToolbar", form.mainWindowToolbar);
    visit("advancedToolbarItem", form.advancedToolbarItem);
    visit("preferencesMenuItem", form.preferencesMenuItem);
    visit("agentNameTipButton", form.agentNameTipButton);
    visit("agentTargetTipButton", form.agentTargetTipButton);
    visit("agentActionTipButton", form.agentActionTipButton);
    visit("agentScheduleTipButton", form.agentScheduleTipButton);
    visit("advancedDrawerTipButton", form.advancedDrawerTipButton);
    visit("showWelcomeCheckbox", form.showWelcomeCheckbox);
    visit("showWelcomeWindowCheckbox", form.showWelcomeWindowCheckbox);
    visit("autoCopyScriptCheckbox", form.autoCopyScriptCheckbox);
    visit("warnSuccessfulExitCheckbox", form.warnSuccessfulExitCheckbox);
    visit("globalGlobbingCheckbox", form.globalGlobbingCheckbox);
    visit("globalPriorityCheckbox", form.globalPriorityCheckbox);
    visit("actionScriptTextView", form.actionScriptTextView);
    visit("copyCommandButton", form.copyCommandButton);
    visit("autoCopyScriptsCheckbox2", form.autoCopyScriptsCheckbox2);
}

template <typename Model, typename Visit>
void visitControls(Model& form, Visit visit) {
    visitForm(form, visit);
    visitDrawer(form, visit);
    visitRest(form, visit);
}

std::string text(bool flag) { return flag ? "yes" : "no"; }
std::string text(int number) { return std::to_string(number); }
std::string text(double number) { return std::to_string(number); }
std::string text(const std::string& string) { return '"' + string + '"'; }
std::string text(const std::optional<std::string>& string) {
    return string ? text(*string) : "none";
}
std::string text(const Size& size) { return text(size.width) + " x " + text(size.height); }

std::string text(ToolbarItem::Action action) {
    const bool opens = action == ToolbarItem::Action::openAdvancedDrawer;
    return opens ? "openAdvancedDrawer" : "closeAdvancedDrawer";
}

std::string text(const LocalDateTime& time) {
    return text(time.year) + '-' + text(time.month) + '-' + text(time.day) + ' ' + text(time.hour) +
           ':' + text(time.minute) + ':' + text(time.second);
}

std::string text(const std::set<int>& items) {
    std::string result;
    for (const int item : items)
        result += (result.empty() ? "" : " ") + text(item);
    return result;
}

std::string text(const Image& image) {
    switch (image.kind) {
    case Image::Kind::None:
        return "none";
    case Image::Kind::Resource:
        return "resource " + image.name;
    case Image::Kind::FileIcon:
        return "icon of " + image.name;
    }
    return "unknown";
}

class SnapshotVisitor {
  public:
    explicit SnapshotVisitor(Snapshot& result) : snapshot_(result) {}

    void operator()(const char* name, const TextField& field) {
        add(name, "stringValue", field.stringValue), add(name, "hidden", field.hidden);
    }
    void operator()(const char* name, const PopUp& popUp) {
        add(name, "selectedItem", popUp.selectedItem), add(name, "enabled", popUp.enabled);
        add(name, "hidden", popUp.hidden), add(name, "width", popUp.width);
        add(name, "disabledItems", popUp.disabledItems);
    }
    void operator()(const char* name, const CheckBox& box) {
        add(name, "state", box.state), add(name, "enabled", box.enabled);
    }
    void operator()(const char* name, const DatePicker& picker) {
        add(name, "dateValue", picker.dateValue), add(name, "hidden", picker.hidden);
        add(name, "width", picker.width), add(name, "unreadableText", picker.unreadableText);
    }
    void operator()(const char* name, const Box& box) { add(name, "hidden", box.hidden); }
    void operator()(const char* name, const Marker& marker) { add(name, "hidden", marker.hidden); }
    void operator()(const char* name, const Button& button) {
        add(name, "hidden", button.hidden), add(name, "toolTip", button.toolTip);
    }
    void operator()(const char* name, const Slider& slider) { add(name, "value", slider.value); }
    void operator()(const char* name, const ImageWell& well) {
        add(name, "image", well.image), add(name, "toolTip", well.toolTip);
        add(name, "hidden", well.hidden);
    }
    void operator()(const char* name, const PopOver& popOver) {
        add(name, "shown", popOver.shown), add(name, "animates", popOver.animates);
        add(name, "behavior", static_cast<int>(popOver.behavior));
    }
    void operator()(const char* name, const Drawer& drawer) {
        add(name, "open", drawer.open), add(name, "edge", drawer.edge);
        add(name, "contentSize", drawer.contentSize);
        add(name, "minContentSize", drawer.minContentSize);
        add(name, "maxContentSize", drawer.maxContentSize);
    }
    void operator()(const char* name, const ToolbarItem& item) { add(name, "action", item.action); }
    void operator()(const char* name, const Toolbar& toolbar) {
        add(name, "allowsUserCustomization", toolbar.allowsUserCustomization);
        add(name, "sizeMode", toolbar.sizeMode);
    }
    void operator()(const char* name, const MenuItem& item) { add(name, "enabled", item.enabled); }
    void operator()(const char* name, const TextView& view) {
        add(name, "string", view.string), add(name, "editable", view.editable);
    }
    void operator()(const char* name, const CopyButton& button) {
        add(name, "hasCopied", button.hasCopied);
    }
    void operator()(const char* name, const Window& window) {
        add(name, "visible", window.visible);
    }

  private:
    template <typename Property>
    void add(const char* name, const char* property, const Property& value) {
        snapshot_[std::string(name) + '.' + property] = text(value);
    }

    Snapshot& snapshot_;
};

class NonDefaultFiller {
  public:
    explicit NonDefaultFiller(bool flag) : flag_(flag) {}

    void operator()(const char* name, TextField& field) {
        field = {std::string("old ") + name, flag_};
    }
    void operator()(const char*, PopUp& popUp) { popUp = {7, flag_, flag_, 123, {0, 5, 14}}; }
    // Never off. Mixed counts as neither on nor off, so both flags differ from every rule.
    void operator()(const char*, CheckBox& box) {
        box = {flag_ ? CheckState::On : CheckState::Mixed, flag_};
    }
    void operator()(const char* name, DatePicker& picker) {
        picker = {{1999, 12, 31, 23, 59, 58}, flag_, 77, std::string("old ") + name};
    }
    void operator()(const char*, Box& box) { box = {flag_}; }
    void operator()(const char*, Marker& marker) { marker = {flag_}; }
    void operator()(const char* name, Button& button) { button = {flag_, name}; }
    void operator()(const char*, Slider& slider) { slider = {-13.0}; }
    void operator()(const char* name, ImageWell& well) {
        well = {Image::iconForFile("/old/icon"), std::string("/old/") + name, flag_};
    }
    void operator()(const char*, PopOver& popOver) { popOver.shown = flag_; }
    void operator()(const char*, Drawer& drawer) { drawer = {flag_, 1, {1, 2}, {3, 4}, {5, 6}}; }
    void operator()(const char*, ToolbarItem& item) {
        item.action = flag_ ? ToolbarItem::Action::closeAdvancedDrawer
                            : ToolbarItem::Action::openAdvancedDrawer;
    }
    void operator()(const char*, Toolbar& toolbar) { toolbar = {flag_, 2}; }
    void operator()(const char*, MenuItem& item) { item = {flag_}; }
    void operator()(const char* name, TextView& view) { view = {name, flag_}; }
    void operator()(const char*, CopyButton& button) { button = {flag_}; }
    void operator()(const char*, Window& window) { window = {flag_}; }

  private:
    bool flag_;
};

} // namespace

Snapshot snapshot(const FormModel& model) {
    Snapshot result;
    visitControls(model, SnapshotVisitor(result));
    return result;
}

std::vector<std::string> differences(const Snapshot& was, const Snapshot& is) {
    std::vector<std::string> lines;
    for (const auto& [name, value] : was)
        if (is.at(name) != value)
            lines.emplace_back(name).append(": ").append(value).append(" -> ").append(is.at(name));
    return lines;
}

Snapshot with(Snapshot snapshot, const Snapshot& changes) {
    for (const auto& [name, value] : changes) {
        EXPECT_TRUE(snapshot.contains(name)) << "no control has " << name;
        snapshot[name] = value;
    }
    return snapshot;
}

FormModel nonDefaultForm(bool flag) {
    FormModel form;
    visitControls(form, NonDefaultFiller(flag));
    return form;
}

} // namespace frimbolate::test
