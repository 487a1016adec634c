// The editor for a typed script.
//
// Tab inserts a tab, four columns wide, as scripts need it; Ctrl+Tab and Shift+Tab leave the field.
// A line that is too wide is wrapped, with a mark at the break. Of a line that is too long to lay
// out, the beginning is shown; the rest is folded into one character (FoldedText), which can be
// copied, moved, deleted and restored like any other.
#pragma once

#include <QPlainTextEdit>

class QTextCursor;

namespace frimbolate {

class ScriptEditor : public QPlainTextEdit {
    Q_OBJECT

  public:
    static constexpr int tabColumns = 4;

    explicit ScriptEditor(QWidget* parent = nullptr);

    /// The text as typed or set, folded parts included; all line breaks are "\n".
    QString wholeText() const;
    /// Accepts any kind of line break. Clears the undo history.
    void setWholeText(const QString& text);
    /// The text with its line breaks replaced as wholeText() returns them.
    static QString withPlainLineBreaks(QString text);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    void insertFolded(QTextCursor& cursor, const QString& text);
    QString wholeText(int from, int to) const;
    void fitTabs();
};

} // namespace frimbolate
