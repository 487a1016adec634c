#include "widgets/main_window.h"

#include "widgets/accessibility.h"
#include "widgets/commands.h"
#include "widgets/controls/elided_label.h"
#include "widgets/controls/text.h"
#include "widgets/drawer/drawer_host.h"
#include "widgets/drawer/drawer_panel.h"
#include "widgets/form/form_card.h"
#include "widgets/form/script_pop_over.h"
#include "widgets/pages/agents_page.h"
#include "widgets/pages/page_stack.h"
#include "widgets/pages/page_switcher.h"
#include "widgets/pages/property_list_page.h"
#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"
#include "widgets/style/surfaces.h"
#include "widgets/undo_commands.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace frimbolate {

using style::scaled;

namespace {

// Pixels of the 1x layout.
constexpr int formWidth = 680, windowHeight = 472, contentHeight = 380;
using style::cardMargin;
constexpr int statusLineHeight = 44, dotGap = 8, statusLineGap = 12;

/// The line at the bottom of the form: a hairline above, and a dot that lights up when the summary
/// is complete.
class StatusLine : public QWidget {
  public:
    using QWidget::QWidget;

    void setComplete(bool complete) {
        complete_ = complete;
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override { style::paintStatusLine(*this, complete_); }

  private:
    bool complete_ = false;
};

} // namespace

MainWindow::MainWindow(bool blendsWindows) : commands_(new Commands(binder_, *this)) {
    installAccessibility();
    setObjectName("mainWindow");
    setWindowTitle(tr("Frimbolate"));
    setWindowIcon(style::toolIcon("app"));
    setContextMenuPolicy(Qt::PreventContextMenu);
    auto* content = new QWidget(this);
    setCentralWidget(content);
    auto* drawer = new DrawerPanel(binder_, scaled(formWidth), content);
    // The form is created last to lie above the drawer, which slides out from behind it.
    QWidget* form = makeForm(content);
    binder_.addUpdater([this](const FormModel& model) {
        // The script's pop-over points at a button of the form.
        if (model.popoverScriptObject.shown)
            pages_->showPage(Page::Form);
    });
    new DrawerHost(binder_, *this, form, drawer, {scaled(formWidth), scaled(windowHeight)});
    auto* card = form->findChild<FormCard*>();
    new ScriptPopOver(binder_, card->scriptButton(), blendsWindows, this);
    setTabOrder(form, drawer);
    card->firstField()->setFocus();
    connect(findChild<QAction*>("createNewAgent"), &QAction::triggered, card, [this, card] {
        pages_->showPage(Page::Form);
        card->firstField()->setFocus();
    });
    focusFirstFaultAfterValidation(*card);
    binder_.addUpdater([this](const FormModel& model) {
        if (model.mainWindow.visible && !isVisible())
            bringToFront();
        else if (!model.mainWindow.visible && isVisible())
            hide();
    });
    new UndoCommands(binder_, *this); // last: it looks at the fields after they were updated
}

void MainWindow::focusFirstFaultAfterValidation(FormCard& card) {
    // Only after the alert has closed: otherwise a screen reader announces the control before the
    // fault. The action has updated the window by now; the next update follows the answer.
    connect(findChild<QAction*>("validateAgentConfig"), &QAction::triggered, this,
            [this] { focusesFault_ = true; });
    binder_.addUpdater([this, &card](const FormModel&) {
        QWidget* fault = std::exchange(focusesFault_, false) ? card.firstFault() : nullptr;
        if (!fault)
            return;
        pages_->showPage(Page::Form);
        fault->setFocus();
    });
}

QAction* MainWindow::aboutAction() const { return commands_->about(); }

QWidget* MainWindow::makeForm(QWidget* parent) {
    auto* form = new QWidget(parent);
    form->setObjectName("form");
    form->setAutoFillBackground(true);
    form->setFixedSize(scaled(formWidth), scaled(contentHeight));
    auto* column = new QVBoxLayout(form);
    column->setContentsMargins(0, scaled(cardMargin), 0, 0);
    column->setSpacing(0);
    pages_ = new PageStack(*findChild<QMenu*>("viewMenu"), form);
    auto* card = new FormCard(binder_, pages_);
    pages_->addPage(card, card->firstField());
    auto* propertyList = new PropertyListPage(binder_, pages_);
    pages_->addPage(propertyList, propertyList->firstControl());
    auto* agents = new AgentsPage(binder_, pages_);
    pages_->addPage(agents, agents->firstControl());
    findChild<QMenu*>("viewMenu")->addMenu(agents->sortMenu());
    connect(agents, &AgentsPage::agentOpened, card, [this, card] {
        pages_->showPage(Page::Form);
        card->firstField()->setFocus();
    });
    column->addWidget(pages_, 0, Qt::AlignHCenter);
    column->addStretch();
    column->addWidget(makeStatusLine(form));
    return form;
}

QWidget* MainWindow::makeStatusLine(QWidget* parent) {
    auto* statusLine = new StatusLine(parent);
    statusLine->setFixedHeight(scaled(statusLineHeight));
    auto* line = new QHBoxLayout(statusLine);
    line->setContentsMargins(scaled(cardMargin + style::statusDotSide + dotGap), 0,
                             scaled(cardMargin), 0);
    line->setSpacing(scaled(statusLineGap));
    auto* plan = new ElidedLabel(Qt::ElideRight, statusLine);
    plan->setObjectName("summary");
    line->addWidget(plan, 1);
    line->addWidget(makeNextRun(statusLine));
    auto* switcher = new PageSwitcher(statusLine);
    line->addWidget(switcher);
    pages_->follow(*switcher);
    binder_.addUpdater([plan, statusLine](const FormModel&, const FormPresentation& presentation) {
        plan->setWholeText(text(presentation.summary.sentence));
        statusLine->setComplete(presentation.summary.isComplete);
    });
    return statusLine;
}

QWidget* MainWindow::makeNextRun(QWidget* parent) {
    auto* nextRun = new ElidedLabel(Qt::ElideRight, parent);
    nextRun->setObjectName("nextRun");
    // Never elided: the sentence before it gives way, which its tool tip shows whole.
    nextRun->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    nextRun->hide();
    binder_.addUpdater([nextRun](const FormModel&, const FormPresentation& presentation) {
        nextRun->setWholeText(text(presentation.nextRun));
        nextRun->setVisible(!presentation.nextRun.empty());
    });
    // The next run changes with time, without any action of the user.
    auto* timer = new QTimer(nextRun);
    timer->setObjectName("nextRunTimer");
    timer->setTimerType(Qt::VeryCoarseTimer);
    connect(timer, &QTimer::timeout, this, [this, nextRun] {
        if (nextRun->isVisible())
            mirror();
    });
    timer->start(std::chrono::minutes(1));
    return nextRun;
}

void MainWindow::setAgentListReader(AgentListReader& reader) {
    findChild<AgentsPage*>()->setReader(reader);
}

void MainWindow::bringToFront() {
    // Qt counts a minimised window as visible, so show() alone has no effect on it.
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    // Without a window manager the first window does not get the keyboard focus by itself.
    activateWindow();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && binder_.looksUpPaths())
        mirror();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    binder_.finishTyping();
    binder_.edit([](FormModel& form) {
        form.mainWindow.visible = false;
        form.popoverScriptObject.shown = false;
    });
    event->accept();
}

} // namespace frimbolate
