// Measures the steps between the form and the file. Run frimbolate_bench of an optimised build.
#include "bench/full_form.h"
#include "core/agent_plist.h"
#include "core/finding_hints.h"
#include "core/form_summary.h"
#include "core/validation.h"
#include "plist/property_list_reader.h"
#include "plist/xml_writer.h"
#include "posix/local_agent_folder.h"

#include <benchmark/benchmark.h>

namespace frimbolate {

namespace {

void validateForm(benchmark::State& state) {
    const auto form = fullForm();
    for (auto _ : state)
        benchmark::DoNotOptimize(validate(form));
}
BENCHMARK(validateForm);

/// The work of every key press in the window.
void sentencesOfForm(benchmark::State& state) {
    const auto form = fullForm();
    const TextStyle style{.home = "/Users/ada"};
    for (auto _ : state) {
        const auto faults = validate(form);
        benchmark::DoNotOptimize(summary(form, faults, style));
        benchmark::DoNotOptimize(rowHints(form, faults, {}, style));
    }
}
BENCHMARK(sentencesOfForm);

/// The findings of the form, also at every key press.
void findingsOfForm(benchmark::State& state) {
    const auto form = fullForm();
    const auto faults = validate(form);
    CheckContext context;
    context.home = "/Users/ada";
    context.pathState = localPathState;
    for (auto _ : state)
        benchmark::DoNotOptimize(shownFindings(form, faults, context));
}
BENCHMARK(findingsOfForm);

void formToAgentFile(benchmark::State& state) {
    const auto form = fullForm();
    for (auto _ : state)
        benchmark::DoNotOptimize(buildAgentPlist(form, "com.frimbolate.Backup"));
}
BENCHMARK(formToAgentFile);

void writeXml(benchmark::State& state) {
    const auto file = buildAgentPlist(fullForm(), "com.frimbolate.Backup");
    for (auto _ : state)
        benchmark::DoNotOptimize(xmlPropertyList(file));
}
BENCHMARK(writeXml);

void readXml(benchmark::State& state) {
    const auto bytes = xmlPropertyList(buildAgentPlist(fullForm(), "com.frimbolate.Backup"));
    for (auto _ : state)
        benchmark::DoNotOptimize(readPropertyList(bytes));
}
BENCHMARK(readXml);

} // namespace

} // namespace frimbolate
