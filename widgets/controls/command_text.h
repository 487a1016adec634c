// The text of a command: shown wrapped, copied exactly as it was set.
#pragma once

#include <QPlainTextEdit>

#include <vector>

namespace frimbolate {

class CommandText : public QPlainTextEdit {
    Q_OBJECT

  public:
    /// \param buttonWidth space kept free at the right for a button; pixels
    explicit CommandText(int buttonWidth, QWidget* parent = nullptr);

    /// Shows a command. Setting the same command again keeps the selection.
    void setCommand(const QString& command);

  protected:
    /// The selection, character for character. The toolkit would replace line breaks by its own
    /// separators and no-break spaces by spaces.
    QMimeData* createMimeDataFromSelection() const override;

  private:
    QString command_;
    /// The offset in the command for each position of the document, the end position included.
    std::vector<qsizetype> places_;
};

} // namespace frimbolate
