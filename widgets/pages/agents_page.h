// The page that lists the agents of the granted folder, and acts on the selected one.
#pragma once

#include "widgets/pages/agents_model.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <string>

class QAction;
class QActionGroup;
class QLineEdit;
class QMenu;

namespace frimbolate {

class AgentListReader;
class AgentsView;
class AppDelegate;
class ElidedLabel;
class EmptyList;
class FlatButton;
class FormBinder;

class AgentsPage : public QWidget {
    Q_OBJECT

  public:
    /// The binder must outlive the page.
    explicit AgentsPage(FormBinder& binder, QWidget* parent = nullptr);

    /// The reader, which reads while the page is shown. Not owned; it may end before the page.
    void setReader(AgentListReader& reader);
    /// The control that has the focus at first.
    QWidget* firstControl() const;
    /// The menu that chooses how the list is sorted. Owned by the page.
    QMenu* sortMenu() const { return sortMenu_; }

  signals:
    /// The form shows an agent of the list.
    void agentOpened();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// A command on the selected agent.
    struct Command {
        QAction* action;
        bool needsReadableFile;
    };
    using Act = std::function<void(AppDelegate&, const std::string& path)>;

    void addHeader();
    void addCommands();
    /// What a command is called, and what it is called where only its name is heard.
    struct CommandTitle {
        const char* name;
        QString title, wholeTitle;
        const char* icon;
    };
    void addCommand(const CommandTitle& title, const QKeySequence& key, bool needsReadableFile,
                    const Act& act);
    void addSortMenu();
    void showMenu(const QPoint& place);
    bool filterKeyPressed(int key);
    bool viewKeyPressed(int key);

    void rowsRead(const AgentRows& rows);
    void readingFinished();
    void accessRefused();
    void showRows(AgentRows rows);
    void restoreSelection();
    void selectionChanged();
    void updateWords();
    void sortByNextRun();
    void pressEmptyListButton();

    FormBinder& binder_;
    QPointer<AgentListReader> reader_;
    AgentsModel model_;
    AgentsFilter filter_{model_};
    QLineEdit* filterField_;
    ElidedLabel* count_;
    FlatButton* nextRun_;
    AgentsView* view_;
    EmptyList* empty_;
    QMenu* menu_;
    QMenu* sortMenu_;
    QActionGroup* columns_ = nullptr;
    QAction* descending_ = nullptr;
    QList<Command> commands_;
    AgentRows pending_;        ///< the rows of the reading that runs
    std::string selectedPath_; ///< kept while its row is filtered away or read again
    int selectedRow_ = -1;     ///< where it was shown last
    bool hasRead_ = false;     ///< a reading has ended, so an empty list is known to be empty
    bool isRefused_ = false;
    bool isReplacing_ = false; ///< the rows are being replaced; the selection follows afterwards
};

} // namespace frimbolate
