#include "widgets/pages/property_list_page.h"

#include "core/agent_plist.h"
#include "core/named_error.h"
#include "widgets/controls/accessible_description.h"
#include "widgets/controls/elided_label.h"
#include "widgets/controls/form_binder.h"
#include "widgets/controls/text.h"
#include "widgets/pages/property_list_view.h"
#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"
#include "widgets/style/page_surfaces.h"

#include <QLabel>
#include <QPushButton>

namespace frimbolate {

using style::scaled;

namespace {

// Pixels of the 1x layout.
constexpr int pageWidth = 632, pageHeight = 288, pageMargin = 24;
constexpr int copyRight = 624, copyButtonWidth = 68, copyHeight = 28;
constexpr int textTop = 47, bottomGap = 7, stripGap = 8;
/// The text ends where the scroll bar begins, whose handle is 6 wide at x 622.
constexpr int viewRight = 630;

QRect scaledRect(int x, int y, int width, int height) {
    return {scaled(x), scaled(y), scaled(width), scaled(height)};
}

/// Narrower than the button of a sheet.
class CompactButton : public QPushButton {
  public:
    using QPushButton::QPushButton;

    QSize sizeHint() const override {
        constexpr int buttonPadding = 6, iconGap = 8;
        const int width = fontMetrics().horizontalAdvance(text());
        return {iconSize().width() + iconGap + width + 2 * buttonPadding, scaled(copyHeight)};
    }
};

std::string fileNameFor(const AgentForm& form) {
    return proposedFileName(form.name.empty() ? "<name>" : form.name);
}

} // namespace

PropertyListPage::PropertyListPage(FormBinder& binder, QWidget* parent)
    : QWidget(parent), binder_(binder), view_(new PropertyListView(this)),
      fileName_(new ElidedLabel(Qt::ElideMiddle, this)), copy_(new CompactButton(tr("Copy"), this)),
      faultSign_(new QLabel(this)), fault_(new ElidedLabel(Qt::ElideRight, this)) {
    setObjectName("propertyListPage");
    setFixedSize(scaled(pageWidth), scaled(pageHeight));
    addHeader();
    addFaultStrip();
    setFault({});
    setTabOrder(copy_, view_);
    connect(view_, &PropertyListView::focusChanged, this, qOverload<>(&QWidget::update));
    binder_.addUpdater([this](const FormModel&, const FormPresentation& presentation) {
        if (!isHidden())
            update(presentation);
    });
}

QWidget* PropertyListPage::firstControl() const { return view_; }

void PropertyListPage::addHeader() {
    fileName_->setObjectName("propertyListFileName");
    fileName_->setGeometry(scaledRect(pageMargin, 0, copyRight - copyButtonWidth - 2 * pageMargin,
                                      style::pageHeaderHeight));
    copy_->setObjectName("copyPropertyList");
    copy_->setAccessibleName(tr("Copy the property list"));
    copy_->setIconSize({scaled(style::pageIconSide), scaled(style::pageIconSide)});
    copy_->setAutoDefault(false);
    copy_->setGeometry(scaledRect(copyRight - copyButtonWidth,
                                  (style::pageHeaderHeight - copyHeight) / 2, copyButtonWidth,
                                  copyHeight));
    setCopied(false);
    connect(copy_, &QPushButton::clicked, this, &PropertyListPage::copy);
}

void PropertyListPage::addFaultStrip() {
    const int top = pageHeight - style::faultStripHeight;
    const int side = style::pageIconSide;
    faultSign_->setPixmap(style::toolIcon("warning").pixmap(scaled(side), scaled(side)));
    faultSign_->setAccessibleName(tr("Fault of the form"));
    faultSign_->setGeometry(
        scaledRect(pageMargin, top + (style::faultStripHeight - side) / 2, side, side));
    fault_->setObjectName("propertyListFault");
    fault_->setWarning(true);
    fault_->setGeometry(
        scaledRect(2 * pageMargin, top, pageWidth - 3 * pageMargin, style::faultStripHeight));
}

void PropertyListPage::setFault(const QString& fault) {
    const bool isFaulty = !fault.isEmpty();
    fault_->setWholeText(fault);
    fault_->setVisible(isFaulty);
    faultSign_->setVisible(isFaulty);
    updateAccessibleDescription(view_, fault);
    const int bottom =
        isFaulty ? pageHeight - style::faultStripHeight - 1 - stripGap : pageHeight - bottomGap;
    view_->setGeometry(scaledRect(pageMargin, textTop, viewRight - pageMargin, bottom - textTop));
    QWidget::update();
}

void PropertyListPage::update(const FormPresentation& presentation) {
    const Summary& summary = presentation.summary;
    QString fault = summary.isComplete ? QString() : text(summary.sentence);
    try {
        const std::string list = binder_.delegate()->propertyListText(presentation.record);
        if (view_->setText(text(list)))
            setCopied(false);
    } catch (const NamedError& error) {
        view_->setText({});
        fault = text(error.reason());
    }
    copy_->setEnabled(!view_->document()->isEmpty());
    fileName_->setWholeText(text(fileNameFor(presentation.record)));
    setFault(fault);
}

void PropertyListPage::copy() {
    binder_.send(&AppDelegate::copyPropertyList);
    setCopied(true);
}

void PropertyListPage::setCopied(bool copied) {
    if (copied == hasCopied_ && !copy_->toolTip().isEmpty())
        return;
    hasCopied_ = copied;
    copy_->setToolTip(copied ? tr("Copied") : tr("Copy the property list"));
    copy_->setIcon(style::toolIcon(copied ? "copied" : "copy"));
    updateAccessibleDescription(copy_, copied ? tr("Copied") : QString());
}

void PropertyListPage::paintEvent(QPaintEvent*) {
    style::paintPropertyListPage(*this, fault_->isVisibleTo(this), view_->hasFocus());
}

void PropertyListPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    binder_.mirror();
}

} // namespace frimbolate
