#include "widgets/drawer/drawer_panel.h"

#include "core/path_hint.h"
#include "core/root_hint.h"
#include "widgets/controls/accessible_description.h"
#include "widgets/controls/elided_label.h"
#include "widgets/controls/form_binder.h"
#include "widgets/controls/image_well_button.h"
#include "widgets/controls/long_text.h"
#include "widgets/controls/pop_up_button.h"
#include "widgets/controls/text.h"
#include "widgets/controls/tip_button.h"
#include "widgets/drawer/path_field.h"
#include "widgets/style/fonts.h"
#include "widgets/style/style.h"
#include "widgets/style/surfaces.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPropertyAnimation>
#include <QSlider>
#include <QToolButton>

namespace frimbolate {

using style::scaled;

namespace {

// Pixels of the 1x layout. The panel has no spare space, so the line pitch is fixed.
constexpr Size panelSize{400, 380};
constexpr int captionX = 24, controlX = 128, secondX = 248, controlWidth = 248;
constexpr int fieldHeight = 24, pitch = 27, checkHeight = 20;
constexpr int titleY = 12, priorityY = 40, niceY = 67, pathsY = 96;
constexpr int globbingY = 264, exitY = 288, alsoRunY = 318, alsoRunSecondY = 342;
constexpr int chooserSide = 24, chooserGap = 4;
constexpr int pathHintX = 104; ///< right of the title
constexpr int drawerSlideMilliseconds = 180;

struct PathRow {
    std::string_view outlet;
    TextField FormModel::*member;
    const char* caption;
    std::string_view key; ///< of the agent file
};
constexpr PathRow pathFields[] = {
    {"standardInPathField", &FormModel::standardInPathField, "Stan&dard input", "StandardInPath"},
    {"standardOutPathField", &FormModel::standardOutPathField, "Standard o&utput",
     "StandardOutPath"},
    {"standardErrorPathField", &FormModel::standardErrorPathField, "Standard e&rror",
     "StandardErrorPath"},
    {"workingDirectoryField", &FormModel::workingDirectoryField, "Wor&king folder",
     "WorkingDirectory"},
    {"rootDirectoryField", &FormModel::rootDirectoryField, "Root fo&lder", "RootDirectory"},
    {"queueDirectoryField", &FormModel::queueDirectoryField, "&Queue folder", "QueueDirectories"},
};

QString tildeHint(const std::string& path, std::string_view home) {
    return text(pathHint(path, home));
}

/// What is wrong with a value of the drawer; empty without a finding.
QString findingHint(const FormPresentation& shown, std::string_view key) {
    const auto* finding = drawerFindingOf(shown.findings, key);
    return finding ? text(finding->text) : QString();
}

QString hintOf(const PathRow& row, const FormModel& form, const FormPresentation& shown,
               std::string_view home) {
    const std::string& path = (form.*row.member).stringValue;
    const QString tilde = tildeHint(path, home);
    if (!tilde.isEmpty())
        return tilde;
    const bool needsRoot = row.member == &FormModel::rootDirectoryField && !path.empty();
    return needsRoot ? text(rootFolderHint(path)) : findingHint(shown, row.key);
}

/// The title line's words about the first hint of the drawer; empty without any.
QString firstHint(const FormModel& form, const AgentForm& record, std::string_view home) {
    for (const PathRow& row : pathFields)
        if (!tildeHint((form.*row.member).stringValue, home).isEmpty())
            return DrawerPanel::tr("%1: “~” is not expanded")
                .arg(DrawerPanel::tr(row.caption).remove('&'));
    if (!niceLevelHint(record.niceLevel).empty())
        return DrawerPanel::tr("Nice level: below 0 needs root");
    const bool hasRootFolder = !rootFolderHint(record.rootDirectory).empty();
    return hasRootFolder ? DrawerPanel::tr("Root folder: needs root") : QString();
}

class Shadow : public QWidget {
  public:
    explicit Shadow(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFixedSize(scaled(style::drawerShadowReach), scaled(panelSize.height));
        hide();
    }

