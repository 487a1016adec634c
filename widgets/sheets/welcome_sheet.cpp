#include "widgets/sheets/welcome_sheet.h"

#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"
#include "widgets/style/surfaces.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace frimbolate {

using style::scaled;

namespace {

// Pixels of the 1x layout.
constexpr int welcomeSheetWidth = 520, appIconSide = 72, badgeSide = 24;

/// The number of a step in a filled circle.
class Badge : public QWidget {
  public:
    Badge(int number, QWidget* parent) : QWidget(parent), number_(number) {
        setFixedSize(scaled(badgeSide), scaled(badgeSide));
        style::setFont(this, style::FontRole::defaultButton);
    }

  protected:
    void paintEvent(QPaintEvent*) override { style::paintBadge(*this, number_); }

  private:
    int number_;
};

} // namespace

WelcomeSheet::WelcomeSheet(FormBinder& binder, QWidget& mainWindow)
    : AppSheet("welcomeWindow", welcomeSheetWidth, binder, mainWindow,
               &AppDelegate::closeWelcomeWindow) {
    setWindowTitle(tr("Welcome to Frimbolate"));
    setAccessibleName(tr("Welcome to Frimbolate"));
    setBodyPadding({scaled(32), scaled(28), scaled(32), scaled(24)});
    auto* columns = new QHBoxLayout;
    columns->setSpacing(scaled(24));
    auto* icon = new QLabel(this);
    icon->setPixmap(style::toolIcon("app").pixmap(QSize(scaled(appIconSide), scaled(appIconSide)),
                                                  devicePixelRatioF()));
    columns->addWidget(icon, 0, Qt::AlignTop);
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    columns->addLayout(column, 1);
    body()->addLayout(columns);

    auto* title = new QLabel(tr("Welcome to Frimbolate"), this);
    style::setFont(title, style::FontRole::welcomeTitle);
    column->addWidget(title);
    column->addSpacing(scaled(8));
    addText(column, tr("Let launchd start an application or a script for you: at a set time, when "
                       "you log in, or when a file changes."));
    addStep(column, 1, tr("Name the agent"), tr("The name becomes part of the agent\u2019s file."));
    addStep(column, 2, tr("Choose what to launch, and when"),
            tr("Pick an application or a script, or type a new one."));
    addStep(column, 3, tr("Save it, then load it"),
            tr("Frimbolate shows the command to run in Terminal."));
    body()->addSpacing(scaled(24));

    auto* show = new QCheckBox(tr("&Show this window at start"), this);
    show->setAccessibleName(tr("Show this window at start"));
    binder.bind("showWelcomeCheckbox", show, &FormModel::showWelcomeCheckbox);
    QPushButton* start =
        makeButton("closeWelcomeWindow", tr("Get Started"), &AppDelegate::closeWelcomeWindow);
    start->setDefault(true);
    addButtonRow(show, {start});
}

QLabel* WelcomeSheet::addText(QBoxLayout* column, const QString& text) {
    auto* label = new QLabel(text, this);
    label->setWordWrap(true);
    label->setForegroundRole(QPalette::PlaceholderText);
    column->addWidget(label);
    return label;
}

void WelcomeSheet::addStep(QBoxLayout* column, int number, const QString& title,
                           const QString& text) {
    column->addSpacing(scaled(number == 1 ? 16 : 12));
    auto* line = new QHBoxLayout;
    line->setSpacing(scaled(12));
    line->addWidget(new Badge(number, this), 0, Qt::AlignTop);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(scaled(2));
    auto* heading = new QLabel(title, this);
    style::setFont(heading, style::FontRole::rowLabel);
    texts->addWidget(heading);
    style::setFont(addText(texts, text), style::FontRole::hint);
    line->addLayout(texts, 1);
    column->addLayout(line);
}

} // namespace frimbolate
