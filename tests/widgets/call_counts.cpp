#include "tests/widgets/call_counts.h"

#include "core/agent_plist.h"
#include "core/form_model.h"
#include "core/validation.h"

// The linker's option --wrap resolves NAME to __wrap_NAME, and __real_NAME to NAME. CMakeLists.txt
// lists the same names.
#define RECORD "_ZN10frimbolate9agentFormERKNS_9FormModelE"
#define VALIDATE "_ZN10frimbolate8validateERKNS_9AgentFormE"
#define BUILD_AGENT_PLIST                                                                          \
    "_ZN10frimbolate15buildAgentPlistB5cxx11ERKNS_9AgentFormESt17basic_string_viewIcSt11char_"     \
    "traitsIcEE"

namespace frimbolate::test {

CallCounts callCounts;

AgentForm realRecord(const FormModel& model) asm("__real_" RECORD);
AgentForm countedRecord(const FormModel& model) asm("__wrap_" RECORD);
AgentForm countedRecord(const FormModel& model) {
    ++callCounts.records;
    return realRecord(model);
}

Faults realValidate(const AgentForm& form) asm("__real_" VALIDATE);
Faults countedValidate(const AgentForm& form) asm("__wrap_" VALIDATE);
Faults countedValidate(const AgentForm& form) {
    ++callCounts.validations;
    return realValidate(form);
}

AgentPlist realBuildAgentPlist(const AgentForm& form,
                               std::string_view label) asm("__real_" BUILD_AGENT_PLIST);
AgentPlist countedBuildAgentPlist(const AgentForm& form,
                                  std::string_view label) asm("__wrap_" BUILD_AGENT_PLIST);
AgentPlist countedBuildAgentPlist(const AgentForm& form, std::string_view label) {
    ++callCounts.agentPlists;
    return realBuildAgentPlist(form, label);
}

} // namespace frimbolate::test
