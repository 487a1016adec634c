// Values of every type but text, for preferences that are meant to hold a text.
#pragma once

#include "core/value.h"

#include <string>
#include <vector>

namespace frimbolate::test {

struct StoredForm {
    std::string name;
    Value value;
    std::string logged; ///< the value as a log line shows it
};

/// Values of each type but text, close to the valid texts where the type allows it.
inline std::vector<StoredForm> formsOtherThanText() {
    const Date epoch{0};
    return {
        {"Zero", 0, "0"},
        {"One", 1, "1"},
        {"NegativeNumber", -1, "-1"},
        {"Real", 0.5, "0.5"},
        {"BooleanTrue", true, "1"},
        {"BooleanFalse", false, "0"},
        {"Data", Data{{0x54, 0x72, 0x75, 0x65}}, "<54727565>"},
        {"EmptyData", Data{}, "<>"},
        {"Date", epoch, description(Value(epoch))},
        {"Array", Array{Value("True")}, "(\n    True\n)"},
        {"Dictionary", Dictionary{{"True", Value("False")}}, "{\n    True = False;\n}"},
    };
}

} // namespace frimbolate::test
