#include "tests/support/check_rows.h"

namespace frimbolate::test {

namespace {

const std::string writable =
    "file-writable : may be written by its group or by others, so launchd skips it: "
    "run chmod go-w";

CheckContext withMode(unsigned mode) {
    CheckContext context;
    context.mode = mode;
    return context;
}

CheckContext withOwner(bool isUser) {
    CheckContext context;
    context.ownedByUser = isUser;
    return context;
}

CheckContext inFile(const char* path) {
    CheckContext context;
    context.filePath = path;
    return context;
}

} // namespace

std::vector<CheckRow> fileCheckRows() {
    const auto otherName = "file-name Label: is not the name of the file, which should be "
                           "com.example.backup.plist";
    const auto label = [](const char* text) { return edited(backup(), {{"Label", text}}); };
    return {
        {"TextAsAgent",
         "no-dictionary",
         "an agent",
         {"no-dictionary : is a string; launchd reads a dictionary of keys"}},
        {"ArrayAsAgent",
         "no-dictionary",
         Array{Value(backup())},
         {"no-dictionary : is an array; launchd reads a dictionary of keys"}},
        {"DataAsAgent",
         "no-dictionary",
         Data{{1, 2}},
         {"no-dictionary : is data; launchd reads a dictionary of keys"}},
        {"DictionaryAsAgent", "no-dictionary", server(), {}},

        {"WritableByGroup", "file-writable", backup(), {writable}, withMode(0664)},
        {"WritableByOthers", "file-writable", backup(), {writable}, withMode(0602)},
        {"WritableByAll", "file-writable", backup(), {writable}, withMode(0666)},
        {"WritableByTheUser", "file-writable", backup(), {}, withMode(0644)},
        {"ReadableAndExecutable", "file-writable", backup(), {}, withMode(0755)},

        {"OfAnotherUser",
         "file-owner",
         backup(),
         {"file-owner : belongs to another user, so launchd skips it"},
         withOwner(false)},
        {"OfTheUser", "file-owner", backup(), {}, withOwner(true)},

        {"OtherFileName", "file-name", backup(), {otherName}, inFile("/home/maya/backup.plist")},
        {"FileNameInOtherCase",
         "file-name",
         backup(),
         {otherName},
         inFile("/x/com.example.Backup.plist")},
        {"SuffixTwice",
         "file-name",
         backup(),
         {otherName},
         inFile("/x/com.example.backup.plist.plist")},
        {"SuffixWithin",
         "file-name",
         backup(),
         {otherName},
         inFile("/x/com.example.backup.plist.old")},
        {"FileNameOfNoLabel",
         "file-name",
         label(""),
         {"label-empty Label: is empty; no other agent may have the same label"},
         inFile("/x/com.example.backup.plist")},
        {"FileNameOfLabel", "file-name", backup(), {}, inFile("/x/com.example.backup.plist")},
        {"FileNameWithoutFolder", "file-name", backup(), {}, inFile("com.example.backup.plist")},
        {"FileNameWithoutSuffix", "file-name", backup(), {}, inFile("/x/com.example.backup")},
        // A decomposed letter in the file's name and a composed one in the label.
        {"FileNameDecomposed",
         "file-name",
         label("com.example.caf\u00e9"),
         {},
         inFile("/x/com.example.cafe\u0301.plist")},
        {"FileNameWithoutAccent",
         "file-name",
         label("com.example.caf\u00e9"),
         {"file-name Label: is not the name of the file, which should be "
          "com.example.caf\u00e9.plist"},
         inFile("/x/com.example.cafe.plist")},
    };
}

} // namespace frimbolate::test
