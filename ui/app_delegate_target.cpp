// The target of the agent, and the additional path that it watches.
#include "ui/app_delegate.h"

#include "core/agent_plist.h"
#include "core/bundle_path.h"
#include "core/named_error.h"
#include "core/script_types.h"

namespace frimbolate {

namespace {

/// The image for a script with this extension; none for any other file.
Image scriptImage(std::string_view extension) {
    const auto* type = scriptTypeWithExtension(extension);
    return type ? Image::resource(std::string(type->image)) : Image::none();
}

} // namespace

void AppDelegate::clearTarget() { form_.agentTargetImageWell.clear(); }

void AppDelegate::closeScriptPopOver() { form_.popoverScriptObject.shown = false; }

void AppDelegate::showPopOverScript() { form_.popoverScriptObject.shown = true; }

void AppDelegate::chooseAgentTarget() {
    closeScriptPopOver();
    const int target = form_.agentTargetButton.selectedItem;
    if (target == TargetType::File || target == TargetType::None) {
        form_.showPopOverScriptButton.hidden = true;
        clearTarget();
    }
}

OpenPanel AppDelegate::targetPanel() {
    OpenPanel panel;
    panel.prompt = "Select";
    panel.message = "Please choose an application, script, or workflow (.app";
    panel.allowedFileTypes = {"app"};
    for (const auto& type : scriptTypes) {
        panel.message.append(", .").append(type.extension);
        panel.allowedFileTypes.emplace_back(type.extension);
    }
    panel.message += "):";
    panel.directory = "/Applications";
    return panel;
}

void AppDelegate::targetDropped(const std::string& path) {
    form_.agentTargetButton.selectedItem = TargetType::File;
    chooseAgentTarget();
    targetChosen(path);
}

void AppDelegate::chooseApplicationOrScript() {
    const FormModel before = takeFormBeforeInput();
    form_.showPopOverScriptButton.hidden = true;
    services_.filePanels.open(
        targetPanel(), lifetime_.whileAlive([this, before](const std::optional<std::string>& path) {
            if (path) {
                targetChosen(*path);
                return;
            }
            form_.agentTargetButton.selectedItem = TargetType::None;
            clearTarget();
            form_.scriptPopOverScriptField.stringValue.clear();
            history_.record("Choose Target", before, form_);
        }));
}

void AppDelegate::targetChosen(const std::string& path) {
    // The extension of the encoded URL. A trailing "/" of a folder counts as part of it.
    const auto url = fileUrl(path);
    const auto extension = targetExtension(url);
    log("Last path component: " + std::string(extension));
    if (extension == "app") {
        chooseExecutableOf(path);
    } else if (const auto image = scriptImage(extension); image != Image::none()) {
        form_.agentTargetImageWell.image = image;
        form_.agentTargetImageWell.toolTip = path;
    }
    validateSuccessfulExit();
}

void AppDelegate::chooseExecutableOf(const std::string& bundle) {
    try {
        form_.agentTargetImageWell.image = Image::iconForFile(bundle);
        const auto info = services_.files.readDictionary(bundle + "/Contents/Info.plist");
        const Value* name = info ? find(*info, "CFBundleExecutable") : nullptr;
        if (!name)
            throw NamedError("Missing value", "The application names no executable");
        const auto executable = bundle + std::string(executableFolder).append(name->asString());
        log("PATH TO EXECUTABLE: " + executable);
        if (!services_.files.exists(executable)) {
            log("Executable does not exist!!");
            throw NamedError("Executable does not exist",
                             "Could not find executable: " + executable);
        }
        log("Executable does exist and will be used");
        form_.agentTargetImageWell.toolTip = executable;
    } catch (const NamedError&) {
        log("exception raised.");
        services_.alerts.show(
            {"This application may be corrupted or may not conform to the bundle structure "
             "programming standards.",
             "The executable for this application does not exist, is not accessible, or does not "
             "match the corresponding key in the application's Info.plist"},
            lifetime_.whileAlive([this](AlertOutcome) {
                form_.agentTargetButton.selectedItem = TargetType::None;
                clearTarget();
            }));
    }
}

void AppDelegate::evaluateScriptExtension(const std::string& path) {
    const auto extension = targetExtension(path);
    log("Last path component: " + std::string(extension));
    auto& well = form_.agentTargetImageWell;
    well.image = scriptImage(extension);
    if (well.image == Image::none()) {
        const std::string bundle(bundlePath(path));
        log("Path for icon will be: " + bundle);
        well.image = Image::iconForFile(bundle);
    }
    well.toolTip = path;
}

void AppDelegate::createNewScript() {
    clearTarget();
    form_.showPopOverScriptButton.hidden = false;
    showPopOverScript();
    validateSuccessfulExit();
}

void AppDelegate::chooseAdditionalWathPath() {
    const FormModel before = takeFormBeforeInput();
    if (form_.alsoRunPathChangeCheckbox.state != CheckState::On) {
        additionalWatchPathChosen(std::nullopt);
        return;
    }
    OpenPanel panel = watchPathPanel();
    panel.directory = "/Applications";
    services_.filePanels.open(
        panel, lifetime_.whileAlive([this, before](const std::optional<std::string>& path) {
            additionalWatchPathChosen(path);
            if (!path)
                history_.record("Choose Path", before, form_);
        }));
}

void AppDelegate::additionalWatchPathDropped(const std::string& path) {
    if (form_.alsoRunPathChangeCheckbox.state == CheckState::On)
        additionalWatchPathChosen(path);
}

/// Shows the path, or turns the option off where there is none.
void AppDelegate::additionalWatchPathChosen(const std::optional<std::string>& path) {
    auto& well = form_.alsoRunPathChangeImageWell;
    if (path) {
        well.toolTip = *path;
        well.image = Image::iconForFile(*path);
    } else {
        well.clear();
        form_.alsoRunPathChangeCheckbox.state = CheckState::Off;
    }
}

} // namespace frimbolate
