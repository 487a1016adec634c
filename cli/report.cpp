#include "cli/report.h"

#include "cli/json_text.h"
#include "core/control_characters.h"
#include "core/next_run.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

namespace frimbolate {

namespace {

using namespace std::chrono;

constexpr std::string_view bold = "\x1b[1m", red = "\x1b[31m", yellow = "\x1b[33m",
                           faint = "\x1b[2m", plain = "\x1b[0m";

std::string colored(std::string_view text, std::string_view color, bool colors) {
    return colors ? std::string(color).append(text).append(plain) : std::string(text);
}

std::string_view stateName(const AgentOverview& overview) {
    return !overview.isOn ? "?" : *overview.isOn ? "on" : "off";
}

/// The number of characters of a UTF-8 text.
std::size_t widthOf(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char unit) { return (static_cast<unsigned char>(unit) & 0xc0) != 0x80; }));
}

std::string isoText(LocalMinute time) {
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss ofDay(time - day);
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d", static_cast<int>(date.year()),
                  unsigned(date.month()), unsigned(date.day()),
                  static_cast<int>(ofDay.hours().count()),
                  static_cast<int>(ofDay.minutes().count()));
    return text;
}

std::string orNull(std::string_view text) { return text.empty() ? "null" : jsonText(text); }

void writeFinding(JsonWriter& json, const Finding& finding, std::optional<std::size_t> line) {
    json.beginObject();
    json.key("rule");
    json.value(jsonText(finding.rule));
    json.key("severity");
    json.value(jsonText(severityName(finding.severity)));
    json.key("key");
    json.value(jsonText(finding.key));
    json.key("line");
    json.value(line ? std::to_string(*line) : "null");
    json.key("text");
    json.value(jsonText(finding.text));
    json.endObject();
}

void writeAgent(JsonWriter& json, const AgentSource& source) {
    const auto& overview = source.overview;
    const auto member = [&json](std::string_view key, const std::string& value) {
        json.key(key);
        json.value(value);
    };
    json.beginObject();
    member("path", jsonText(overview.path));
    member("error", orNull(source.error));
    member("kind", jsonText(kindName(overview.kind)));
    member("name", jsonText(overview.name));
    member("on", overview.isOn ? (*overview.isOn ? "true" : "false") : "null");
    member("sentence", jsonText(overview.sentence));
    member("program", orNull(source.program));
    member("nextRun", overview.nextRun ? jsonText(isoText(*overview.nextRun)) : "null");
    member("result", orNull(source.result));
    json.key("findings");
    json.beginArray();
    for (std::size_t i = 0; i < overview.findings.size(); ++i)
        writeFinding(json, overview.findings[i], source.lines[i]);
    json.endArray();
    json.endObject();
}

} // namespace

std::string printable(std::string_view text) { return maskedControls(text); }

std::string printableLines(std::string_view text) { return maskedControls(text, "\n"); }

std::string findingLines(const AgentSource& source, bool colors) {
    const auto path = printable(source.overview.path);
    if (!source.error.empty())
        return colored(path, bold, colors) + ": " + printable(source.error) + "\n";
    std::string lines;
    for (std::size_t i = 0; i < source.overview.findings.size(); ++i) {
        const auto& finding = source.overview.findings[i];
        std::string place = path;
        if (source.lines[i])
            place.append(":").append(std::to_string(*source.lines[i]));
        const bool isNote = finding.severity == Severity::Note;
        const auto color = finding.severity == Severity::Refused ? red : isNote ? faint : yellow;
        std::string severity = "[";
        severity.append(severityName(finding.severity)).append("]");
        lines += colored(place, bold, colors) + ": ";
        if (!finding.key.empty())
            lines += printable(finding.key) + ": ";
        lines += printable(finding.text) + " " + colored(severity, color, colors) + "\n";
    }
    return lines;
}

std::string explanation(const AgentSource& source, LocalMinute now, bool colors) {
    const auto& overview = source.overview;
    std::string text = colored(printable(overview.name), bold, colors) + " (" +
                       std::string(kindName(overview.kind)) + ", " +
                       std::string(stateName(overview)) + ")\n  " + printable(overview.sentence) +
                       "\n";
    if (!source.program.empty())
        text += "  Program: " + printable(source.program) + "\n";
    if (overview.nextRun)
        text += "  " + nextRunText(*overview.nextRun, now, ClockFormat::TwentyFourHours) + "\n";
    return text;
}

std::string agentTable(const std::vector<AgentSource>& sources, LocalMinute now, bool colors) {
    constexpr std::size_t columns = 4;
    std::vector<std::array<std::string, columns>> rows = {{"", "Name", "Next run", "Findings"}};
    for (const auto& source : sources) {
        const auto& overview = source.overview;
        const auto run = overview.nextRun
                             ? shortRunText(*overview.nextRun, now, ClockFormat::TwentyFourHours)
                             : "-";
        const auto count = overview.findings.size() + (source.error.empty() ? 0 : 1);
        rows.push_back({std::string(stateName(overview)), printable(overview.name), run,
                        count == 0 ? "" : std::to_string(count)});
    }
    std::array<std::size_t, columns> widths{};
    for (const auto& row : rows)
        for (std::size_t i = 0; i < columns; ++i)
            widths[i] = std::max(widths[i], widthOf(row[i]));
    std::string table;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t i = 0; i < columns; ++i)
            table += colored(rows[row][i],
                             row == 0 ? faint
                             : i == 1 ? bold
                                      : plain,
                             colors) +
                     std::string(widths[i] - widthOf(rows[row][i]) + 2, ' ');
        table += row == 0 ? colored("Sentence", faint, colors)
                          : printable(sources[row - 1].overview.sentence);
        table += "\n";
    }
    return table;
}

std::string jsonReport(std::string_view command, const std::vector<AgentSource>& sources) {
    JsonWriter json;
    json.beginObject();
    json.key("version");
    json.value("1");
    json.key("command");
    json.value(jsonText(command));
    json.key("agents");
    json.beginArray();
    for (const auto& source : sources)
        writeAgent(json, source);
    json.endArray();
    json.endObject();
    return json.text();
}

int exitCodeOf(const std::vector<AgentSource>& sources) {
    int code = ExitCode::Nothing;
    for (const auto& source : sources)
        code = std::max<int>(code, !source.error.empty()               ? ExitCode::Failed
                                   : !source.overview.findings.empty() ? ExitCode::Findings
                                                                       : ExitCode::Nothing);
    return code;
}

std::string_view kindName(AgentKind kind) {
    switch (kind) {
    case AgentKind::Own:
        return "own";
    case AgentKind::EarlierVersion:
        return "earlier version";
    case AgentKind::OtherProgram:
        return "other program";
    default:
        return "unreadable";
    }
}

} // namespace frimbolate
