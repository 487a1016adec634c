#include "widgets/pages/page_switcher.h"

#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"
#include "widgets/style/page_surfaces.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QRadioButton>

namespace frimbolate {

using style::scaled;

namespace {

// Pixels of the 1x layout.
constexpr int segmentWidth = 28, segmentHeight = 24, segmentInset = 2, segmentGap = 2;
constexpr int switcherWidth =
    2 * segmentInset + pageCount * segmentWidth + (pageCount - 1) * segmentGap;
constexpr int switcherHeight = 2 * segmentInset + segmentHeight;

constexpr PageTitle titles[pageCount] = {
    {"showForm", QT_TRANSLATE_NOOP("pages", "&Form"), "page-form", "Ctrl+1"},
    {"showPropertyList", QT_TRANSLATE_NOOP("pages", "&Property List"), "page-property-list",
     "Ctrl+2"},
    {"showAgents", QT_TRANSLATE_NOOP("pages", "A&gents"), "page-agents", "Ctrl+3"},
};

/// A radio button without a circle: the toolkit gives a group of them one Tab stop and the arrow
/// keys, and assistive tools learn which one is chosen.
class Segment : public QRadioButton {
  public:
    using QRadioButton::QRadioButton;

  protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent*) override { style::paintSegment(*this); }
};

} // namespace

const PageTitle& titleOf(Page page) { return titles[static_cast<int>(page)]; }

PageSwitcher::PageSwitcher(QWidget* parent) : QWidget(parent) {
    setObjectName("pageSwitcher");
    setAccessibleName(tr("Page"));
    setFixedSize(scaled(switcherWidth), scaled(switcherHeight));
    auto* line = new QHBoxLayout(this);
    const int inset = scaled(segmentInset);
    line->setContentsMargins(inset, inset, inset, inset);
    line->setSpacing(scaled(segmentGap));
    for (int i = 0; i < pageCount; ++i) {
        const PageTitle& row = titles[i];
        auto* segment = segments_[i] = new Segment(this);
        const QString title = QCoreApplication::translate("pages", row.title).remove('&');
        segment->setObjectName(QString(row.name) + "Segment");
        segment->setAccessibleName(title);
        const QKeySequence key(row.shortcut, QKeySequence::PortableText);
        segment->setToolTip(tr("%1 (%2)").arg(title, key.toString(QKeySequence::NativeText)));
        segment->setIcon(style::toolIcon(row.icon));
        segment->setFixedSize(scaled(segmentWidth), scaled(segmentHeight));
        line->addWidget(segment);
        connect(segment, &QAbstractButton::toggled, this, [this, i](bool on) {
            if (on && page_ != static_cast<Page>(i)) {
                setPage(static_cast<Page>(i));
                emit chosen(page_);
            }
        });
    }
    setPage(Page::Form);
}

void PageSwitcher::setPage(Page page) {
    page_ = page;
    for (int i = 0; i < pageCount; ++i) {
        const bool isChosen = i == static_cast<int>(page);
        segments_[i]->setFocusPolicy(isChosen ? Qt::StrongFocus : Qt::ClickFocus);
        if (isChosen)
            segments_[i]->setChecked(true);
    }
}

void PageSwitcher::paintEvent(QPaintEvent*) { style::paintSwitcher(*this); }

} // namespace frimbolate
