#include "widgets/controls/command_text.h"

#include "widgets/style/fonts.h"

#include <QMimeData>
#include <QTextCursor>

namespace frimbolate {

CommandText::CommandText(int buttonWidth, QWidget* parent) : QPlainTextEdit(parent) {
    const int margin = style::scaled(8);
    setViewportMargins(margin, margin, buttonWidth, margin);
}

void CommandText::setCommand(const QString& command) {
    if (command == command_)
        return;
    command_ = command;
    setPlainText(command);
    places_.clear();
    for (qsizetype i = 0; i < command.size(); ++i) {
        places_.push_back(i);
        // CR LF is the only pair that becomes one line break in the document.
        if (command[i] == '\r' && i + 1 < command.size() && command[i + 1] == '\n')
            ++i;
    }
    places_.push_back(command.size());
}

QMimeData* CommandText::createMimeDataFromSelection() const {
    const auto place = [this](int position) {
        return places_.empty() ? 0 : places_.at(static_cast<std::size_t>(position));
    };
    const qsizetype start = place(textCursor().selectionStart());
    auto* copied = new QMimeData;
    copied->setText(command_.mid(start, place(textCursor().selectionEnd()) - start));
    return copied;
}

} // namespace frimbolate
