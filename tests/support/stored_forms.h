// What a preference must survive: values of every type that is not the text a key is meant to hold.
#pragma once

#include "core/value.h"

#include <string>
#include <vector>

namespace frimbolate::test {

struct StoredForm {
    std::string name;
    Value value;
    std::string logged; ///< how a log line shows it
};

/// One value per type of a property list but text, close to the good texts where a type can be.
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
