// The text of a command: wrapped for the eyes, but copied as it was set.
#pragma once

#include <QPlainTextEdit>

#include <vector>

namespace frimbolate {

class CommandText : public QPlainTextEdit {
    Q_OBJECT

  public:
    /// \param buttonWidth left free at the right for a button; pixels
    explicit CommandText(int buttonWidth, QWidget* parent = nullptr);

    /// Shows a command; the one that shows already keeps its selection.
    void setCommand(const QString& command);

  protected:
    /// What the user selected, character for character: the toolkit would hand on line breaks of
    /// its own kind, and blanks for no-break spaces.
    QMimeData* createMimeDataFromSelection() const override;

  private:
    QString command_;
    /// Where each position of the document, the last one included, stands in the command.
    std::vector<qsizetype> places_;
};

} // namespace frimbolate
