#include "tests/support/scripted_platform.h"

#include "core/conversions.h"
#include "core/named_error.h"
#include "plist/xml_writer.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace frimbolate::test {

namespace {

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos || slash == 0 ? "/" : path.substr(0, slash);
}

std::string orNothing(const std::optional<std::string>& folder) {
    return folder.value_or("(nothing)");
}

const char* nameOf(Sheet sheet) {
    switch (sheet) {
    case Sheet::welcomeWindow:
        return "welcomeWindow";
    case Sheet::preferencesWindow:
        return "preferencesWindow";
    case Sheet::executeScriptWindow:
        return "executeScriptWindow";
    }
    return "unknown";
}

} // namespace

std::vector<std::string> Journal::texts(const std::string& kind) const {
    std::vector<std::string> result;
    for (const auto& line : lines_)
        if (line.starts_with(kind + ": "))
            result.push_back(line.substr(kind.size() + 2));
    return result;
}

// Files

bool ScriptedFiles::exists(const std::string& path) {
    return contents.contains(path) || folders.contains(path);
}

bool ScriptedFiles::isWritable(const std::string& path) {
    return exists(path) && !readOnly.contains(path);
}

bool ScriptedFiles::remove(const std::string& path) {
    journal_.add("remove", path);
    if (removalFails || folders.contains(path))
        return false;
    contents.erase(path);
    return true;
}

std::optional<Dictionary> ScriptedFiles::readDictionary(const std::string& path) {
    journal_.add("read", path);
    const auto found = contents.find(path);
    return found == contents.end() ? std::nullopt : found->second;
}

bool ScriptedFiles::writeDictionary(const std::string& path, const Dictionary& dictionary) {
    if (contentIsUnwritable)
        throw NamedError("Unwritable content", "This content cannot be written");
    journal_.add("write", path);
    if (diskIsFull || !folders.contains(folderOf(path)) || readOnly.contains(path) ||
        readOnly.contains(folderOf(path)))
        return false;
    contents[path] = dictionary;
    return true;
}

std::string ScriptedFiles::propertyListText(const Dictionary& dictionary) {
    if (contentIsUnwritable)
        throw NamedError("Unwritable content", "This content cannot be written");
    return xmlPropertyList(dictionary);
}

// Trash

std::optional<std::string> ScriptedTrash::moveToTrash(const std::string& path) {
    journal_.add("trash", path);
    const auto found = files_.contents.find(path);
    if (refuses || found == files_.contents.end())
        return std::nullopt;
    // Files of one name get different paths in the trash.
    std::string place = std::string(folder) + "/" + std::string(afterLast(path, "/"));
    while (files_.contents.contains(place))
        place += " 2";
    const auto content = std::move(found->second);
    files_.contents.erase(found);
    files_.contents[place] = content;
    return place;
}

// Defaults

std::optional<Value> ScriptedDefaults::object(std::string_view key) {
    reads.emplace_back(key);
    const auto* value = find(contents, key);
    return value ? std::optional(*value) : std::nullopt;
}

void ScriptedDefaults::set(std::string_view key, Value value) {
    journal_.add("set", std::string(key) + " = " + description(value));
    contents.insert_or_assign(std::string(key), std::move(value));
}

void ScriptedDefaults::remove(std::string_view key) {
    journal_.add("unset", std::string(key));
    contents.erase(std::string(key));
}

std::vector<std::string> ScriptedDefaults::keys() {
    std::vector<std::string> result;
    for (const auto& [key, value] : contents)
        result.push_back(key);
    return result;
}

// Folder access

Data bookmarkOf(const std::string& folder) { return Data{{folder.begin(), folder.end()}}; }

Data ScriptedFolderAccess::createBookmark(const std::string& folder) {
    if (creationFails)
        throw NamedError("Bookmark not created", "No bookmark can be made of this folder");
    return bookmarkOf(folder);
}

std::optional<std::string> ScriptedFolderAccess::resolve(const Data& bookmark) {
    if (resolutionFails)
        return std::nullopt;
    return std::string(bookmark.bytes.begin(), bookmark.bytes.end());
}

void ScriptedFolderAccess::begin(const std::optional<std::string>& folder) {
    journal_.add("begin", orNothing(folder));
    ++begun;
}

void ScriptedFolderAccess::end(const std::optional<std::string>& folder) {
    journal_.add("end", orNothing(folder));
    --begun;
}

std::optional<Data> ScriptedFolderAccess::renewedBookmark(const std::string& folder) {
    if (renewed && begun == 0)
        ADD_FAILURE() << "The bookmark of " << folder << " is renewed without access";
    return renewed;
}

// Questions

ScriptedPlatform::ScriptedPlatform() = default;

