// What a random user types: names, times, days, paths, scripts, and what nobody should type.
#pragma once

#include "tests/support/random_values.h"

#include <QString>

#include <string>

namespace frimbolate::test {

/// A text or the name of one, as it stands in a step: "#" and a name for those that are long or
/// that a line of a record cannot hold.
std::string drawText(RandomValues& random);
/// The text that an argument stands for.
QString typedText(const std::string& argument);
/// Whether the text is put in at once rather than key by key.
bool isPasted(const QString& text);

} // namespace frimbolate::test
