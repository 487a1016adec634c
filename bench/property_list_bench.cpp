// Measures reading and writing of property lists: an agent of usual size in each form, and files of
// one repeated piece, for which the time per byte must not grow with the size.
#include "plist/property_list_reader.h"
#include "plist/xml_writer.h"
#include "tests/plist/binary_file.h"

#include <benchmark/benchmark.h>

namespace frimbolate {

namespace {

/// An agent of 1.7 kB, with keys and a layout that this program does not write.
constexpr std::string_view agent = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>Label</key>
	<string>com.frimbolate.Nightly backup</string>
	<key>EnableGlobbing</key>
	<true/>
	<key>EnvironmentVariables</key>
	<dict>
		<key>LANG</key>
		<string>en_US.UTF-8</string>
		<key>PATH</key>
		<string>/usr/local/bin:/usr/bin:/bin:/usr/sbin:/sbin</string>
	</dict>
	<key>KeepAlive</key>
	<dict>
		<key>SuccessfulExit</key>
		<false/>
	</dict>
	<key>LowPriorityIO</key>
	<true/>
	<key>Nice</key>
	<integer>5</integer>
	<key>ProgramArguments</key>
	<array>
		<string>/bin/sh</string>
		<string>-c</string>
		<string>cd /Users/ada &amp;&amp; ./backup.sh --to /Volumes/Backup --quiet &gt; /dev/null</string>
	</array>
	<key>QueueDirectories</key>
	<array>
		<string>/Users/ada/Queue</string>
	</array>
	<key>RunAtLoad</key>
	<true/>
	<key>StandardErrorPath</key>
	<string>/Users/ada/Library/Logs/backup.log</string>
	<key>StandardOutPath</key>
	<string>/Users/ada/Library/Logs/backup.log</string>
	<key>StartCalendarInterval</key>
	<array>
		<dict>
			<key>Day</key>
			<integer>1</integer>
			<key>Hour</key>
			<integer>7</integer>
			<key>Minute</key>
			<integer>30</integer>
		</dict>
		<dict>
			<key>Day</key>
			<integer>15</integer>
			<key>Hour</key>
			<integer>7</integer>
			<key>Minute</key>
			<integer>30</integer>
		</dict>
	</array>
	<key>StartOnMount</key>
	<true/>
	<key>WatchPaths</key>
	<array>
		<string>/Users/ada/Pictures</string>
		<string>/Users/ada/Bücher</string>
	</array>
	<key>WorkingDirectory</key>
	<string>/Users/ada</string>
</dict>
</plist>
)";

void countBytes(benchmark::State& state, std::size_t size) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

void readAgent(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(readPropertyList(agent));
    countBytes(state, agent.size());
}
BENCHMARK(readAgent);

void writeAgent(benchmark::State& state) {
    const Dictionary dictionary = readPropertyList(agent).asDictionary();
    for (auto _ : state)
        benchmark::DoNotOptimize(xmlPropertyList(dictionary));
    countBytes(state, xmlPropertyList(dictionary).size());
}
BENCHMARK(writeAgent);

void readBinaryAgent(benchmark::State& state) {
    const std::string bytes = test::binaryPlist(readPropertyList(agent));
    for (auto _ : state)
        benchmark::DoNotOptimize(readPropertyList(bytes));
    countBytes(state, bytes.size());
}
BENCHMARK(readBinaryAgent);

void readOldStyleAgent(benchmark::State& state) {
    constexpr std::string_view text = R"({
    Label = "com.frimbolate.Nightly backup"; // the name
    ProgramArguments = (/bin/sh, "-c", "cd /Users/ada && ./backup.sh --quiet");
    StartCalendarInterval = ({ Day = 1; Hour = 7; }, { Day = 15; Hour = 7; });
    WatchPaths = (/Users/ada/Pictures, "/Users/ada/Bücher");
})";
    for (auto _ : state)
        benchmark::DoNotOptimize(readPropertyList(text));
    countBytes(state, text.size());
}
BENCHMARK(readOldStyleAgent);

/// Reads one piece repeated within a frame up to a size in bytes, on which the time per byte must
/// not depend.
void readRepeated(benchmark::State& state, std::string_view begin, std::string_view piece,
                  std::string_view end) {
    std::string file(begin);
    while (file.size() < static_cast<std::size_t>(state.range(0)))
        file += piece;
    file += end;
    for (auto _ : state)
        benchmark::DoNotOptimize(readPropertyList(file));
    countBytes(state, file.size());
}

#define FRIMBOLATE_BENCHMARK_SIZES(name, ...)                                                      \
    BENCHMARK_CAPTURE(readRepeated, name, __VA_ARGS__)->RangeMultiplier(16)->Range(4096, 1 << 20)

FRIMBOLATE_BENCHMARK_SIZES(attributes, "<plist", " a=\"b\"", "><true/></plist>");
FRIMBOLATE_BENCHMARK_SIZES(comments, "<plist>", "<!-- -->", "<true/></plist>");
FRIMBOLATE_BENCHMARK_SIZES(documentTypes, "", "<!DOCTYPE plist>", "<true/>");
FRIMBOLATE_BENCHMARK_SIZES(sections, "<string>", "<![CDATA[a]]>", "</string>");
FRIMBOLATE_BENCHMARK_SIZES(references, "<string>", "&amp;", "</string>");
FRIMBOLATE_BENCHMARK_SIZES(booleans, "<array>", "<true/>", "</array>");
FRIMBOLATE_BENCHMARK_SIZES(oldStyleTexts, "(", "a,", ")");

} // namespace

} // namespace frimbolate