ScriptedPlatform::~ScriptedPlatform() {
    EXPECT_EQ(questions_.size(), 0U) << "a question was left unanswered";
}

Services ScriptedPlatform::services(const OwnServices& own) {
    return {.alerts = *this,
            .sheets = own.sheets ? *own.sheets : *this,
            .filePanels = own.filePanels ? *own.filePanels : *this,
            .files = own.files ? *own.files : files,
            .folderAccess = folderAccess,
            .defaults = defaults,
            .pasteboard = *this,
            .workspace = *this,
            .clock = *this,
            .log = *this,
            .application = *this,
            .trash = trash};
}

template <typename Kind>
Kind* ScriptedPlatform::first(const char* expected) {
    Kind* found = questions_.empty() ? nullptr : std::get_if<Kind>(&questions_.front().what);
    EXPECT_NE(found, nullptr) << "the first question is no " << expected << " ("
                              << questions_.size() << " waiting)";
    return found;
}

template <typename Kind>
std::optional<Kind> ScriptedPlatform::take(const char* expected) {
    Kind* found = first<Kind>(expected);
    if (!found)
        return std::nullopt;
    // Removed before it is answered, since the completion may ask the next question.
    auto question = std::move(*found);
    questions_.pop_front();
    return question;
}

Alert ScriptedPlatform::shownAlert() {
    const auto* question = first<Question::AlertQuestion>("alert");
    return question ? question->alert : Alert{};
}

OpenPanel ScriptedPlatform::shownOpenPanel() {
    const auto* question = first<Question::OpenQuestion>("open panel");
    return question ? question->panel : OpenPanel{};
}

SavePanel ScriptedPlatform::shownSavePanel() {
    const auto* question = first<Question::SaveQuestion>("save panel");
    return question ? question->panel : SavePanel{};
}

void ScriptedPlatform::press(const std::string& button, int suppressionState) {
    const auto question = take<Question::AlertQuestion>("alert");
    if (!question)
        return;
    const auto& buttons = question->alert.buttons;
    const auto pressed = std::find(buttons.begin(), buttons.end(), button);
    ASSERT_NE(pressed, buttons.end()) << "the alert has no button \"" << button << '"';
    const auto index = static_cast<int>(pressed - buttons.begin());
    question->completion({AlertAnswer::First + index, suppressionState});
}

void ScriptedPlatform::choose(const std::string& path) {
    if (const auto question = take<Question::OpenQuestion>("open panel"))
        question->completion(path);
}

void ScriptedPlatform::saveAs(const std::string& path, const std::string& nameField) {
    if (const auto question = take<Question::SaveQuestion>("save panel"))
        question->completion(SaveLocation{path, nameField});
}

void ScriptedPlatform::saveAs(const std::string& path) {
    saveAs(path, std::string(afterLast(path, "/")));
}

void ScriptedPlatform::cancelPanel() {
    const bool opens = !questions_.empty() &&
                       std::holds_alternative<Question::OpenQuestion>(questions_.front().what);
    if (opens) {
        take<Question::OpenQuestion>("open panel")->completion(std::nullopt);
        return;
    }
    if (const auto question = take<Question::SaveQuestion>("save panel"))
        question->completion(std::nullopt);
}

// Services

void ScriptedPlatform::show(const Alert& alert, Alerts::Completion completion) {
    journal.add("alert", alert.messageText);
    questions_.push_back({Question::AlertQuestion{alert, std::move(completion)}});
}

void ScriptedPlatform::begin(Sheet sheet) {
    journal.add("sheet", std::string("begin ") + nameOf(sheet));
    shownSheets.insert(sheet);
}

void ScriptedPlatform::end(Sheet sheet) {
    journal.add("sheet", std::string("end ") + nameOf(sheet));
    shownSheets.erase(sheet);
}

void ScriptedPlatform::makeFirstResponder(Sheet sheet, std::string_view outlet) {
    journal.add("first responder", std::string(nameOf(sheet)) + "." + std::string(outlet));
}

void ScriptedPlatform::open(const OpenPanel& panel, OpenCompletion completion) {
    journal.add("open panel", panel.message);
    questions_.push_back({Question::OpenQuestion{panel, std::move(completion)}});
}

void ScriptedPlatform::save(const SavePanel& panel, SaveCompletion completion) {
    journal.add("save panel", panel.nameFieldStringValue);
    questions_.push_back({Question::SaveQuestion{panel, std::move(completion)}});
}

void ScriptedPlatform::clearContents() {
    journal.add("pasteboard", "cleared");
    pasteboard.clear();
}

void ScriptedPlatform::setString(const std::string& text) {
    journal.add("pasteboard", text);
    pasteboard = text;
}

} // namespace frimbolate::test
