// The field in which a script is typed.
//
// Tab types a tab, four columns wide, as scripts need it; Ctrl+Tab and Shift+Tab leave the field. A
// line that is too wide goes on below, with a mark where it was wrapped. Of a line that is too long
// to be laid out the beginning is shown and a plate for the rest, which is edited as one character:
// copied, moved, deleted and brought back like any other, and never lost otherwise.
#pragma once

#include <QPlainTextEdit>

class QTextCursor;

namespace frimbolate {

class ScriptEditor : public QPlainTextEdit {
    Q_OBJECT

  public:
    static constexpr int tabColumns = 4;

    explicit ScriptEditor(QWidget* parent = nullptr);

    /// The text as it was typed or set, but for its line breaks, which are all "\n".
    QString wholeText() const;
    /// Forgets what could be undone. Any line break may be set.
    void setWholeText(const QString& text);
    /// A text with its line breaks as the editor gives them back.
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