  protected:
    void paintEvent(QPaintEvent*) override { style::paintDrawerShadow(*this); }
};

} // namespace

DrawerPanel::DrawerPanel(FormBinder& binder, int edge, QWidget* parent)
    : QWidget(parent), binder_(binder), edge_(edge),
      slide_(new QPropertyAnimation(this, "pos", this)), shadow_(new Shadow(parent)) {
    setObjectName("advancedDrawer");
    setAccessibleName(tr("Advanced settings"));
    setFixedSize(scaled(panelSize.width), scaled(panelSize.height));
    style::setFont(this, style::FontRole::hint);
    slide_->setDuration(drawerSlideMilliseconds);
    slide_->setEasingCurve(QEasingCurve::OutCubic);
    connect(slide_, &QPropertyAnimation::finished, this, &DrawerPanel::slideEnded);
    addTitle();
    addPriority();
    addNiceLevel();
    addPathFields();
    addPathHint();
    addOptions();
    hide();
    binder_.addUpdater([this](const FormModel& form) { setOpen(form.advancedDrawer.open); });
}

void DrawerPanel::setOpen(bool open) {
    if (open == open_)
        return;
    open_ = open;
    if (open) {
        emit needsSpace(true);
        // A drawer that is still closing reverses from its current position.
        if (isHidden())
            move(closedPosition());
        show();
    }
    emit openChanged(open);
    slide_->stop();
    slide_->setStartValue(pos());
    slide_->setEndValue(open ? openPosition() : closedPosition());
    if (style::animationsEnabled(*this) && window()->isVisible()) {
        slide_->start();
    } else {
        move(slide_->endValue().toPoint());
        slideEnded();
    }
}

void DrawerPanel::setBesideForm(bool beside) {
    if (beside == besideForm_)
        return;
    besideForm_ = beside;
    if (beside)
        lower();
    else
        raise();
    if (isVisible()) {
        slide_->stop();
        move(openPosition());
        slideEnded();
    }
    placeShadow();
    update();
}

QPoint DrawerPanel::openPosition() const { return {besideForm_ ? edge_ : edge_ - width(), 0}; }

QPoint DrawerPanel::closedPosition() const { return {besideForm_ ? edge_ - width() : edge_, 0}; }

void DrawerPanel::placeShadow() {
    shadow_->move(x() - shadow_->width(), 0);
    shadow_->setVisible(!besideForm_ && !isHidden());
    shadow_->stackUnder(this);
}

void DrawerPanel::moveEvent(QMoveEvent*) { placeShadow(); }

void DrawerPanel::showEvent(QShowEvent*) { placeShadow(); }

void DrawerPanel::hideEvent(QHideEvent*) { placeShadow(); }

void DrawerPanel::slideEnded() {
    if (open_)
        return;
    hide();
    emit needsSpace(false);
}

void DrawerPanel::paintEvent(QPaintEvent*) { style::paintDrawer(*this, besideForm_); }

void DrawerPanel::place(QWidget* control, int x, int y, int width, int height) {
    control->setParent(this);
    control->setGeometry(scaled(x), scaled(y), scaled(width), scaled(height));
}

void DrawerPanel::addCaption(int y, const QString& caption, QWidget* buddy) {
    auto* label = new QLabel(caption, this);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setBuddy(buddy);
    place(label, captionX, y, controlX - captionX, fieldHeight);
    if (buddy && buddy->accessibleName().isEmpty())
        buddy->setAccessibleName(QString(caption).remove('&'));
}

void DrawerPanel::addTitle() {
    auto* title = new QLabel(tr("Advanced"), this);
    style::setFont(title, style::FontRole::defaultButton);
    place(title, captionX, titleY, 200, fieldHeight);
    auto* tip = makeTipButton(binder_, "advancedDrawerTipButton",
                              &FormModel::advancedDrawerTipButton, tr("Advanced"));
    place(tip, controlX + controlWidth - 20, titleY + 2, 20, 20);
}

void DrawerPanel::addPriority() {
    auto* priority = new PopUpButton(priorityLevelItems(), this);
    binder_.bind("priorityLevelButton", priority, &FormModel::priorityLevelButton);
    addCaption(priorityY, tr("&Priority"), priority);
    place(priority, controlX, priorityY, controlWidth, fieldHeight);
    firstControl_ = priority;
}

void DrawerPanel::addNiceLevel() {
    constexpr int least = -20, most = 20, valueWidth = 48, gap = 6;
    auto* slider = new QSlider(Qt::Horizontal, this);
    slider->setRange(least, most);
    slider->setPageStep(5);
    binder_.bind("niceLevelSlider", slider, &FormModel::niceLevelSlider,
                 &AppDelegate::niceLevelSliderValueChanged);
    addCaption(niceY, tr("N&ice level"), slider);
    place(slider, controlX - 2, niceY, controlWidth - valueWidth - gap + 2, fieldHeight);

    auto* value = new QLineEdit(this);
    value->setReadOnly(true);
    value->setFocusPolicy(Qt::ClickFocus);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setAccessibleName(tr("Nice level"));
    binder_.bind("niceLevelTextField", value, &FormModel::niceLevelTextField);
    place(value, controlX + controlWidth - valueWidth, niceY, valueWidth, fieldHeight);

    binder_.addUpdater([slider, value](const FormModel&, const FormPresentation& shown) {
        const auto needsRoot = niceLevelHint(shown.record.niceLevel);
        const QString hint = needsRoot.empty() ? findingHint(shown, "Nice") : text(needsRoot);
        style::setFaulty(value, !hint.isEmpty());
        for (QWidget* control : QList<QWidget*>{slider, value}) {
            control->setToolTip(hint);
            updateAccessibleDescription(control, hint);
        }
    });
}

void DrawerPanel::addPathFields() {
    int y = pathsY;
    for (const PathRow& row : pathFields) {
        auto* field = new PathField(this);
        binder_.bind(row.outlet, field, row.member);
        addCaption(y, tr(row.caption), field);
        place(field, controlX, y, controlWidth - chooserSide - chooserGap, fieldHeight);
        QWidget* chooser = makeChooseButton(binder_, row.outlet, field->accessibleName(), this);
        place(chooser, controlX + controlWidth - chooserSide, y, chooserSide, chooserSide);
        binder_.addUpdater(
            [this, field, &row](const FormModel& form, const FormPresentation& shown) {
                field->setHint(hintOf(row, form, shown, binder_.homeFolder()));
            });
        y += pitch;
    }
}

void DrawerPanel::addPathHint() {
    auto* hint = new ElidedLabel(Qt::ElideRight, this);
    hint->setObjectName("pathHint");
    hint->setWarning(true);
    place(hint, pathHintX, titleY, controlX + controlWidth - 28 - pathHintX, fieldHeight);
    binder_.addUpdater([this, hint](const FormModel& form, const FormPresentation& shown) {
        const QString words = firstHint(form, shown.record, binder_.homeFolder());
        const auto* finding = words.isEmpty() ? firstOfDrawer(shown.findings) : nullptr;
        hint->setVisible(!words.isEmpty() || finding);
        if (finding)
            hint->setWholeText(text(finding->text), text(shortWords(*finding)));
        else
            hint->setWholeText(words);
    });
}

QCheckBox* DrawerPanel::addCheckBox(int x, int y, const QString& title) {
    auto* box = new QCheckBox(title, this);
    box->setAccessibleName(QString(title).remove('&'));
    place(box, x, y, 0, checkHeight);
    // As wide as its title; the font is scaled already.
    box->resize(box->sizeHint().width(), box->height());
    return box;
}

void DrawerPanel::showFinding(QWidget* control, std::string_view key) {
    binder_.addUpdater([control, key](const FormModel&, const FormPresentation& shown) {
        const QString hint = findingHint(shown, key);
        control->setToolTip(labelText(hint));
        updateAccessibleDescription(control, hint);
    });
}

void DrawerPanel::addOptions() {
    binder_.bind("enableGlobbingCheckbox",
                 addCheckBox(controlX, globbingY, tr("E&xpand wildcards in arguments")),
                 &FormModel::enableGlobbingCheckbox);
    binder_.bind("allowSuccessfulExitCheckbox",
                 addCheckBox(controlX, exitY, tr("All&ow successful exit")),
                 &FormModel::allowSuccessfulExitCheckbox);
    addCaption(alsoRunY - 2, tr("Also run when"), nullptr);
    binder_.bind("alsoRunAtLoadCheckbox", addCheckBox(controlX, alsoRunY, tr("A&gent loads")),
                 &FormModel::alsoRunAtLoadCheckbox);
    QCheckBox* mount = addCheckBox(secondX, alsoRunY, tr("Volu&me mounts"));
    binder_.bind("alsoRunVolumeCheckbox", mount, &FormModel::alsoRunVolumeCheckbox);
    showFinding(mount, "StartOnMount");
    QCheckBox* pathChange = addCheckBox(controlX, alsoRunSecondY, tr("Path &changes"));
    binder_.bind("alsoRunPathChangeCheckbox", pathChange, &FormModel::alsoRunPathChangeCheckbox,
                 &AppDelegate::chooseAdditionalWathPath);
    showFinding(pathChange, "WatchPaths");

    auto* well = new ImageWellButton(24, style::Surface::drawer, this);
    well->setAccessibleName(tr("Additional watched path"));
    well->setHiddenWhenEmpty(true);
    binder_.bind("alsoRunPathChangeImageWell", well, &FormModel::alsoRunPathChangeImageWell);
    connect(well, &QToolButton::clicked, this,
            [this] { binder_.send(&AppDelegate::chooseAdditionalWathPath); });
    well->acceptDropsFor(AppDelegate::watchPathPanel());
    connect(well, &ImageWellButton::dropped, this, [this](const QString& path) {
        binder_.send([&](AppDelegate& delegate) {
            delegate.additionalWatchPathDropped(path.toStdString());
        });
    });
    place(well, secondX, alsoRunSecondY - 2, 24, 24);
}

} // namespace frimbolate
