// What a file panel asks for. Panels are compared whole, so that a test sees every property.
#pragma once

#include "platform/file_panels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace frimbolate::test {

/// The panel that most commands show: it selects one existing file.
/// \param types the extensions allowed; empty allows every file
inline OpenPanel selectPanel(std::string message, std::vector<std::string> types = {},
                             std::optional<std::string> directory = {}) {
    OpenPanel panel;
    panel.prompt = "Select";
    panel.message = std::move(message);
    panel.allowedFileTypes = std::move(types);
    panel.directory = std::move(directory);
    return panel;
}

/// Fails the running test for each property in which the panels differ.
inline void expectPanel(const OpenPanel& shown, const OpenPanel& expected) {
    EXPECT_EQ(shown.canChooseFiles, expected.canChooseFiles);
    EXPECT_EQ(shown.canChooseDirectories, expected.canChooseDirectories);
    EXPECT_EQ(shown.resolvesAliases, expected.resolvesAliases);
    EXPECT_EQ(shown.canCreateDirectories, expected.canCreateDirectories);
    EXPECT_EQ(shown.prompt, expected.prompt);
    EXPECT_EQ(shown.message, expected.message);
    EXPECT_THAT(shown.allowedFileTypes, testing::ElementsAreArray(expected.allowedFileTypes));
    EXPECT_EQ(shown.directory, expected.directory);
    EXPECT_EQ(shown.suggestedName, expected.suggestedName);
}

/// The same for a save panel, which always may create folders and accepts with "Save".
/// \param name the proposed file name
/// \param directory where the panel starts
inline void expectSavePanel(const SavePanel& shown, const std::string& name,
                            const std::string& message,
                            const std::optional<std::string>& directory) {
    EXPECT_EQ(shown.nameFieldStringValue, name);
    EXPECT_EQ(shown.prompt, "Save");
    EXPECT_EQ(shown.message, message);
    EXPECT_TRUE(shown.canCreateDirectories);
    EXPECT_EQ(shown.directory, directory);
}

} // namespace frimbolate::test
